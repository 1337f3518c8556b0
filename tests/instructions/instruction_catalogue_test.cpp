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

const std::string document = R"(<SMOD><STATEINSTRUCTIONS>
  <STATEINSTRUCTION TYPE="RARE" TEMPLATE="EC-BUILDING">
    <STATEATTRIBUTES><STATEATTRIBUTE NAME="G1" OPERATOR="AND"/></STATEATTRIBUTES>
  </STATEINSTRUCTION>
</STATEINSTRUCTIONS></SMOD>)";

class InstructionCatalogue : public testing::Test
{
protected:
    support::FreshContext context_;
    StateInstructionManager catalogue_{nullptr};
};

} // namespace

TEST_F(InstructionCatalogue, GivesOneInstructionOfATypeInEachTemplate)
{
    EXPECT_EQ(contents(catalogue_), "");
    EXPECT_EQ(StateInstructionManager::NumberOfSuperpositionTemplates, 6U);

    StateInstruction* rare = catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings);
    ASSERT_NE(rare, nullptr);
    EXPECT_TRUE(rare->isType(InstructionType::RARE));
    EXPECT_FALSE(rare->isDeletable());
    rare->setDeletable(true);
    EXPECT_EQ(catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings), rare);
    EXPECT_TRUE(rare->isDeletable());
    EXPECT_NE(catalogue_.giveStateInstruction(InstructionType::RARE, onBridges), rare);
    catalogue_.giveStateInstruction(InstructionType::CREEP, inBuildings);
    catalogue_.giveStateInstruction(InstructionType::NONE, inBuildings);
    EXPECT_EQ(contents(catalogue_), "EC-BUILDING RARE: \n"
                                    "EC-BUILDING CREEP: \n"
                                    "EC-BUILDING NONE: \n"
                                    "EC-BRIDGE RARE: \n");
    EXPECT_EQ(catalogue_.findStateInstruction(InstructionType::RARE, inBuildings), rare);
    EXPECT_EQ(catalogue_.findStateInstruction(InstructionType::CREEP, onBridges), nullptr);
}

TEST_F(InstructionCatalogue, DeletesTheFirstInstructionOfATypeDeletableOrNot)
{
    catalogue_.giveStateInstruction(InstructionType::CREEP, inBuildings);
    StateInstruction* first = catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings);
    StateInstruction* second =
        catalogue_.giveStateInstruction(InstructionType::FREQUENT, inBuildings);
    second->setType(InstructionType::RARE);
    catalogue_.giveStateInstruction(InstructionType::RARE, onBridges);
    catalogue_.stateInstructionGiveAttribute(first, StateAttributeToken::G1, Operator::AND);

    EXPECT_TRUE(catalogue_.deleteStateInstruction(InstructionType::RARE, inBuildings));
    EXPECT_EQ(catalogue_.findStateInstruction(InstructionType::RARE, inBuildings), second);
    second->setDeletable(true);
    EXPECT_TRUE(catalogue_.deleteStateInstruction(InstructionType::RARE, inBuildings));
    EXPECT_FALSE(catalogue_.deleteStateInstruction(InstructionType::RARE, inBuildings));
    EXPECT_EQ(contents(catalogue_), "EC-BUILDING CREEP: \n"
                                    "EC-BRIDGE RARE: \n");
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
    EXPECT_EQ(contents(catalogue_), "");
}

TEST_F(InstructionCatalogue, GivesItsListsAsCopies)
{
    catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings);
    auto list = catalogue_.getStateInstructions(inBuildings);
    list.clear();
    EXPECT_EQ(catalogue_.getStateInstructions(inBuildings).size(), 1U);
}

TEST_F(InstructionCatalogue, TheFirstMentionOfATokenDecidesItsOperator)
{
    StateInstruction* rare = catalogue_.giveStateInstruction(InstructionType::RARE, inBuildings);
    StateAttributeBase* snow =
        catalogue_.stateInstructionGiveAttribute(rare, StateAttributeToken::SNOW, Operator::OR);
    EXPECT_EQ(
        catalogue_.stateInstructionGiveAttribute(rare, StateAttributeToken::SNOW, Operator::AND),
        snow);
    EXPECT_EQ(contents(*rare), "SNOW OR");
    EXPECT_EQ(snow->getType(), AttributeType::DEFAULT);
    EXPECT_EQ(snow->getLoadType(), AttributeLoadType::UNDEFINED);
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

    const StateAttributeBase* made =
        catalogue.stateInstructionGiveAttribute(rare, StateAttributeToken::EXCL1, Operator::AND);
    EXPECT_NE(made, known);
    EXPECT_EQ(made->getType(), AttributeType::VARIABLE);
    EXPECT_EQ(made->getLoadType(), AttributeLoadType::VEHICLE);
    EXPECT_EQ(made->getOperator(), Operator::AND) << "the operator is that of the rule";

    const StateAttributeBase* unknown =
        catalogue.stateInstructionGiveAttribute(rare, StateAttributeToken::SNOW, Operator::AND);
    EXPECT_EQ(unknown->getType(), AttributeType::DEFAULT);
    EXPECT_EQ(unknown->getLoadType(), AttributeLoadType::UNDEFINED);

    known->setType(AttributeType::WIND);
    catalogue.stateInstructionGiveAttribute(rare, StateAttributeToken::EXCL1, Operator::AND);
    EXPECT_EQ(made->getType(), AttributeType::VARIABLE) << "one that exists stays as it is";
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
    EXPECT_EQ(copy.getStateInstructions(inBuildings), source.getStateInstructions(inBuildings));
    catalogue_ = source;
    EXPECT_EQ(catalogue_.getStateInstructions(inBuildings),
              source.getStateInstructions(inBuildings));
    for (StateInstructionManager* shared : {&copy, &catalogue_}) {
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
    catalogue_.giveStateInstruction(InstructionType::RARE, onBridges);
    catalogue_.killStateInstructions();
    EXPECT_EQ(catalogue_.getStateInstructions(inBuildings).size(), 1U);
    EXPECT_EQ(catalogue_.getStateInstructions(onBridges).size(), 1U);
    catalogue_ = StateInstructionManager(nullptr); // the pointers are void
}

TEST_F(InstructionCatalogue, ReadsTheSettingsFileWhenItIsMade)
{
    const support::TemporaryDirectory directory;
    const std::string rules = "EC-BUILDING RARE: G1 AND\n";

    context_->setAlternativeDBPath(directory.write("rules.xml", document));
    EXPECT_EQ(contents(StateInstructionManager(nullptr)), rules);
    EXPECT_EQ(contents(catalogue_), "") << "made before";

    // Never deciphered.
    context_->setAlternativeDBPath(directory.write("rules.age", support::enciphered(document)));
    EXPECT_EQ(contents(StateInstructionManager(nullptr)), "");

    context_->setAlternativeDBPath("");
    zelsuite::setInstallationDirectory(directory.path().string());
    EXPECT_EQ(contents(StateInstructionManager(nullptr)), "");
    std::filesystem::create_directory(directory.path() / "Profiles");
    directory.write("Profiles/Standard.xml", document);
    EXPECT_EQ(contents(StateInstructionManager(nullptr)), rules);
}
