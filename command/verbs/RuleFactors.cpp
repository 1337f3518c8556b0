#include <command/verbs/RuleFactors.h>

#include <algorithm>
#include <cmath>
#include <utility>

namespace command
{

using Standard::ActionGroupType;
using Standard::InstructionType;

namespace
{

/// Of a rule: what multiplies an action, each as the factors that are multiplied, "" for 1 and "-"
/// for an action that does not act.
struct RuleRow {
    InstructionType rule;
    const char* unfavourable;
    const char* favourable;
    const char* leading;
    const char* accompanying;
};

constexpr RuleRow rules[] = {
    {InstructionType::FUNDAMENTAL,     "gamma_sup", "gamma_inf", "gamma_sup", "gamma_sup psi0"},
    {InstructionType::ACCIDENTAL,      "",          "",          "psi1",      "psi2"          },
    {InstructionType::EARTHQUAKE,      "",          "",          "-",         "psi2"          },
    {InstructionType::CHARACTERISTIC,  "",          "",          "",          "psi0"          },
    {InstructionType::RARE,            "",          "",          "",          "psi0"          },
    {InstructionType::INFREQUENT,      "",          "",          "psi11",     "psi1"          },
    {InstructionType::FREQUENT,        "",          "",          "psi1",      "psi2"          },
    {InstructionType::QUASI_PERMANENT, "",          "",          "-",         "psi2"          },
};

const RuleRow* rowOfRule(InstructionType rule)
{
    const auto* row = std::ranges::find(rules, rule, &RuleRow::rule);
    return row == std::end(rules) ? nullptr : row;
}

RuleFactor product(std::string formula, const SafetyFactors& set, const FactorSet& origins)
{
    if (formula == "-")
        return {};
    double value = 1;
    std::string marks;
    for (const FactorRow& factor : factors) {
        const std::string words = " " + formula + " ";
        if (words.find(" " + std::string(factor.key) + " ") == std::string::npos)
            continue;
        value *= (set.*factor.get)();
        const char mark = statusMark(origins[factor.value].origin.status);
        if (mark && marks.find(mark) == std::string::npos)
            marks += mark;
    }
    // 1.5 times 0.7 is 1.05, and not the nearest number that a computer has.
    value = std::round(value * 1e9) / 1e9;
    return {formula.empty() ? "1" : std::move(formula), value, marks};
}

} // namespace

Part partOf(ActionGroupType group)
{
    switch (group) {
    case ActionGroupType::G:
    case ActionGroupType::V:
    case ActionGroupType::S:
    case ActionGroupType::Z:
        return Part::Permanent;
    case ActionGroupType::A:
        return Part::Accidental;
    case ActionGroupType::E:
        return Part::Seismic;
    default:
        return Part::Variable;
    }
}

bool hasFactors(InstructionType rule) { return rowOfRule(rule) != nullptr; }

RuleFactors ruleFactors(InstructionType rule, Part part, Mode code, const SafetyFactors& set,
                        const FactorSet& origins)
{
    const RuleRow* row = rowOfRule(rule);
    if (!row)
        return {};
    switch (part) {
    case Part::Permanent:
        return {product(row->unfavourable, set, origins), product(row->favourable, set, origins)};
    case Part::Variable: {
        const bool isSwiss = rule == InstructionType::ACCIDENTAL && code == Mode::SIA;
        return {product(isSwiss ? "psi2" : row->leading, set, origins),
                product(row->accompanying, set, origins)};
    }
    case Part::Accidental:
        return {product(rule == InstructionType::ACCIDENTAL ? "" : "-", set, origins), {}};
    case Part::Seismic:
        return {product(rule == InstructionType::EARTHQUAKE ? "" : "-", set, origins), {}};
    }
    return {};
}

} // namespace command
