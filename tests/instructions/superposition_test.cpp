// The superposition rules that the library ships with, for an engineer to read.

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/instructions/StateInstructionManager.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include "support/Context.h"
#include "support/Files.h"
#include "support/Golden.h"

using namespace Standard;

namespace
{

class ShippedRules : public testing::Test
{
protected:
    ShippedRules()
    {
        attributes_.init(support::sourceFile("data/StateAttributes.xml").string());
        context_->setAlternativeDBPath(support::sourceFile("data/Profiles/Standard.xml").string());
    }

    support::FreshContext context_;
    ActionTypeManager actions_{support::sourceFile("data/ActionTypes.xml").string()};
    StateAttributeManager attributes_{&actions_};
};

/// Words wrapped at the width of the page, the first line behind its heading.
std::string wrapped(const std::string& heading, const std::vector<std::string>& words)
{
    constexpr std::size_t indentation = 16;
    constexpr std::size_t width = 100;
    std::string line = "    " + heading;
    line.resize(std::max(line.size(), indentation - 1), ' ');
    std::string text;
    for (const std::string& word : words) {
        if (line.size() + 1 + word.size() > width) {
            text += line + "\n";
            line.assign(indentation - 1, ' ');
        }
        line += " " + word;
    }
    return text + line + "\n";
}

/// The tokens by operator.
std::string rulesOf(const StateInstruction& instruction)
{
    std::string text;
    for (int value = -1; value <= 4; ++value) {
        std::vector<std::string> tokens;
        for (const StateAttributeBase* attribute : instruction.getAttributes())
            if (attribute->getOperator() == Operator{value})
                tokens.push_back(XMLUtil::get()->getStringToStateAttrToken(attribute->getToken()));
        if (!tokens.empty())
            text += wrapped(XMLUtil::get()->getStringToOperator(Operator{value}), tokens);
    }
    return text;
}

} // namespace

TEST_F(ShippedRules, AreAsTheyWereReviewed)
{
    const StateInstructionManager catalogue(&attributes_);
    std::ostringstream table;
    table << "The superposition rules of data/Profiles/Standard.xml. Instructions of a template "
             "with the\nsame attributes stand together; a line holds the tokens of one operator "
             "in their order.\n";
    for (int id = 0; id <= 5; ++id) {
        table << "\n" << XMLUtil::get()->getStringToSupTemplate(SuperpositionTemplate{id}) << "\n";
        std::map<std::string, std::vector<std::string>> namesOf;
        std::vector<std::string> order;
        for (const StateInstruction* instruction :
             catalogue.getStateInstructions(SuperpositionTemplate{id})) {
            const std::string rules = rulesOf(*instruction);
            auto& names = namesOf[rules];
            if (names.empty())
                order.push_back(rules);
            names.push_back("  " + XMLUtil::get()->getStringToInstruction(instruction->getType()) +
                            " (" + instruction->getName() + ")");
        }
        for (const std::string& rules : order) {
            table << "\n";
            for (const std::string& name : namesOf[rules])
                table << name << "\n";
            table << rules;
        }
    }
    support::expectGolden("superposition.txt", table.str());
}
