#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdio>
#include <limits>
#include <string>

#include <zelstandard/platform/ZelXml.h>

// <VALUES><V>1.35</V></VALUES>: one number in one child, read and written. That no locale changes
// it is shown in datafiles/locale_test.cpp.

namespace
{

/// A document in memory whose one child "V" has the text.
struct Values {
    explicit Values(const std::string& text = {})
    {
        ZelXmlData::setData(ZelXmlData::openChild(tree.open("VALUES", false), "V", false), text);
    }
    [[nodiscard]] ZelXmlData* root() const { return tree.getRoot(); }
    [[nodiscard]] ZelXmlData* value() const { return ZelXmlData::findChild(root(), "V"); }

    ZelXmlTree tree;
};

std::string formatted(double value, const char* format)
{
    const Values values;
    ZelXmlDataUtil::setChildData(values.root(), "V", value, format);
    return ZelXmlDataUtil::getChildString(values.root(), "V");
}

} // namespace

TEST(XmlNumbers, AreTheWholeTextOfAChild)
{
    const double none = -7.0; // what the field held before
    const struct {
        const char* text;
        int asInt;
        double asDouble;
    } rows[] = {
        {"1.35",       0,          1.35        },
        {" +1.5e1\n",  0,          15.0        },
        {"-2",         -2,         -2.0        },
        {"-0.25E-1",   0,          -0.025      },
        {"2147483647", 2147483647, 2147483647.0},
        {"2147483648", 0,          2147483648.0},
        {"",           0,          none        },
        {"+-1",        0,          none        },
        {"1,35",       0,          none        },
        {"1.35 kN",    0,          none        },
        {"0x10",       0,          none        },
        {"inf",        0,          none        },
        {"1e999",      0,          none        },
        {"\xD9\xA1",   0,          none        },
    };
    for (const auto& row : rows) {
        const Values values(row.text);
        EXPECT_EQ(ZelXmlDataUtil::getChildInt(values.root(), "V"), row.asInt) << row.text;
        double field = none;
        ZelXmlDataUtil::readValToChild(values.value(), field);
        EXPECT_EQ(field, row.asDouble) << row.text;
        EXPECT_EQ(ZelXmlDataUtil::getChildDouble(values.root(), "V"),
                  row.asDouble == none ? 0.0 : row.asDouble)
            << row.text;
    }
    double field = none;
    ZelXmlDataUtil::readValToChild(nullptr, field);
    EXPECT_EQ(field, none);
    EXPECT_EQ(ZelXmlDataUtil::getChildInt(nullptr, "V"), 0);
}

TEST(XmlNumbers, AreWrittenSoThatTheyReadBackEqual)
{
    for (const double value :
         {0.0, 0.1, 1.0 / 3.0, 1e21, 5e-324, -std::numeric_limits<double>::max()}) {
        const Values values;
        ZelXmlData::setData(values.value(), value);
        EXPECT_EQ(ZelXmlDataUtil::getChildDouble(values.root(), "V"), value);
    }
    const Values values;
    ZelXmlData::setData(values.value(), 0.85);
    EXPECT_EQ(ZelXmlData::getData(values.value()), "0.85");
    ZelXmlData::setData(values.value(), std::numeric_limits<int>::min());
    EXPECT_EQ(ZelXmlDataUtil::getChildInt(values.root(), "V"), std::numeric_limits<int>::min());
    ZelXmlData::setData(values.value(), std::nan(""));
    EXPECT_EQ(ZelXmlDataUtil::getChildDouble(values.root(), "V"), 0.0);
}

TEST(XmlNumbers, AreRoundedAsPrintfRounds)
{
    // Neither 1.355 nor 0.8 is a binary number; 0.125 and 2.5 are ties.
    for (const double value : {1.355, 0.8, 0.125, 2.5, -0.001, 0.0, 1e300, -123456.789}) {
        for (const char* format : {"%.2f", "%.3f", "%.0f", "%.12f"}) {
            std::array<char, 400> expected;
            ASSERT_GT(std::snprintf(expected.data(), expected.size(), format, value), 0);
            EXPECT_EQ(formatted(value, format), expected.data());
        }
    }
    for (const char* other : {"%f", "%.2g", "%.-2f", "%.100f", "", "%.f"})
        EXPECT_EQ(formatted(0.8, other), "0.8") << other;
    EXPECT_EQ(formatted(0.8, nullptr), "0.8");
}
