#include <zelstandard/vocabulary/OperatorTexts.h>
#include <zelsuite/zelsuite.h>

#include <gtest/gtest.h>

#include <set>
#include <string>

using namespace Standard;

TEST(OperatorTexts, AreADashAndABlankWithoutOperator)
{
    EXPECT_EQ(getOperatorSymbol(Operator::AND), "  +  ");
    EXPECT_EQ(getOperatorSymbol(Operator::OR), "  ?  ");
    EXPECT_EQ(getOperatorSymbol(Operator::AND_MINMAX), "+(0?)");
    EXPECT_EQ(getOperatorSymbol(Operator::OR_MINMAX), "?(0?)");
    for (const int value : {-1, 4}) {
        EXPECT_EQ(getOperatorName(static_cast<Operator>(value)), "-");
        EXPECT_EQ(getOperatorReportName(static_cast<Operator>(value)), "-");
        EXPECT_EQ(getOperatorSymbol(static_cast<Operator>(value)), " ");
    }
}

// Which text and loader: golden/text_ids_of_words.txt.
TEST(OperatorTexts, ComeBackAsTheyAreDisplayed)
{
    for (const char* language : {"de", "en"}) {
        SCOPED_TRACE(language);
        ASSERT_TRUE(zelsuite::setLanguage(language));
        for (int value = 0; value < 4; ++value) {
            const Operator op{value};
            const std::string text = getOperatorReportName(op);
            EXPECT_EQ(getOperatorToName(text), op) << text;
            std::string otherCase = text;
            otherCase.front() = static_cast<char>(otherCase.front() ^ ' ');
            for (const std::string& other : {otherCase, text + " "})
                EXPECT_EQ(getOperatorToName(other), static_cast<Operator>(-1)) << other;
        }
        for (const char* text : {"", "-", "AND", "  +  "})
            EXPECT_EQ(getOperatorToName(text), static_cast<Operator>(-1)) << text;
    }
}

TEST(CombinationTexts, AreOneEach)
{
    std::set<std::string> texts;
    for (int value = -1; value <= 9; ++value)
        texts.insert(GetCombinationText(static_cast<Combination>(value)));
    EXPECT_EQ(texts.size(), 10u) << "nine, and none outside";
}
