#pragma once

#include <optional>
#include <span>
#include <string>

#include <zelstandard/actions/ActionType.h>

#include <command/provenance/ActionValues.h>
#include <command/vocabulary/Vocabulary.h>

/// @file
/// What a superposition rule makes of the factors of an action (EN 1990 6.4.3 and 6.5.3).

namespace command
{

/// What part an action has in a combination.
enum class Part { Permanent, Variable, Accidental, Seismic };
Part partOf(Standard::ActionGroupType group);

/// Two factors of an action in a rule: of a permanent one where it is unfavourable and where it is
/// favourable; of a variable one where it leads and where it accompanies. Empty formula: it does
/// not act there.
struct RuleFactor {
    std::string formula; ///< "gamma_sup psi0"
    double value = 0;
    std::string marks; ///< of the sources of its factors, each once
};
struct RuleFactors {
    RuleFactor first;
    RuleFactor second;
};

/// A rule by the factors that it gives to each role. Permanent actions take their gamma, or 1.
struct CombinationRule {
    Standard::InstructionType type;
    const char* equation;
    bool hasGamma;
    bool leads;                         ///< one variable action leads
    std::optional<Factor> leading;      ///< of the leading action; none: 1
    std::optional<Factor> accompanying; ///< of the others
    std::optional<Standard::ActionGroupType> event;
};

/// The rules that have factors; the others (fatigue, lists for programs) have none.
std::span<const CombinationRule> combinationRules();
/// As the code has it; nothing for a rule without factors.
std::optional<CombinationRule> combinationRule(Standard::InstructionType type, Mode code);

/// @param origins where the set's values come from, for the marks
RuleFactors ruleFactors(const CombinationRule& rule, Part part, const SafetyFactors& set,
                        const FactorSet& origins);

} // namespace command
