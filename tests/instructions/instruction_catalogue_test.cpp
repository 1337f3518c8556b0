#include <zelstandard/instructions/StateInstructionManager.h>

#include <climits>
#include <filesystem>

#include <gtest/gtest.h>

#include <zelstandard/attributes/StateAttributeManager.h>

#include "instructions/Rules.h"
#include "support/Context.h"
#include "support/Files.h"

using namespace Standard;
using support::contents;

namespace
{

constexpr auto inBuildings = SuperpositionTemplate::EC_BUILDING;
constexpr auto onBridges = SuperpositionTemplate::EC_BRIDGE;

class InstructionCatalogue : public testing::Test
{
protected:
    support::FreshContext context_;
    StateInstructionManager catalogue_{nullptr};
};

} // namespace

TEST_F(InstructionCatalogue, HasOneInstructionOfATypeInEachTemplate)
{
    StateInstruction* rare = catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings);
    EXPECT_EQ(catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings), rare);
    EXPECT_NE(catalogue_.giveStateInstruction(InstructionType::RARE, onBridges), rare);
    catalogue_.stateInstructionGiveAttribute(rare, StateAttributeToken::G1, Operator::AND);
    auto* second = catalogue_.giveStateInstruction(InstructionType::CREEP, inBuildings);
    EXPECT_EQ(contents(catalogue_), "EC-BUILDING RARE: G1 AND\n"
                                    "EC-BUILDING CREEP: \n"
                                    "EC-BRIDGE RARE: \n");

    // Deletable or not, the first of a type goes.
    second->setType(InstructionType::RARE);
    EXPECT_TRUE(catalogue_.deleteStateInstruction(InstructionType::RARE, inBuildings));
    EXPECT_EQ(catalogue_.findStateInstruction(InstructionType::RARE, inBuildings), second);
    EXPECT_TRUE(catalogue_.deleteStateInstruction(InstructionType::RARE, inBuildings));
    EXPECT_FALSE(catalogue_.deleteStateInstruction(InstructionType::RARE, inBuildings));
    EXPECT_EQ(contents(catalogue_), "EC-BRIDGE RARE: \n");
}

TEST_F(InstructionCatalogue, HasNothingInATemplateThatIsNoMember)
{
    for (const int value : {-1, 6, INT_MIN, INT_MAX}) {
        const SuperpositionTemplate none{value};
        EXPECT_EQ(catalogue_.giveStateInstruction(InstructionType::RARE, none), nullptr) << value;
        EXPECT_EQ(catalogue_.findStateInstruction(InstructionType::RARE, none), nullptr) << value;
        EXPECT_FALSE(catalogue_.deleteStateInstruction(InstructionType::RARE, none)) << value;
        EXPECT_TRUE(catalogue_.getStateInstructions(none).empty()) << value;
    }
}

TEST_F(InstructionCatalogue, NewAttributesTakeTheTypesThatTheAttributeCatalogueKnows)
{
    StateAttributeManager attributes(nullptr);
    StateAttribute* known =
        attributes.giveStateAttribute(StateAttributeToken::EXCL1, ActionTypeId::NONE);
    known->setType(AttributeType::VARIABLE);
    known->setLoadType(AttributeLoadType::VEHICLE);
    known->setOperator(Operator::OR_MINMAX);
    StateInstructionManager catalogue(&attributes);
    StateInstruction* rare = catalogue.giveStateInstruction(InstructionType::RARE, onBridges);
    const auto give = [&](StateAttributeToken token, Operator value) {
        return catalogue.stateInstructionGiveAttribute(rare, token, value);
    };

    const StateAttributeBase* made = give(StateAttributeToken::EXCL1, Operator::AND);
    known->setType(AttributeType::WIND);
    EXPECT_EQ(give(StateAttributeToken::EXCL1, Operator::OR), made);
    EXPECT_EQ(made->getType(), AttributeType::VARIABLE) << "one that exists stays as it is";
    EXPECT_EQ(made->getLoadType(), AttributeLoadType::VEHICLE);
    EXPECT_EQ(made->getOperator(), Operator::AND) << "that of the rule's first mention";

    const StateAttributeBase* unknown = give(StateAttributeToken::SNOW, Operator::AND);
    EXPECT_EQ(unknown->getType(), AttributeType::DEFAULT);
    EXPECT_EQ(unknown->getLoadType(), AttributeLoadType::UNDEFINED);
}

TEST_F(InstructionCatalogue, ACopySharesTheInstructions)
{
    StateAttributeManager attributes(nullptr);
    attributes.giveStateAttribute(StateAttributeToken::G1, ActionTypeId::NONE)
        ->setType(AttributeType::PERMANENT);
    const StateInstructionManager empty(nullptr);
    StateInstructionManager source(&attributes);
    source.giveStateInstruction(InstructionType::RARE, inBuildings);

    StateInstructionManager copy(source);
    catalogue_ = source;
    for (StateInstructionManager* shared : {&copy, &catalogue_}) {
        EXPECT_EQ(shared->getStateInstructions(inBuildings),
                  source.getStateInstructions(inBuildings));
        StateInstruction* made = shared->giveStateInstruction(InstructionType::CREEP, onBridges);
        EXPECT_EQ(
            shared->stateInstructionGiveAttribute(made, StateAttributeToken::G1, Operator::AND)
                ->getType(),
            AttributeType::PERMANENT)
            << "the attribute catalogue is copied too";
        EXPECT_TRUE(shared->deleteStateInstruction(InstructionType::CREEP, onBridges));
        *shared = empty; // deletes nothing, so the source alone does
    }
    EXPECT_EQ(contents(source), "EC-BUILDING RARE: \n");
}

TEST_F(InstructionCatalogue, KillingTheInstructionsKeepsTheirPlaces)
{
    catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings);
    catalogue_.killStateInstructions();
    EXPECT_EQ(catalogue_.getStateInstructions(inBuildings).size(), 1U);
    catalogue_ = StateInstructionManager(nullptr); // the pointers are void
}

TEST_F(InstructionCatalogue, ReadsTheSettingsFileWhenItIsMade)
{
    const support::TemporaryDirectory directory;
    const std::string document = R"(<SMOD><STATEINSTRUCTIONS>
        <STATEINSTRUCTION TYPE="RARE" TEMPLATE="EC-BUILDING"/></STATEINSTRUCTIONS></SMOD>)";
    context_->setAlternativeDBPath(directory.write("rules.xml", document));
    EXPECT_EQ(contents(StateInstructionManager(nullptr)), "EC-BUILDING RARE: \n");

    // Never deciphered.
    context_->setAlternativeDBPath(directory.write("rules.enc", support::enciphered(document)));
    EXPECT_EQ(contents(StateInstructionManager(nullptr)), "");

    context_->setAlternativeDBPath("");
    zelsuite::setInstallationDirectory(directory.path().string());
    EXPECT_EQ(contents(StateInstructionManager(nullptr)), "");
    std::filesystem::create_directory(directory.path() / "Profiles");
    directory.write("Profiles/Standard.xml", document);
    EXPECT_EQ(contents(StateInstructionManager(nullptr)), "EC-BUILDING RARE: \n");
}
