// A host with texts of its own: the program takes the place of the suite's text library, and each
// text tells which loader was asked for which id.

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/attributes/StateAttributeBase.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/instructions/StateInstruction.h>
#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/OperatorTexts.h>
#include <zelstandard/vocabulary/SignificantInstant.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <gtest/gtest.h>

#include <sstream>
#include <string>

#include "support/Context.h"
#include "support/Golden.h"

namespace
{

std::string displayText(unsigned int id) { return "display " + std::to_string(id); }

/// What the display texts are; a test may change it, as a host changes its language.
std::string (*display)(unsigned int) = &displayText;

} // namespace

std::string ZelTextResource::loadString(unsigned int id) const
{
    return "string " + std::to_string(id);
}

std::string ZelText::Load(unsigned int id) { return display(id); }

std::string ZelText::LoadReport(unsigned int id) { return "report " + std::to_string(id); }

std::string LSReport(unsigned int id) { return "host's report " + std::to_string(id); }

using namespace Standard;

namespace
{

std::string orEmpty(const std::string& text) { return text.empty() ? "(empty)" : text; }

} // namespace

TEST(TextIds, OfOperatorsCombinationsAndInstants)
{
    std::ostringstream table;
    table << "operator: name, report name\n";
    for (int value = -1; value <= 5; ++value)
        table << value << ": " << getOperatorName(static_cast<Operator>(value)) << ", "
              << getOperatorReportName(static_cast<Operator>(value)) << "\n";
    table << "\ncombination\n";
    for (int value = -1; value <= 9; ++value)
        table << value << ": " << orEmpty(GetCombinationText(static_cast<Combination>(value)))
              << "\n";
    table << "\nsignificant instant\n";
    for (int value = -1; value <= 14; ++value)
        table << value << ": " << GetSignificantInstantName(static_cast<SignificantInstant>(value))
              << "\n";
    support::expectGolden("text_ids_of_words.txt", table.str());

    // An operator is known by its string, not by what is displayed.
    EXPECT_EQ(getOperatorToName("string 4246"), Operator::AND_MINMAX);
    EXPECT_EQ(getOperatorToName("display 4246"), static_cast<Operator>(-1));
}

namespace
{

/// The word, the name and the report name; behind them what the descriptions have beside those.
template <class Named> std::string names(int value, const std::string& word, const Named& named)
{
    const std::string name = named.getName();
    const std::string reportName = named.getReportName();
    std::string line = std::to_string(value) + " " + word + ": " + name + ", " + reportName;
    if (named.getDescription() != name || named.getReportDescription() != reportName)
        line += "; " + named.getDescription() + ", " + named.getReportDescription();
    return line + "\n";
}

} // namespace

TEST(TextIds, OfActionsAndAttributes)
{
    XMLUtil& words = *XMLUtil::get();
    std::string table = "action group: name, text\n";
    for (int value = -1; value <= 12; ++value) {
        const ActionGroup group(ActionGroup::Type{value});
        table += std::to_string(value) + " " + words.getStringToActionGroup(group.getId()) + ": " +
                 group.getName() + ", " + std::to_string(group.getTextID()) + "\n";
    }
    table += "\naction type: name, report name; description, report description\n";
    for (int value = -1; value <= 52; ++value) {
        const ActionType type(ActionType::Id{value});
        table += names(value, words.getStringToActionType(type.getId()), type);
    }
    table += "\ntext of old data: action type\n";
    for (unsigned int text = 0; text <= 9999; ++text)
        if (const auto id = ActionType::getIdByTextId(text); id != ActionType::Id::NONE)
            table += std::to_string(text) + ": " + words.getStringToActionType(id) + "\n";
    table += "\nstate attribute: name, report name; description, report description\n";
    for (int value = -1; value <= 131; ++value) {
        const StateAttributeBase attribute(StateAttributeToken{value});
        table += names(value, words.getStringToStateAttrToken(attribute.getToken()), attribute);
    }
    support::expectGolden("text_ids_of_actions.txt", table);
}

TEST(TextIds, OfTheContext)
{
    const support::FreshContext context;
    std::ostringstream table;
    table << "mode\n";
    for (int mode = -1; mode <= 9; ++mode)
        table << mode << ": " << orEmpty(context->getStandardText(static_cast<Mode>(mode))) << "\n";
    table << "\nclassification, material, mode\n";
    for (const int classification : {1, 2})
        for (int material = -1; material <= 6; ++material)
            for (int mode = -1; mode <= 9; ++mode) {
                const std::string text = context->getStandardDescription(
                    static_cast<Classification>(classification),
                    static_cast<DesignMaterial>(material), static_cast<Mode>(mode));
                if (!text.empty())
                    table << classification << " " << material << " " << mode << ": " << text
                          << "\n";
            }
    table << "\nrequirement class\n";
    for (const Class* requirement : context->getRequirementClasses())
        table << requirement->getNameAndDescription() << "\n";
    table << "\nrequirement\n";
    for (const Class* requirement : context->getRequirements())
        table << requirement->getNameAndDescription() << "\n";
    support::expectGolden("text_ids_of_context.txt", table.str());
}

TEST(TextIds, RequirementsAreFoundByTheirTextInAnyLetterCase)
{
    display = [](unsigned int id) {
        return std::string(id == 7217 ? "PRESTRESS" : id == 7219 ? " prestress" : "concrete");
    };
    const support::FreshContext context;
    // Of those with one text there is one.
    ASSERT_EQ(context->getRequirements().size(), 2u);
    EXPECT_EQ(context->getRequirementClasses().size(), 6u) << "these go by their letters";
    Requirement* const second = context->getRequirements()[1];
    EXPECT_EQ(second->getBridgeRequirement(), Requirement::Type::TYPE_2);
    display = [](unsigned int) { return std::string(" Prestress "); };
    EXPECT_EQ(context->findRequirement(Requirement::Type::TYPE_2), second);
    display = &displayText;
    EXPECT_EQ(context->findRequirement(Requirement::Type::TYPE_2), nullptr);
}

TEST(TextIds, OfInstructions)
{
    std::ostringstream table;
    for (int value = -2; value <= 45; ++value) {
        const StateInstruction instruction(InstructionType{value});
        table << value << " " << XMLUtil::get()->getStringToInstruction(instruction.getType())
              << ": " << instruction.getName() << "\n";
    }
    support::expectGolden("instruction_text_ids.txt", table.str());
}
