#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include "support/Golden.h"

using Standard::XMLUtil;
using Standard::Constants::Label;

TEST(Words, EndWhereTheyEnd)
{
    using namespace std::string_literals;
    EXPECT_EQ(XMLUtil::get()->getModeToString("BS\0"s), Standard::Mode::NO_CODE);
    EXPECT_EQ(XMLUtil::get()->getActionTypeIDToString("SNOW\0"s), Standard::ActionTypeId::NONE);
}

// A line is the text of each member, in the order of this list.
TEST(Labels, KeepTheSpellingsOfTheFiles)
{
    std::string texts;
    const auto add = [&](auto... labels) { ((texts += std::string(labels) + "\n"), ...); };
    add(Label::Name, Label::StateAttributes, Label::StateAttribute, Label::ActionTypes,
        Label::ActionType, Label::ActionGroup, Label::Operator, Label::Type, Label::LoadType,
        Label::LoadDuration, Label::Classification, Label::BridgeType, Label::BuildingType,
        Label::ExclGroup, Label::CombGroup, Label::Annexes, Label::Annex, Label::RoadWay,
        Label::RailWay1, Label::RailWay2, Label::RailWay3, Label::FootBridge1, Label::FootBridge2,
        Label::Common, Label::Engineering, Label::Dcl, Label::Dcm, Label::Dch, Label::Permanent,
        Label::LongTerm, Label::MediumTerm, Label::ShortTerm, Label::Instantaneous, Label::Settings,
        Label::StandardMode, Label::ClassificationMode, Label::DesignMaterial, Label::Situation,
        Label::DuctilityClass, Label::ServiceClass, Label::Coefficients, Label::GammaS,
        Label::GammaC, Label::GammaA, Label::GammaT, Label::GammaF, Label::GammaR, Label::GammaRv,
        Label::GammaRh, Label::GammaRe, Label::AlphaCc, Label::AlphaCt, Label::DefaultBlocks,
        Label::StateInstructions, Label::Template, Label::StressBlock, Label::Lambda, Label::Eta,
        Label::StrutFactor, Label::Bridge, Label::Building);
    support::expectGolden("labels.txt", texts);
}
