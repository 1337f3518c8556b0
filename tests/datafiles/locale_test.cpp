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

/// A catalogue whose numbers have fractions and thousands.
void fill(ActionTypeManager& types)
{
    SafetyFactors& factors =
        *types.giveActionType(ActionType::Id::SNOW)
             ->giveFactors(Mode::EC, Classification::BUILDING, static_cast<BridgeType>(0));
    factors.setGammaSup(1.35);
    factors.setGammaInf(0.0);
    factors.setPsi0(12345.5);
    factors.setPsi1(0.25);
    factors.setCrackRed(0.625);
}

} // namespace

TEST_F(FilesInAnyLocale, AreTestedUnderGermanNumbers)
{
    EXPECT_EQ(GermanLocale::sample(), "1.5 1234567 1.5");
    {
        const GermanLocale german;
        ASSERT_GERMAN();
    }
    EXPECT_EQ(GermanLocale::sample(), "1.5 1234567 1.5");
}

TEST_F(FilesInAnyLocale, HoldTheSameSettings)
{
    context_->setServiceClass(1234567);
    context_->output(directory_.file("classic.xml"));
    const std::string input = directory_.write(
        "input.xml", "<SMOD><SETTINGS><SERVICE_CLASS>3</SERVICE_CLASS></SETTINGS></SMOD>");

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
    fill(types);
    types.output(directory_.file("classic.xml"));

    const GermanLocale german;
    ASSERT_GERMAN();
    types.output(directory_.file("german.xml"));
    EXPECT_EQ(readFile(directory_.file("german.xml")), readFile(directory_.file("classic.xml")));
    EXPECT_NE(readFile(directory_.file("german.xml")).find(">12345.50<"), std::string::npos);

    const ActionTypeManager read(directory_.file("classic.xml"));
    const ActionType* snow = read.findActionType(ActionType::Id::SNOW);
    ASSERT_NE(snow, nullptr);
    EXPECT_TRUE(*snow == *types.findActionType(ActionType::Id::SNOW));

    const std::string enciphered = directory_.write(
        "enciphered.xml", support::enciphered(readFile(directory_.file("classic.xml"))));
    const ActionTypeManager deciphered(enciphered);
    ASSERT_TRUE(deciphered.hasActionTypes());
    EXPECT_TRUE(*deciphered.getActionTypes()[0] == *snow);
}

TEST_F(FilesInAnyLocale, HoldTheSameNumbers)
{
    const GermanLocale german;
    ASSERT_GERMAN();
    ZelXmlTree tree;
    ZelXmlData* root = tree.open("ROOT", false);
    const double numbers[] = {1.5, -0.1, 1234567.25, 1e-7, 1e300, 5e-324};
    for (const double number : numbers)
        ZelXmlData::setData(ZelXmlData::addChild(root, "NUMBER"), number);
    ZelXmlData::setData(ZelXmlData::addChild(root, "WHOLE"), 1234567);
    ZelXmlDataUtil::setChildData(root, "ROUNDED", 1234.567, "%.2f");
    std::stringstream stream;
    tree.putToStream(stream, true);

    ZelXmlTree copy;
    ASSERT_TRUE(copy.buildOfStream(stream));
    const ZelXmlData* element = ZelXmlData::getFirstChild(copy.getRoot());
    for (const double number : numbers) {
        double value = std::numeric_limits<double>::quiet_NaN();
        ZelXmlDataUtil::readValToChild(element, value);
        EXPECT_EQ(value, number) << stream.str();
        element = ZelXmlData::getNextSibling(element);
    }
    EXPECT_EQ(ZelXmlDataUtil::getChildInt(copy.getRoot(), "WHOLE"), 1234567);
    EXPECT_EQ(ZelXmlDataUtil::getChildString(copy.getRoot(), "ROUNDED"), "1234.57");
    EXPECT_EQ(ZelXmlDataUtil::getChildDouble(copy.getRoot(), "ROUNDED"), 1234.57);
}

TEST_F(FilesInAnyLocale, TakeNoCommaForAPoint)
{
    const std::string file =
        directory_.write("comma.xml", "<SMOD><ACTIONTYPES><ACTIONTYPE NAME=\"SNOW\"><ANNEXES>"
                                      "<ANNEX NAME=\"EC\"><CLASSIFICATION NAME=\"BUILDING\">"
                                      "<GAMMA_SUP>1,50</GAMMA_SUP><PSI0>0.5</PSI0>"
                                      "</CLASSIFICATION></ANNEX></ANNEXES></ACTIONTYPE>"
                                      "</ACTIONTYPES></SMOD>");
    const GermanLocale german;
    ASSERT_GERMAN();
    const ActionTypeManager types(file);
    const ActionType* snow = types.findActionType(ActionType::Id::SNOW);
    ASSERT_NE(snow, nullptr);
    EXPECT_EQ(snow->getGammaSup(), 0.0) << "a value that is no number is missing";
    EXPECT_EQ(snow->getPsi0(), 0.5);
}
