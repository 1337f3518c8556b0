#pragma once

#include <cstddef>
#include <vector>

/// @file
/// The combinations of a rule, by the roles of the actions in them: which of them leads, which
/// stand together, which take part at all. Which factor a role means, the rule says.

namespace command
{

/// How an action chooses its factor.
enum class Choice {
    Together, ///< permanent: sup or inf, as all others of this kind
    Own,      ///< permanent: sup or inf, by itself
    Variable, ///< acts where it is unfavourable, else not
    Event,    ///< the accidental or seismic action of a combination of that name
};

/// One column.
struct Participant {
    Choice choice = Choice::Variable;
    int action = 0;    ///< parts of one action lead together
    int exclusion = 0; ///< parts of one exclusion group never stand together; 0: none
    int group = 0;     ///< parts of one combination group lead together; 0: none
};

enum class Role {
    Absent, ///< another one of its exclusion group stands in its place
    Permanent,
    Leading,
    Accompanying,
    Event,
};

struct Combination {
    std::vector<Role> roles;          ///< of each part
    std::vector<std::size_t> leaders; ///< the parts that lead; empty where none does
    bool isSup = true;                ///< of the parts that choose together
};

/// Every combination: each choice out of the exclusion groups, each leader, sup and inf. The first
/// parts lead first.
/// @param leads whether one of the variable actions leads
std::vector<Combination> combinationsOf(const std::vector<Participant>& parts, bool leads);

} // namespace command
