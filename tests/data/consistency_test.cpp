// The shipped files as a whole: that the three fit each other, and that under all settings there
// are combinations to superpose. The values themselves are check_values.py's.

#include <gtest/gtest.h>

#include <iterator>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include <zelstandard/attributes/StateAttributeValidator.h>
#include <zelstandard/instructions/StateInstructionManager.h>

#include "actions/Catalogue.h"
#include "attributes/Attributes.h"
#include "data/Shipped.h"
#include "support/Context.h"

using namespace Standard;
using support::Structure;

namespace
{

class ShippedFiles : public testing::Test
{
protected:
    ShippedFiles()
    {
        attributes_.init(support::stateAttributeFile);
        context_->setAlternativeDBPath(support::settingsFile);
    }

    support::FreshContext context_;
    ActionTypeManager actions_{support::actionTypeFile};
    StateAttributeManager attributes_{&actions_};
};

std::string text(const StateAttributeManager& catalogue)
{
    std::string result;
    for (const StateAttribute* attribute : catalogue.getAttributes())
        result += support::text(*attribute) + "\n";
    return result;
}

/// The lines of a text without those that begin so.
std::string without(const std::string& beginning, const std::string& text)
{
    std::istringstream lines(text);
    std::string result;
    for (std::string line; std::getline(lines, line);)
        if (!line.starts_with(beginning))
            result += line + "\n";
    return result;
}

/// One combination of settings; the others (design situation, building type, ductility) have no
/// part in factors, activity or templates.
struct Settings {
    Mode code;
    Structure structure;
    DesignMaterial material;

    void apply() const
    {
        ZelStandard::get()->setMode(code);
        ZelStandard::get()->setClassification(structure.classification);
        ZelStandard::get()->setBridgeType(structure.bridgeType);
        ZelStandard::get()->setDesignMaterial(material);
    }
    [[nodiscard]] bool isBridge() const
    {
        return structure.classification == Classification::BRIDGE;
    }
    [[nodiscard]] std::string text() const
    {
        return support::codeWord(code) + " " + structure.word + " " +
               XMLUtil::get()->getStringToDgnMaterial(material);
    }
};

/// FOOTBRIDGE2 is not among them: no file has a word for it, so there are no factors for it, and
/// their fallbacks apply.
std::vector<Settings> allSettings()
{
    std::vector<Settings> result;
    for (const Mode code : support::codes())
        for (const Structure& structure : support::structures)
            for (const auto& material : designMaterialWords)
                result.push_back({code, structure, material.value});
    return result;
}

} // namespace

// Written, read and enciphered. The writer of action types leaves out the annex SIA.
TEST_F(ShippedFiles, SurviveSavingButForTheSwissAnnexAndEnciphering)
{
    ActionTypeManager saved = support::readCatalogue(support::written(actions_));
    EXPECT_EQ(support::contents(saved), without("SIA ", support::contents(actions_)));

    const support::TemporaryDirectory folder;
    const auto enciphered = [&](const std::string& file) {
        return folder.write("enciphered", support::enciphered(support::readFile(file)));
    };
    ActionTypeManager actions(enciphered(support::actionTypeFile));
    EXPECT_EQ(support::contents(actions), support::contents(actions_));
    attributes_.output(folder.file("attributes.xml"));
    for (const std::string& file :
         {folder.file("attributes.xml"), enciphered(support::stateAttributeFile)}) {
        StateAttributeManager attributes(&actions_);
        attributes.init(file);
        EXPECT_FALSE(attributes.getAttributes().empty());
        EXPECT_EQ(text(attributes), text(attributes_));
    }
}

TEST_F(ShippedFiles, HoldEveryActionTypeOnceWithAGroup)
{
    for (const ActionType* type : actions_.getActionTypes()) {
        SCOPED_TRACE(XMLUtil::get()->getStringToActionType(type->getId()));
        EXPECT_NE(type->getId(), ActionType::Id::NONE) << "a name that is no action type";
        EXPECT_EQ(type, actions_.findActionType(type->getId())) << "it stands twice";
        EXPECT_NE(type->getActionGroupId(), ActionGroup::Type::NONE);
    }
    EXPECT_EQ(actions_.getActionTypes().size(), std::size(actionTypeIdWords) - 1) << "all but NONE";
}

// Cyclic loads and complete combinations enter whole, so all their factors are 1.
TEST_F(ShippedFiles, GiveEveryActiveAttributeAnActionTypeWithFactors)
{
    int whole = 0;
    for (const StateAttribute* attribute : attributes_.getAttributes()) {
        EXPECT_NE(attribute->getToken(), StateAttributeToken::UNDEFINED);
        ASSERT_NE(attribute->getActionType(), nullptr) << support::text(*attribute);
        for (const Settings& settings : allSettings()) {
            settings.apply();
            if (!attribute->isActive() && !StateAttributeValidator::isAttributeActive(attribute))
                continue;
            const SafetyFactors* set = attribute->getActionType()->getFactors(
                settings.code, settings.structure.classification, settings.structure.bridgeType);
            ASSERT_NE(set, nullptr) << settings.text() << ": " << support::text(*attribute);
            const std::string name =
                XMLUtil::get()->getStringToStateAttrToken(attribute->getToken());
            if (name == "FATIGUE" || name == "TOTAL" || name.starts_with("ELM4_")) {
                ++whole;
                EXPECT_EQ(support::text(*set), "1 1 1 1 1 1 1 1 1") << settings.text() << name;
            }
        }
    }
    EXPECT_GT(whole, 1000);
}

// An instruction that names a block before its definition adds nothing.
TEST_F(ShippedFiles, DefineBlocksBeforeTheyAreUsed)
{
    std::istringstream file(support::readFile(support::settingsFile));
    std::set<std::string> defined;
    std::set<std::string> used;
    for (std::string word, before; file >> word; before = word) {
        if (before == "<BLOCK") { // NAME="snow">
            defined.insert(word.substr(6, word.find('"', 6) - 6));
        } else if (word.starts_with('<') && word.ends_with("/>")) {
            const std::string block = word.substr(1, word.size() - 3);
            used.insert(block);
            EXPECT_TRUE(defined.contains(block)) << block;
        }
    }
    EXPECT_EQ(used, defined) << "a block that nothing uses";
}

// Under all settings an engineer gets at least the fundamental, the characteristic and the
// quasi-permanent combination, and on a bridge the one for fatigue, each with permanent actions
// that always act and with variable ones (for fatigue: the cyclic load).
TEST_F(ShippedFiles, GiveCombinationsUnderAllSettings)
{
    const StateInstructionManager rules(&attributes_);
    for (const Settings& settings : allSettings()) {
        settings.apply();
        const SuperpositionTemplate inForce = rules.getCurrentTemplateID();
        std::vector<InstructionType> wanted = {InstructionType::FUNDAMENTAL,
                                               InstructionType::CHARACTERISTIC,
                                               InstructionType::QUASI_PERMANENT};
        if (settings.isBridge())
            wanted.push_back(InstructionType::FATIGUE);
        for (const InstructionType type : wanted) {
            SCOPED_TRACE(settings.text() + " " + XMLUtil::get()->getStringToInstruction(type));
            const StateInstruction* instruction = rules.findStateInstruction(type, inForce);
            ASSERT_NE(instruction, nullptr);
            int permanent = 0;
            int variable = 0;
            int traffic = 0;
            for (const StateAttributeBase* part : instruction->getAttributes()) {
                const StateAttribute* attribute =
                    attributes_.findStateAttributeToToken(part->getToken());
                ASSERT_NE(attribute, nullptr) << part->getName();
                if (!attribute->isActive())
                    continue;
                const auto group = attribute->getActionGroup()->getId();
                permanent += group == ActionGroup::Type::G && part->getOperator() == Operator::AND;
                variable += group != ActionGroup::Type::G && group != ActionGroup::Type::V;
                traffic +=
                    group == ActionGroup::Type::P || attribute->isType(AttributeType::FATIGUE);
            }
            EXPECT_GT(permanent, 0);
            EXPECT_GT(variable, 0);
            const bool mayBeIdle = !settings.isBridge() || type == InstructionType::QUASI_PERMANENT;
            EXPECT_TRUE(mayBeIdle || traffic > 0);
        }
    }
}
