#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <string>

#include <gtest/gtest.h>

using Standard::XMLUtil;
using Standard::Constants::Label;

TEST(Words, EndWhereTheyEnd)
{
    using namespace std::string_literals;
    EXPECT_EQ(XMLUtil::get()->getModeToString("BS\0"s), Standard::Mode::NO_CODE);
    EXPECT_EQ(XMLUtil::get()->getActionTypeIDToString("SNOW\0"s), Standard::ActionTypeId::NONE);
}

// The library itself asks for none of these.
TEST(Labels, AreTheWordsOfTheirEnumerations)
{
    XMLUtil& words = *XMLUtil::get();
    const auto values = [&](auto value, std::initializer_list<const char*> labels) {
        std::string numbers;
        for (const char* label : labels)
            numbers += std::to_string(static_cast<int>((words.*value)(label)));
        return numbers;
    };
    EXPECT_EQ(values(&XMLUtil::getBridgeTypeToString,
                     {Label::RoadWay, Label::RailWay1, Label::RailWay2, Label::RailWay3,
                      Label::FootBridge1, Label::FootBridge2}),
              "123455");
    EXPECT_EQ(values(&XMLUtil::getBuildingTypeToString, {Label::Common, Label::Engineering}), "12");
    EXPECT_EQ(values(&XMLUtil::getDuctilityClassToString, {"x", Label::Dcm, Label::Dch}), "012");
    EXPECT_EQ(values(&XMLUtil::getLoadDurationToString, {"x", Label::LongTerm, Label::MediumTerm,
                                                         Label::ShortTerm, Label::Instantaneous}),
              "01234");
    EXPECT_EQ(Label::Dcl + std::string(Label::Permanent), "DCLPERMANENT") << "read as unknown ones";
}
