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

// clang-format off
constexpr CombinationRule rules[] = {
    {InstructionType::FUNDAMENTAL,         "EN 1990, 6.10",  true,  true,  {},            Factor::Psi0, {}                },
    {InstructionType::ACCIDENTAL,          "EN 1990, 6.11b", false, true,  Factor::Psi1,  Factor::Psi2, ActionGroupType::A},
    {InstructionType::EARTHQUAKE,          "EN 1990, 6.12b", false, false, {},            Factor::Psi2, ActionGroupType::E},
    {InstructionType::EARTHQUAKE_RESPONSE, "EN 1990, 6.12b", false, false, {},            Factor::Psi2, ActionGroupType::E},
    {InstructionType::CHARACTERISTIC,      "EN 1990, 6.14b", false, true,  {},            Factor::Psi0, {}                },
    {InstructionType::RARE,                "EN 1990, 6.14b", false, true,  {},            Factor::Psi0, {}                },
    {InstructionType::INFREQUENT,          "EN 1990, A2.1b", false, true,  Factor::Psi11, Factor::Psi1, {}                },
    {InstructionType::FREQUENT,            "EN 1990, 6.15b", false, true,  Factor::Psi1,  Factor::Psi2, {}                },
    {InstructionType::QUASI_PERMANENT,     "EN 1990, 6.16b", false, false, {},            Factor::Psi2, {}                },
};
// clang-format on

/// @param gamma none: 1
/// @param psi none: 1
RuleFactor product(std::optional<Factor> gamma, std::optional<Factor> psi, const SafetyFactors& set,
                   const FactorSet& origins)
{
    RuleFactor result{"", 1, ""};
    for (const auto factor : {gamma, psi}) {
        if (!factor)
            continue;
        const FactorRow& row = *std::ranges::find(factors, *factor, &FactorRow::value);
        result.formula += (result.formula.empty() ? "" : " ") + std::string(row.key);
        result.value *= (set.*row.get)();
        const char mark = statusMark(origins[*factor].origin.status);
        if (mark && result.marks.find(mark) == std::string::npos)
            result.marks += mark;
    }
    if (result.formula.empty())
        result.formula = "1";
    // 1.5 times 0.7 is 1.05, and not the nearest number that a computer has.
    result.value = std::round(result.value * 1e9) / 1e9;
    return result;
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

std::span<const CombinationRule> combinationRules() { return rules; }

std::optional<CombinationRule> combinationRule(InstructionType type, Mode code)
{
    const auto* found = std::ranges::find(rules, type, &CombinationRule::type);
    if (found == std::end(rules))
        return {};
    CombinationRule rule = *found;
    if (rule.event == ActionGroupType::A && code == Mode::SIA)
        rule.leading = Factor::Psi2;
    return rule;
}

RuleFactors ruleFactors(const CombinationRule& rule, Part part, const SafetyFactors& set,
                        const FactorSet& origins)
{
    const auto gamma = [&](Factor factor) {
        return rule.hasGamma ? std::optional(factor) : std::nullopt;
    };
    const auto whole = [&](ActionGroupType event) {
        return rule.event == event ? product({}, {}, set, origins) : RuleFactor{};
    };
    switch (part) {
    case Part::Permanent:
        return {product(gamma(Factor::GammaSup), {}, set, origins),
                product(gamma(Factor::GammaInf), {}, set, origins)};
    case Part::Variable:
        return {rule.leads ? product(gamma(Factor::GammaSup), rule.leading, set, origins)
                           : RuleFactor{},
                product(gamma(Factor::GammaSup), rule.accompanying, set, origins)};
    case Part::Accidental:
        return {whole(ActionGroupType::A), {}};
    case Part::Seismic:
        return {whole(ActionGroupType::E), {}};
    }
    return {};
}

} // namespace command
