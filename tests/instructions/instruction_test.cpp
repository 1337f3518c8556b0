#include <zelstandard/instructions/StateInstruction.h>

#include <vector>

#include <gtest/gtest.h>

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

TEST(Instruction, OwnsItsAttributesWhichItsCopiesShare)
{
    std::vector<StateAttributeToken> ended;
    {
        StateInstruction instruction(InstructionType::RARE);
        instruction.setDeletable(true);
        auto* first = new Witness(StateAttributeToken::G1, ended);
        for (StateAttributeBase* attribute : std::initializer_list<StateAttributeBase*>{
                 nullptr, first, new Witness(StateAttributeToken::SNOW, ended),
                 new Witness(StateAttributeToken::G1, ended)})
            instruction.addAttribute(attribute);
        EXPECT_EQ(instruction.findAttributeToToken(StateAttributeToken::G1), first);
        EXPECT_EQ(instruction.findAttributeToToken(StateAttributeToken::UNDEFINED), nullptr);

        StateInstruction copy(instruction);
        EXPECT_TRUE(copy.isType(InstructionType::RARE));
        EXPECT_TRUE(copy.isDeletable());
        EXPECT_EQ(copy.getAttributes(), instruction.getAttributes());
        const StateInstruction empty(InstructionType::FREQUENT);
        copy = empty; // deletes nothing, so the attributes end once only
        EXPECT_TRUE(copy.isType(InstructionType::FREQUENT));
        EXPECT_FALSE(copy.isDeletable());
        EXPECT_TRUE(copy.getAttributes().empty());
        EXPECT_TRUE(ended.empty());
    }
    EXPECT_EQ(ended, (std::vector{StateAttributeToken::G1, StateAttributeToken::SNOW,
                                  StateAttributeToken::G1}));
}
