#include <memory>

#include <CLI/CLI.hpp>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <command/names/Names.h>
#include <command/verbs/Activity.h>
#include <command/verbs/RuleFactors.h>
#include <command/verbs/Verbs.h>

namespace command
{

namespace
{

using Standard::StateAttribute;
using Standard::StateAttributeBase;
using Standard::XMLUtil;

std::string wordOf(Standard::StateAttributeToken token)
{
    return StateAttributeBase::getPersistenceStringFromToken(token);
}

/// Groups are numbers; 0 means none.
Cell groupCell(int group) { return group == 0 ? Cell("-") : Cell(group, 0); }

/// Of each state attribute, what holds in every rule.
Table attributeTable()
{
    return {
        {{"tag", "tag"},
         {"name", "name", false, true},
         {"action", "action"},
         {"operator", "operator"},
         {"exclusion", "excl"},
         {"combination", "comb"}},
        {}
    };
}

/// @param attribute null for a tag that no attribute has
std::vector<Cell> attributeRow(Standard::StateAttributeToken token, const std::string& operation,
                               const StateAttribute* attribute)
{
    const Standard::ActionType* action = attribute ? attribute->getActionType() : nullptr;
    return {wordOf(token),
            nameOf(token),
            action ? command::wordOf(action->getId()) : "-",
            operation,
            groupCell(attribute ? attribute->getExclGroup() : 0),
            groupCell(attribute ? attribute->getCombGroup() : 0)};
}

Answer answerAttributes(bool all, const Context& context)
{
    Answer answer;
    const auto& attributes = context.data().attributes().getAttributes();
    for (const Mode code : context.codes())
        for (const Structure structure : context.structures()) {
            const InForce inForce(code, structure);
            Section& section = answer.section(
                command::wordOf(code) + ", " + nameOf(structure) + ", design material " +
                XMLUtil::get()->getStringToDgnMaterial(ZelStandard::get()->getDesignMaterial()));
            section.facts = {
                {"code",      command::wordOf(code)     },
                {"structure", command::wordOf(structure)}
            };
            Table table = attributeTable();
            if (all)
                table.columns.push_back({"rejected_by", "rejected by"});
            std::size_t active = 0;
            for (const StateAttribute* attribute : attributes) {
                const std::string reason = inactivityOf(*attribute);
                active += reason.empty() ? 1 : 0;
                if (!reason.empty() && !all)
                    continue;
                auto row = attributeRow(attribute->getToken(),
                                        operatorWord(attribute->getOperator()), attribute);
                if (all)
                    row.emplace_back(reason);
                table.rows.push_back(std::move(row));
            }
            section.lines.push_back(std::to_string(active) + " of " +
                                    std::to_string(attributes.size()) +
                                    " state attributes are active.");
            section.table = std::move(table);
        }
    context.noteSettings(answer);
    if (!all)
        answer.more = "zelstandard attributes --all --code " +
                      command::wordOf(context.codes().front()) + " --for " +
                      lowerWordOf(context.structures().front());
    return answer;
}

void addRuleList(Answer& answer, const Context& context, Mode code, Structure structure)
{
    const Standard::StateInstructionManager& rules = context.data().rules();
    const auto current = rules.getCurrentTemplateID();
    const std::string word = XMLUtil::get()->getStringToSupTemplate(current);
    Section& section = answer.section("Template " + word + " for " + command::wordOf(code) + ", " +
                                      nameOf(structure));
    section.facts = {
        {"code",      command::wordOf(code)     },
        {"structure", command::wordOf(structure)},
        {"template",  word                      }
    };
    section.table.emplace(Table{
        {{"rule", "rule"},      {"name", "name"}, {"active", "active"}, {"attributes", "attributes"}},
        {            }
    });
    for (const Standard::StateInstruction* rule : rules.getStateInstructions(current)) {
        int active = 0;
        for (const StateAttributeBase* entry : rule->getAttributes()) {
            const auto* attribute =
                context.data().attributes().findStateAttributeToToken(entry->getToken());
            active += attribute && attribute->isActive() ? 1 : 0;
        }
        section.table->rows.push_back({XMLUtil::get()->getStringToInstruction(rule->getType()),
                                       nameOf(rule->getType()), Cell(active, 0),
                                       Cell(static_cast<double>(rule->getAttributes().size()), 0)});
    }
}

Cell factorCell(const RuleFactor& factor)
{
    if (factor.formula.empty())
        return "-";
    Cell cell(factor.value);
    cell.marks = factor.marks;
    return cell;
}

void addRule(Answer& answer, const Context& context, Standard::InstructionType type,
             Structure structure, bool all)
{
    const ZelStandard& standard = *ZelStandard::get();
    const Standard::StateInstructionManager& rules = context.data().rules();
    const auto current = rules.getCurrentTemplateID();
    const std::string word = XMLUtil::get()->getStringToInstruction(type);
    const Standard::StateInstruction* rule = rules.findStateInstruction(type, current);
    Section& section =
        answer.section(word + "  " + nameOf(type) + ", template " +
                       XMLUtil::get()->getStringToSupTemplate(current) + ", " +
                       command::wordOf(standard.getMode()) + ", " + nameOf(structure));
    section.facts = {
        {"rule",      word                                           },
        {"code",      command::wordOf(standard.getMode())            },
        {"structure", command::wordOf(structure)                     },
        {"template",  XMLUtil::get()->getStringToSupTemplate(current)}
    };
    if (!rule) {
        section.lines.emplace_back("The template has no such rule.");
        return;
    }
    Table table = attributeTable();
    table.columns.insert(table.columns.end(), {
                                                  {"first",  "sup/lead"},
                                                  {"second", "inf/acc" }
    });
    if (all)
        table.columns.push_back({"rejected_by", "rejected by"});
    const auto factorsOfRule = combinationRule(type, standard.getMode());
    for (const StateAttributeBase* entry : rule->getAttributes()) {
        const StateAttribute* attribute =
            context.data().attributes().findStateAttributeToToken(entry->getToken());
        const std::string reason =
            attribute ? inactivityOf(*attribute) : "the file of attributes: it has no such tag";
        if (!reason.empty() && !all)
            continue;
        RuleFactors applied;
        const Standard::ActionType* action = attribute ? attribute->getActionType() : nullptr;
        const SafetyFactors* set =
            action ? action->getFactors(standard.getMode(), standard.getClassification(),
                                        standard.getBridgeType())
                   : nullptr;
        const ActionValues* values =
            action ? context.data().actionValues().find(action->getId()) : nullptr;
        const FactorSet* origins = values ? values->find(standard.getMode(), structure) : nullptr;
        if (set && origins && factorsOfRule)
            applied =
                ruleFactors(*factorsOfRule, partOf(action->getActionGroupId()), *set, *origins);
        auto row = attributeRow(entry->getToken(), operatorWord(entry->getOperator()), attribute);
        row.insert(row.end(), {factorCell(applied.first), factorCell(applied.second)});
        if (all)
            row.emplace_back(reason);
        table.rows.push_back(std::move(row));
    }
    table.columns[6].hidden = table.columns[7].hidden = !factorsOfRule;
    section.table = std::move(table);
    section.lines.push_back(factorsOfRule
                                ? "sup/lead and inf/acc: a permanent action unfavourable and "
                                  "favourable, a variable one leading and "
                                  "accompanying; - where it does not act."
                                : "The rule has no factors of its own: its actions enter with "
                                  "those that the program gives.");
}

Answer answerRules(const std::string& word, bool all, const Context& context)
{
    Answer answer;
    for (const Mode code : context.codes())
        for (const Structure structure : context.structures()) {
            const InForce inForce(code, structure);
            if (word.empty())
                addRuleList(answer, context, code, structure);
            else
                addRule(answer, context, ruleNamed(word), structure, all);
        }
    context.noteSettings(answer);
    context.noteOffice(answer);
    if (word.empty())
        answer.more = "zelstandard rules fundamental --code " +
                      command::wordOf(context.codes().front()) + " --for " +
                      lowerWordOf(context.structures().front());
    return answer;
}

} // namespace

Question declareAttributes(CLI::App& app)
{
    auto all = std::make_shared<bool>(false);
    app.add_flag("--all", *all, "The inactive ones too, with the rule that rejects them");
    return [all](const Context& context) { return answerAttributes(*all, context); };
}

Question declareRules(CLI::App& app)
{
    auto rule = std::make_shared<std::string>();
    auto all = std::make_shared<bool>(false);
    app.add_option("RULE", *rule, "A rule, else the list of all");
    app.add_flag("--all", *all, "The inactive attributes too, with the rule that rejects them");
    return [rule, all](const Context& context) { return answerRules(*rule, *all, context); };
}

} // namespace command
