// A catalogue of a hundred megabytes, far beyond any real one, is read right and in bounded memory.

#include <sys/resource.h>

#include <iostream>

#include <zelstandard/actions/ActionTypeManager.h>

#include "support/Files.h"

using Standard::ActionType;
using Standard::ActionTypeManager;
using Standard::BridgeType;
using Standard::Classification;
using Standard::Mode;

namespace
{

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
constexpr bool isSanitized = __has_feature(address_sanitizer);
#else
constexpr bool isSanitized = false;
#endif

constexpr std::size_t megabyte = 1 << 20;
constexpr std::size_t fileSize = (isSanitized ? 10 : 100) * megabyte;

/// The most memory that the process ever had, in bytes.
std::size_t peakMemory()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return static_cast<std::size_t>(usage.ru_maxrss) * 1024;
}

/// A type with factors of its own in two codes, in the fewest bytes: that is when the memory for a
/// byte of the file is most.
std::string typeWith(int gamma)
{
    std::string annexes;
    for (const char* code : {"EC", "DIN-EN"}) {
        annexes += std::string("<ANNEX NAME=\"") + code + "\">";
        for (const char* structure : {"BUILDING", "ROADWAY", "RAILWAY1"}) {
            annexes += std::string("<CLASSIFICATION NAME=\"") + structure + "\"><GAMMA_SUP>" +
                       std::to_string(gamma) + ".5</GAMMA_SUP>";
            for (const char* value : {"PSI0", "PSI1", "PSI2", "PSI11", "PSI21", "PSI22"})
                annexes += std::string("<") + value + ">1</" + value + ">";
            annexes += "<CrackRed>.8</CrackRed></CLASSIFICATION>";
        }
        annexes += "</ANNEX>";
    }
    return "<ACTIONTYPE NAME=\"SNOW\"><ANNEXES>" + annexes + "</ANNEXES></ACTIONTYPE>";
}

} // namespace

TEST(LargeFile, IsReadRightInBoundedMemory)
{
    const support::TemporaryDirectory directory;
    const std::string path = directory.file("types.xml");
    int count = 0;
    {
        std::ofstream file(path, std::ios::binary);
        file << "<SMOD><ACTIONTYPES>";
        for (std::size_t size = 0; size < fileSize; ++count) {
            const std::string type = typeWith(count);
            file << type;
            size += type.size();
        }
        file << "</ACTIONTYPES></SMOD>";
        ASSERT_TRUE(file.flush());
    }
    const std::size_t before = peakMemory();

    const ActionTypeManager catalogue(path);

    const double ratio = static_cast<double>(peakMemory()) / static_cast<double>(fileSize);
    std::cout << "peak memory " << peakMemory() / megabyte << " MB (" << before / megabyte
              << " MB before reading), " << ratio << " times the file\n";
    ASSERT_EQ(catalogue.getActionTypes().size(), static_cast<std::size_t>(count));
    int number = 0;
    for (const ActionType* type : catalogue.getActionTypes()) {
        const auto* factors =
            type->getFactors(Mode::DIN_EN, Classification::BRIDGE, BridgeType::RAILWAY1);
        ASSERT_NE(factors, nullptr);
        ASSERT_EQ(factors->getGammaSup(), number++ + 0.5);
        ASSERT_EQ(factors->getCrackRed(), 0.8);
    }
    if (!isSanitized) { // the sanitizers keep freed memory for a while
        EXPECT_LT(ratio, 10.0);
    }
}
