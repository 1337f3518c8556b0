// What only the interface of superposition rules shows: identity, ownership and copies, values that
// are no members. Contents of documents and templates stand in text/instructions.

#include <zelstandard/instructions/StateInstructionManager.h>

#include <climits>

#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/instructions/StateInstructionReader.h>

#include "support/Context.h"
#include "support/Files.h"

using namespace Standard;
using Token = StateAttributeToken;

namespace
{

constexpr auto inBuildings = SuperpositionTemplate::EC_BUILDING;
constexpr auto onBridges = SuperpositionTemplate::EC_BRIDGE;

/// Notes its end.
class Witness : public StateAttributeBase
{
public:
    Witness(Token token, std::vector<Token>& ended) : StateAttributeBase(token), ended_(ended) {}
    Witness(const Witness&) = delete;
    Witness& operator=(const Witness&) = delete;
    ~Witness() override { ended_.push_back(getToken()); }

private:
    std::vector<Token>& ended_;
};

class Instructions : public testing::Test
{
protected:
    /// "G1 0, SNOW 2": tokens and the numbers of their operators.
    static std::string contents(const StateInstruction& instruction)
    {
        std::string result;
        for (const StateAttributeBase* attribute : instruction.getAttributes())
            result += (result.empty() ? "" : ", ") +
                      StateAttribute::getPersistenceStringFromToken(attribute->getToken()) + " " +
                      std::to_string(static_cast<int>(attribute->getOperator()));
        return result;
    }

    support::FreshContext context_;
    StateInstructionManager catalogue_{nullptr};
};

} // namespace

TEST(Instruction, OwnsItsAttributesWhichItsCopiesShare)
{
    std::vector<Token> ended;
    {
        StateInstruction instruction(InstructionType::RARE);
        instruction.setDeletable(true);
        auto* first = new Witness(Token::G1, ended);
        for (StateAttributeBase* attribute : std::initializer_list<StateAttributeBase*>{
                 nullptr, first, new Witness(Token::SNOW, ended), new Witness(Token::G1, ended)})
            instruction.addAttribute(attribute);
        EXPECT_EQ(instruction.findAttributeToToken(Token::G1), first);
        EXPECT_EQ(instruction.findAttributeToToken(Token::UNDEFINED), nullptr);

        StateInstruction copy(instruction);
        EXPECT_TRUE(copy.isType(InstructionType::RARE) && copy.isDeletable());
        EXPECT_EQ(copy.getAttributes(), instruction.getAttributes());
        copy = StateInstruction(InstructionType::FREQUENT); // deletes nothing: they end once only
        EXPECT_TRUE(copy.isType(InstructionType::FREQUENT) && !copy.isDeletable());
        EXPECT_TRUE(copy.getAttributes().empty() && ended.empty());
    }
    EXPECT_EQ(ended, (std::vector{Token::G1, Token::SNOW, Token::G1}));
}

TEST_F(Instructions, AreOneOfATypeInEachTemplate)
{
    StateInstruction* rare = catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings);
    EXPECT_EQ(catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings), rare);
    EXPECT_NE(catalogue_.giveStateInstruction(InstructionType::RARE, onBridges), rare);
    auto* second = catalogue_.giveStateInstruction(InstructionType::CREEP, inBuildings);

    // Deletable or not, the first of a type goes.
    second->setType(InstructionType::RARE);
    EXPECT_TRUE(catalogue_.deleteStateInstruction(InstructionType::RARE, inBuildings));
    EXPECT_EQ(catalogue_.findStateInstruction(InstructionType::RARE, inBuildings), second);
    EXPECT_TRUE(catalogue_.deleteStateInstruction(InstructionType::RARE, inBuildings));
    EXPECT_FALSE(catalogue_.deleteStateInstruction(InstructionType::RARE, inBuildings));
    EXPECT_EQ(catalogue_.getStateInstructions(onBridges).size(), 1U);
    catalogue_.killStateInstructions();
    EXPECT_EQ(catalogue_.getStateInstructions(onBridges).size(), 1U) << "their places stay";
    catalogue_ = StateInstructionManager(nullptr); // the pointers are void

    for (const int value : {-1, 6, INT_MIN, INT_MAX}) {
        const SuperpositionTemplate none{value};
        EXPECT_EQ(catalogue_.giveStateInstruction(InstructionType::RARE, none), nullptr) << value;
        EXPECT_EQ(catalogue_.findStateInstruction(InstructionType::RARE, none), nullptr) << value;
        EXPECT_FALSE(catalogue_.deleteStateInstruction(InstructionType::RARE, none)) << value;
        EXPECT_TRUE(catalogue_.getStateInstructions(none).empty()) << value;
    }
}

TEST_F(Instructions, TakeTheTypesThatTheAttributeCatalogueKnows)
{
    StateAttributeManager attributes(nullptr);
    StateAttribute* known = attributes.giveStateAttribute(Token::EXCL1, ActionTypeId::NONE);
    known->setType(AttributeType::VARIABLE);
    known->setLoadType(AttributeLoadType::VEHICLE);
    StateInstructionManager catalogue(&attributes);
    StateInstruction* rare = catalogue.giveStateInstruction(InstructionType::RARE, onBridges);
    const auto* made =
        catalogue.stateInstructionGiveAttribute(rare, Token::EXCL1, Operator::AND_MINMAX);
    known->setType(AttributeType::WIND);
    EXPECT_EQ(catalogue.stateInstructionGiveAttribute(rare, Token::EXCL1, Operator::OR), made);
    EXPECT_EQ(made->getType(), AttributeType::VARIABLE) << "one that exists stays as it is";
    EXPECT_EQ(made->getLoadType(), AttributeLoadType::VEHICLE);
    EXPECT_EQ(made->getOperator(), Operator::AND_MINMAX) << "that of the first mention";
}

TEST_F(Instructions, AreReadWhereTokensAreNoMembersAndAttributesAreMissing)
{
    StateAttributeManager attributes(nullptr);
    for (const Token token : {Token{-1}, Token{200}})
        attributes.giveStateAttribute(Token::SNOW, ActionTypeId::NONE)->setToken(token);
    StateInstructionManager catalogue(&attributes);
    StateInstruction* rare = catalogue.giveStateInstruction(InstructionType::RARE, inBuildings);
    rare->addAttribute(nullptr);
    std::istringstream stream(R"(<STATEINSTRUCTIONS><R TYPE="RARE" TEMPLATE="EC-BUILDING">)"
                              R"(<STATEATTRIBUTES><E NAME="G1"/></STATEATTRIBUTES></R>)"
                              "</STATEINSTRUCTIONS>");
    StateInstructionReader(&catalogue).readXml(stream);
    ASSERT_EQ(rare->getAttributes().size(), 2U);
    EXPECT_EQ(rare->getAttributes()[1]->getToken(), Token::G1);
}

TEST_F(Instructions, AreSharedByTheCopiesOfTheirCatalogue)
{
    StateAttributeManager attributes(nullptr);
    attributes.giveStateAttribute(Token::G1, ActionTypeId::NONE)->setType(AttributeType::PERMANENT);
    StateInstructionManager source(&attributes);
    source.giveStateInstruction(InstructionType::RARE, inBuildings);

    StateInstructionManager copy(source);
    catalogue_ = source;
    for (StateInstructionManager* shared : {&copy, &catalogue_}) {
        EXPECT_EQ(shared->getStateInstructions(inBuildings),
                  source.getStateInstructions(inBuildings));
        StateInstruction* made = shared->giveStateInstruction(InstructionType::CREEP, onBridges);
        EXPECT_EQ(shared->stateInstructionGiveAttribute(made, Token::G1, Operator::AND)->getType(),
                  AttributeType::PERMANENT)
            << "the attribute catalogue is copied too";
        EXPECT_TRUE(shared->deleteStateInstruction(InstructionType::CREEP, onBridges));
        *shared = StateInstructionManager(nullptr); // deletes nothing, so the source alone does
    }
    EXPECT_EQ(source.getStateInstructions(inBuildings).size(), 1U);
}

TEST_F(Instructions, OfADocumentAreAddedAndItsBlocksLeftBehind)
{
    StateInstruction* rare = catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings);
    catalogue_.stateInstructionGiveAttribute(rare, Token::V, Operator::OR);
    rare->setDeletable(true);
    StateInstructionReader reader(&catalogue_);
    const auto read = [&](const std::string& blocks, const std::string& attributes) {
        std::istringstream stream("<STATEINSTRUCTIONS><DEFAULT_BLOCKS>" + blocks +
                                  R"(</DEFAULT_BLOCKS><R TYPE="RARE" TEMPLATE="EC-BUILDING">)" +
                                  "<STATEATTRIBUTES>" + attributes +
                                  "</STATEATTRIBUTES></R></STATEINSTRUCTIONS>");
        reader.readXml(stream);
    };
    read(R"(<B NAME="a"><E NAME="SNOW"/></B>)", R"(<E NAME="G1"/><E NAME="V" OPERATOR="AND"/>)");
    read("", "<DEFAULT_BLOCKS><a/></DEFAULT_BLOCKS>");
    EXPECT_EQ(contents(*rare), "V 1, G1 -1");
    EXPECT_FALSE(rare->isDeletable()) << "what a file gives is not deletable";

    // No document grows beyond its own size: a block of all tokens, pulled in many times over.
    std::string all;
    for (int token = 0; token <= 130; ++token)
        all += "<E NAME=\"" + StateAttribute::getPersistenceStringFromToken(Token{token}) + "\"/>";
    std::string references;
    for (int count = 0; count < 20000; ++count)
        references += "<all/>";
    read("<B NAME=\"all\">" + all + "</B>", "<DEFAULT_BLOCKS>" + references + "</DEFAULT_BLOCKS>");
    EXPECT_EQ(rare->getAttributes().size(), 131U);
}

TEST_F(Instructions, OfAnEncipheredSettingsFileAreNeverDeciphered)
{
    const support::TemporaryDirectory directory;
    const std::string rules =
        "<STATEINSTRUCTIONS><R TEMPLATE=\"EC-BUILDING\"/></STATEINSTRUCTIONS>";
    for (const bool isPlain : {true, false}) {
        context_->setAlternativeDBPath(
            directory.write("rules", isPlain ? rules : support::enciphered(rules)));
        EXPECT_EQ(StateInstructionManager(nullptr).getStateInstructions(inBuildings).size(),
                  isPlain ? 1U : 0U);
    }
}
