#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <iterator>

#include <zelstandard/actions/SafetyFactors.h>

namespace Standard
{

/// The nine factors in the order of their declaration, as the code sees them that treats all alike.
struct FactorAccess {
    static double* of(SafetyFactors& factors) { return factors.factors_; }
    static const double* of(const SafetyFactors& factors) { return factors.factors_; }
};

/// The element of one factor in an action type document.
struct FactorElement {
    const char* name;
    const char* format; ///< as it is written
};

/// In the order of the factors, which is that of writing. CrackRed is really spelled like this.
inline constexpr FactorElement factorElements[] = {
    {"GAMMA_SUP", "%.2f"},
    {"GAMMA_INF", "%.2f"},
    {"PSI0",      "%.2f"},
    {"PSI1",      "%.2f"},
    {"PSI2",      "%.2f"},
    {"PSI11",     "%.2f"},
    {"PSI21",     "%.2f"},
    {"PSI22",     "%.2f"},
    {"CrackRed",  "%.3f"},
};
inline constexpr std::size_t factorCount = std::size(factorElements);

inline constexpr auto factorNames = [] {
    std::array<const char*, factorCount> names{};
    std::ranges::transform(factorElements, names.begin(), &FactorElement::name);
    return names;
}();

/// The name of the elements that give values to other sets.
inline constexpr const char* defaultSetName = "DEFAULT";

} // namespace Standard
