#pragma once

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

/// False for a rule that has no factors of its own (fatigue, lists for programs).
bool hasFactors(Standard::InstructionType rule);
/// @param origins where the set's values come from, for the marks
RuleFactors ruleFactors(Standard::InstructionType rule, Part part, Mode code,
                        const SafetyFactors& set, const FactorSet& origins);

} // namespace command
