#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/OperatorTexts.h>
#include <zelsuite/zelsuite.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace Standard;

namespace
{

/// The texts of all tests here, in each language; English is put back.
class Texts : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override { ASSERT_TRUE(zelsuite::setLanguage(GetParam())); }
    void TearDown() override { zelsuite::setLanguage("en"); }
};

INSTANTIATE_TEST_SUITE_P(Language, Texts, testing::Values("en", "de"),
                         [](const auto& language) { return std::string(language.param); });

Operator operatorOf(int value) { return static_cast<Operator>(value); }

} // namespace

TEST(OperatorSymbols, HaveFiveCharacters)
{
    EXPECT_EQ(getOperatorSymbol(Operator::AND), "  +  ");
    EXPECT_EQ(getOperatorSymbol(Operator::OR), "  ?  ");
    EXPECT_EQ(getOperatorSymbol(Operator::AND_MINMAX), "+(0?)");
    EXPECT_EQ(getOperatorSymbol(Operator::OR_MINMAX), "?(0?)");
}

TEST(OperatorTexts, AreADashAndABlankWithoutOperator)
{
    for (const int value : {-1, 4, 5}) {
        EXPECT_EQ(getOperatorName(operatorOf(value)), "-") << value;
        EXPECT_EQ(getOperatorReportName(operatorOf(value)), "-") << value;
        EXPECT_EQ(getOperatorSymbol(operatorOf(value)), " ") << value;
    }
}

TEST_P(Texts, OfOperatorsHaveCrossedLoaders)
{
    for (int value = 0; value < 4; ++value) {
        const auto textId = static_cast<unsigned int>(4244 + value);
        EXPECT_EQ(getOperatorName(operatorOf(value)), ZelText::LoadReport(textId));
        EXPECT_EQ(getOperatorReportName(operatorOf(value)), ZelText::Load(textId));
    }
}

TEST_P(Texts, OfOperatorsComeBackAsTheyAreDisplayed)
{
    for (int value = 0; value < 4; ++value) {
        const std::string text = getOperatorReportName(operatorOf(value));
        EXPECT_EQ(getOperatorToName(text), operatorOf(value)) << text;
        std::string otherCase = text;
        otherCase.front() = static_cast<char>(otherCase.front() ^ ' ');
        EXPECT_EQ(getOperatorToName(otherCase), operatorOf(-1)) << otherCase;
        EXPECT_EQ(getOperatorToName(text + " "), operatorOf(-1)) << text;
    }
    for (const char* text : {"", "-", " ", "AND", "  +  "})
        EXPECT_EQ(getOperatorToName(text), operatorOf(-1)) << text;
}

TEST_P(Texts, OfCombinationsAreOneEach)
{
    std::set<std::string> texts;
    for (int value = 0; value < 9; ++value)
        texts.insert(GetCombinationText(static_cast<Combination>(value)));
    EXPECT_EQ(texts.size(), 9u);
    EXPECT_FALSE(texts.contains(""));
    EXPECT_EQ(GetCombinationText(Combination::FATIGUE), ZelText::Load(5213));
    for (const int value : {-1, 9, 6456})
        EXPECT_EQ(GetCombinationText(static_cast<Combination>(value)), "") << value;
}
