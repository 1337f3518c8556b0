#include <zelstandard/instructions/StateInstruction.h>

#include <algorithm>
#include <map>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zelstandard/vocabulary/XMLUtil.h>
#include <zelsuite/zelsuite.h>

using namespace Standard;

namespace
{

/// Notes its end.
class Witness : public StateAttributeBase
{
public:
    Witness(StateAttributeToken token, std::vector<StateAttributeToken>& ended)
        : StateAttributeBase(token), ended_(ended)
    {
    }
    Witness(const Witness&) = delete;
    Witness& operator=(const Witness&) = delete;
    ~Witness() override { ended_.push_back(getToken()); }

private:
    std::vector<StateAttributeToken>& ended_;
};

} // namespace

TEST(Instruction, StartsWithItsTypeAloneAndKeepsWhatIsSet)
{
    StateInstruction instruction(InstructionType::RARE);
    EXPECT_EQ(instruction.getType(), InstructionType::RARE);
    EXPECT_FALSE(instruction.isDeletable());
    EXPECT_TRUE(instruction.getAttributes().empty());
    EXPECT_EQ(instruction.findAttributeToToken(StateAttributeToken::UNDEFINED), nullptr);

    instruction.setType(InstructionType::FREQUENT);
    instruction.setDeletable(true);
    EXPECT_TRUE(instruction.isType(InstructionType::FREQUENT));
    EXPECT_FALSE(instruction.isType(InstructionType::RARE));
    EXPECT_TRUE(instruction.isDeletable());
}

TEST(Instruction, FindsTheFirstAttributeOfATokenPastEmptyPlaces)
{
    auto* first = new StateAttributeBase(StateAttributeToken::G1, Operator::OR);
    auto* second = new StateAttributeBase(StateAttributeToken::G1, Operator::AND);
    StateInstruction instruction(InstructionType::RARE);
    instruction.addAttribute(nullptr);
    instruction.addAttribute(first);
    instruction.addAttribute(second);
    EXPECT_EQ(instruction.getAttributes(),
              (std::vector<StateAttributeBase*>{nullptr, first, second}));
    EXPECT_EQ(instruction.findAttributeToToken(StateAttributeToken::G1), first);
    EXPECT_EQ(instruction.findAttributeToToken(StateAttributeToken::SNOW), nullptr);
    EXPECT_EQ(instruction.findAttributeToToken(StateAttributeToken::UNDEFINED), nullptr);
}

TEST(Instruction, DeletesItsAttributesAtItsEnd)
{
    std::vector<StateAttributeToken> ended;
    {
        StateInstruction instruction(InstructionType::RARE);
        instruction.addAttribute(new Witness(StateAttributeToken::SNOW, ended));
        instruction.addAttribute(nullptr);
        instruction.addAttribute(new Witness(StateAttributeToken::G1, ended));
        EXPECT_TRUE(ended.empty());
    }
    EXPECT_EQ(ended, (std::vector{StateAttributeToken::SNOW, StateAttributeToken::G1}));
}

TEST(Instruction, ACopySharesTheAttributesAndAnAssignmentDeletesNone)
{
    std::vector<StateAttributeToken> ended;
    {
        StateInstruction instruction(InstructionType::RARE);
        instruction.setDeletable(true);
        instruction.addAttribute(new Witness(StateAttributeToken::G1, ended));

        StateInstruction copy(instruction);
        EXPECT_EQ(copy.getType(), InstructionType::RARE);
        EXPECT_TRUE(copy.isDeletable());
        EXPECT_EQ(copy.getAttributes(), instruction.getAttributes());

        const StateInstruction empty(InstructionType::FREQUENT);
        copy = empty; // so the attributes are deleted once only
        EXPECT_EQ(copy.getType(), InstructionType::FREQUENT);
        EXPECT_FALSE(copy.isDeletable());
        EXPECT_TRUE(copy.getAttributes().empty());
        EXPECT_TRUE(ended.empty());
    }
    EXPECT_EQ(ended, std::vector{StateAttributeToken::G1});
}

TEST(InstructionNames, AreDashesForTypesWithoutText)
{
    for (const auto type :
         {InstructionType::NONE, InstructionType::BRIDGE_EC2, InstructionType::FATIGUE_G,
          InstructionType::FATIGUE_ZERO, InstructionType{-2}, InstructionType{43}})
        EXPECT_EQ(StateInstruction(type).getName(), "-") << static_cast<int>(type);
}

TEST(InstructionNames, DifferButForFullSuperposition)
{
    std::map<std::string, std::string> types;
    for (int value = 0; value <= 42; ++value)
        types[StateInstruction(InstructionType{value}).getName()] +=
            XMLUtil::get()->getStringToInstruction(InstructionType{value}) + " ";
    for (const auto& [name, words] : types)
        if (name == "-")
            EXPECT_EQ(words, "BRIDGE_EC2 FATIGUE_G FATIGUE_ZERO ");
        else if (words.starts_with("FULL"))
            EXPECT_EQ(words, "FULL_DIN FULL_EC2 ");
        else
            EXPECT_EQ(std::ranges::count(words, ' '), 1) << words;
}

TEST(InstructionNames, FollowTheLanguage)
{
    const StateInstruction instruction(InstructionType::FUNDAMENTAL);
    const std::string english = instruction.getName();
    zelsuite::setLanguage("de");
    const std::string german = instruction.getName();
    zelsuite::setLanguage("en");
    EXPECT_NE(german, english);
    EXPECT_EQ(instruction.getName(), english);
}
