#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/platform/ZelXml.h>

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <limits>
#include <locale>
#include <sstream>
#include <string>

#include "support/Context.h"
#include "support/Files.h"

// Files are the same in every locale, that of the C library and that of the C++ streams.

using namespace Standard;
using support::readFile;
using support::TemporaryDirectory;

namespace
{

/// Numbers as German streams write them. Made here, since not every system has such a locale for
/// C++.
class GermanNumbers : public std::numpunct<char>
{
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// A decimal comma for printf and for streams, and grouped digits for streams.
class GermanLocale
{
public:
    GermanLocale() : before_(std::setlocale(LC_ALL, nullptr))
    {
        global_ = std::locale::global(std::locale(std::locale::classic(), new GermanNumbers));
        for (const char* name : {"de_DE.UTF-8", "de_DE.utf8", "de_DE", "German_Germany.1252",
                                 "German_Germany", "German", "de-DE"})
            if (std::setlocale(LC_ALL, name))
                break;
    }
    ~GermanLocale()
    {
        std::locale::global(global_);
        std::setlocale(LC_ALL, before_.c_str());
    }
    GermanLocale(const GermanLocale&) = delete;
    GermanLocale& operator=(const GermanLocale&) = delete;

    /// What a number looks like in printf and in a stream.
    static std::string sample()
    {
        char text[32];
        std::snprintf(text, sizeof text, "%.1f", 1.5);
        std::ostringstream stream;
        stream << text << " " << 1234567 << " " << 1.5;
        return stream.str();
    }

private:
    std::string before_;
    std::locale global_;
};

#define ASSERT_GERMAN() ASSERT_EQ(GermanLocale::sample(), "1,5 1.234.567 1,5")

class FilesInAnyLocale : public testing::Test
{
protected:
    support::FreshContext context_;
    TemporaryDirectory directory_;
};

} // namespace

TEST_F(FilesInAnyLocale, HoldTheSameSettings)
{
    context_->setServiceClass(1234567);
    context_->output(directory_.file("classic.xml"));
    const std::string input =
        directory_.write("input.xml", "<SETTINGS><SERVICE_CLASS>3</SERVICE_CLASS></SETTINGS>");

    const GermanLocale german;
    ASSERT_GERMAN();
    context_->output(directory_.file("german.xml"));
    EXPECT_EQ(readFile(directory_.file("german.xml")), readFile(directory_.file("classic.xml")));
    EXPECT_NE(readFile(directory_.file("german.xml")).find(">1234567<"), std::string::npos);
    context_->input(input);
    EXPECT_EQ(context_->getServiceClass(), 3);
}

TEST_F(FilesInAnyLocale, HoldTheSameFactors)
{
    ActionTypeManager types("");
    SafetyFactors& factors =
        *types.giveActionType(ActionType::Id::SNOW)
             ->giveFactors(Mode::EC, Classification::BUILDING, static_cast<BridgeType>(0));
    factors.setGammaSup(1.35);
    factors.setPsi0(12345.5);
    factors.setCrackRed(0.625);
    types.output(directory_.file("classic.xml"));

    const GermanLocale german;
    ASSERT_GERMAN();
    types.output(directory_.file("german.xml"));
    const std::string written = readFile(directory_.file("german.xml"));
    EXPECT_EQ(written, readFile(directory_.file("classic.xml")));
    EXPECT_NE(written.find(">12345.50<"), std::string::npos);
    for (const std::string& document : {written, support::enciphered(written)}) {
        const ActionTypeManager read(directory_.write("read.xml", document));
        ASSERT_TRUE(read.hasActionTypes());
        EXPECT_TRUE(*read.getActionTypes()[0] == *types.findActionType(ActionType::Id::SNOW));
    }
    // A comma makes no number, and what is no number is missing.
    std::string comma = written;
    comma.replace(comma.find("1.35"), 4, "1,35");
    const ActionTypeManager withComma(directory_.write("comma.xml", comma));
    const ActionType* snow = withComma.findActionType(ActionType::Id::SNOW);
    ASSERT_NE(snow, nullptr);
    EXPECT_EQ(snow->getGammaSup(), 0.0);
    EXPECT_EQ(snow->getPsi0(), 12345.5);
}

TEST_F(FilesInAnyLocale, HoldTheSameNumbers)
{
    const GermanLocale german;
    ASSERT_GERMAN();
    ZelXmlTree tree;
    ZelXmlData* root = tree.open("ROOT", false);
    for (const double number : {1.5, -0.1, 1234567.25, 1e-7, 1e300, 5e-324}) {
        ZelXmlData* element = ZelXmlData::addChild(root, "NUMBER");
        ZelXmlData::setData(element, number);
        EXPECT_EQ(ZelXmlData::getData(element).find(','), std::string::npos);
        double value = std::numeric_limits<double>::quiet_NaN();
        ZelXmlDataUtil::readValToChild(element, value);
        EXPECT_EQ(value, number) << ZelXmlData::getData(element);
    }
    ZelXmlData::setData(ZelXmlData::addChild(root, "WHOLE"), 1234567);
    ZelXmlDataUtil::setChildData(root, "ROUNDED", 1234.567, "%.2f");
    EXPECT_EQ(ZelXmlDataUtil::getChildString(root, "WHOLE"), "1234567");
    EXPECT_EQ(ZelXmlDataUtil::getChildString(root, "ROUNDED"), "1234.57");
    EXPECT_EQ(ZelXmlDataUtil::getChildDouble(root, "ROUNDED"), 1234.57);
}
