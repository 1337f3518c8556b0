// The shipped files as a whole: that the factors keep the order that the limit states ask for, that
// the three files fit each other, and that under all settings there are combinations to superpose.
// What is an exception is listed here with its reason.

#include <gtest/gtest.h>

#include <fstream>
#include <functional>
#include <iterator>
#include <limits>
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

void forEachElement(const ZelXmlData* element,
                    const std::function<void(const ZelXmlData*, const std::string& path)>& visit,
                    const std::string& above = "")
{
    const std::string name = ZelXmlData::getAttributeString(element, "NAME");
    const std::string path =
        above + "/" + ZelXmlData::getName(element) + (name.empty() ? "" : "[" + name + "]");
    visit(element, path);
    for (const ZelXmlData* child = ZelXmlData::getFirstChild(element); child;
         child = ZelXmlData::getNextSibling(child))
        forEachElement(child, visit, path);
}

} // namespace

TEST_F(ShippedFiles, HoldNumbersWhereNumbersAreRead)
{
    int numbers = 0;
    for (const std::string& file :
         {support::actionTypeFile, support::stateAttributeFile, support::settingsFile}) {
        std::ifstream stream(file, std::ios::binary);
        ZelXmlTree tree;
        ASSERT_TRUE(tree.buildOfStream(stream)) << file;
        forEachElement(tree.getRoot(), [&](const ZelXmlData* element, const std::string& path) {
            // Below an annex everything is a number but the sets of an action type.
            const std::string name = ZelXmlData::getName(element);
            const bool value = (path.find("/ANNEX[") != std::string::npos && name != "ANNEX" &&
                                name != "CLASSIFICATION") ||
                               name == "EXCLGROUP" || name == "SERVICE_CLASS";
            if (!value)
                return;
            ++numbers;
            double number = std::numeric_limits<double>::quiet_NaN();
            ZelXmlDataUtil::readValToChild(element, number);
            EXPECT_EQ(number, number) << file << path << " holds \"" << ZelXmlData::getData(element)
                                      << "\", which reads as no number";
            EXPECT_EQ(ZelXmlData::getFirstChild(element), nullptr) << file << path;
        });
    }
    EXPECT_GT(numbers, 1000);
}

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

TEST_F(ShippedFiles, GiveEverySetUnderEveryCodeThatEurocodeGives)
{
    for (const ActionType* type : actions_.getActionTypes()) {
        SCOPED_TRACE(XMLUtil::get()->getStringToActionType(type->getId()));
        EXPECT_NE(type->getId(), ActionType::Id::NONE) << "a name that is no action type";
        EXPECT_EQ(type, actions_.findActionType(type->getId())) << "it stands twice";
        EXPECT_NE(type->getActionGroupId(), ActionGroup::Type::NONE);
        for (const auto& [kind, bridge, word] : support::structures)
            for (const Mode code : support::codes())
                EXPECT_EQ(type->getFactors(code, kind, bridge) != nullptr,
                          type->getFactors(Mode::EC, kind, bridge) != nullptr)
                    << support::codeWord(code) << " " << word;
    }
    EXPECT_EQ(actions_.getActionTypes().size(), std::size(actionTypeIdWords) - 1) << "all but NONE";
}

TEST_F(ShippedFiles, KeepTheOrderOfFactors)
{
    // SW/2 and its forces never accompany, yet are frequent by themselves (EN 1990 Table A2.3).
    const std::set<std::string> frequentAlone = {"SW2", "BRAKE_SW2", "CENTR_SW2"};
    std::set<std::string> found;
    for (const ActionType* type : actions_.getActionTypes()) {
        const std::string name = XMLUtil::get()->getStringToActionType(type->getId());
        for (const Mode code : support::codes()) {
            for (const Structure& structure : support::structures) {
                const SafetyFactors* set =
                    type->getFactors(code, structure.classification, structure.bridgeType);
                if (!set)
                    continue;
                SCOPED_TRACE(support::codeWord(code) + " " + structure.word + " " + name + ": " +
                             support::text(*set));
                EXPECT_GE(set->getGammaSup(), 1);
                EXPECT_GE(set->getGammaSup(), set->getGammaInf());
                EXPECT_GE(set->getGammaInf(), 0);
                EXPECT_LE(set->getPsi0(), 1);
                EXPECT_GE(set->getPsi2(), 0);
                EXPECT_LE(set->getPsi2(), set->getPsi1());
                if (set->getPsi1() > set->getPsi0()) {
                    found.insert(name);
                    EXPECT_TRUE(frequentAlone.contains(name)) << "psi1 above psi0";
                    EXPECT_EQ(set->getPsi1(), 1);
                    EXPECT_EQ(set->getPsi0(), 0);
                }
                // The infrequent value lies between the frequent and the characteristic one.
                EXPECT_GE(set->getPsi11(), set->getPsi1());
                EXPECT_LE(set->getPsi11(), 1);
                EXPECT_EQ(set->getPsi21(), set->getPsi2());
                EXPECT_EQ(set->getPsi22(), set->getPsi2());
                EXPECT_EQ(set->getCrackRed(), 1);
            }
        }
    }
    EXPECT_EQ(found, frequentAlone) << "an exception that is none any more";
}

TEST_F(ShippedFiles, GiveEveryActiveAttributeAnActionTypeWithFactors)
{
    for (const StateAttribute* attribute : attributes_.getAttributes()) {
        EXPECT_NE(attribute->getToken(), StateAttributeToken::UNDEFINED);
        ASSERT_NE(attribute->getActionType(), nullptr) << support::text(*attribute);
        for (const Settings& settings : allSettings()) {
            settings.apply();
            const bool active =
                attribute->isActive() || StateAttributeValidator::isAttributeActive(attribute);
            EXPECT_TRUE(!active || attribute->getActionType()->isActive())
                << settings.text() << ": " << support::text(*attribute);
        }
    }
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
// that always act and with variable ones (for fatigue: traffic).
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
                traffic += group == ActionGroup::Type::P;
            }
            EXPECT_GT(permanent, 0);
            EXPECT_GT(variable, 0);
            const bool mayBeIdle = !settings.isBridge() || type == InstructionType::QUASI_PERMANENT;
            EXPECT_TRUE(mayBeIdle || traffic > 0);
        }
    }
}
