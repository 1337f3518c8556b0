// A catalogue of a hundred megabytes, far beyond any real one, is read right and in bounded memory.

#include <sys/resource.h>

#include <zelstandard/actions/ActionTypeManager.h>

#include "support/Files.h"

namespace
{

#if defined(__SANITIZE_ADDRESS__)
constexpr bool isSanitized = true;
#elif defined(__has_feature)
constexpr bool isSanitized = __has_feature(address_sanitizer);
#else
constexpr bool isSanitized = false;
#endif

constexpr std::size_t fileSize = (isSanitized ? 10 : 100) << 20;

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
    std::string sets;
    for (const char* structure : {"BUILDING", "ROADWAY", "RAILWAY1"})
        sets += std::string("<CLASSIFICATION NAME=\"") + structure + "\"><GAMMA_SUP>" +
                std::to_string(gamma) +
                ".5</GAMMA_SUP><PSI0>1</PSI0><PSI1>1</PSI1><PSI2>1</PSI2><PSI11>1</PSI11>"
                "<PSI21>1</PSI21><PSI22>1</PSI22><CrackRed>.8</CrackRed></CLASSIFICATION>";
    return "<ACTIONTYPE NAME=\"SNOW\"><ANNEXES><ANNEX NAME=\"EC\">" + sets +
           "</ANNEX><ANNEX NAME=\"DIN-EN\">" + sets + "</ANNEX></ANNEXES></ACTIONTYPE>";
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
    const Standard::ActionTypeManager catalogue(path);

    ASSERT_EQ(catalogue.getActionTypes().size(), static_cast<std::size_t>(count));
    int number = 0;
    for (const Standard::ActionType* type : catalogue.getActionTypes()) {
        const auto* factors =
            type->getFactors(Standard::Mode::DIN_EN, Standard::Classification::BRIDGE,
                             Standard::BridgeType::RAILWAY1);
        ASSERT_NE(factors, nullptr);
        ASSERT_EQ(factors->getGammaSup(), number++ + 0.5);
        ASSERT_EQ(factors->getCrackRed(), 0.8);
    }
    if (!isSanitized) { // the sanitizers keep freed memory for a while
        EXPECT_LT(peakMemory(), 10 * fileSize);
    }
}
