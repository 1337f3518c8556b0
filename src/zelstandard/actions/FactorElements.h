#pragma once

#include <zelstandard/actions/SafetyFactors.h>

namespace Standard
{

/// The element of one factor in an action type document.
struct FactorElement {
    const char* name;
    double (SafetyFactors::*get)() const;
    void (SafetyFactors::*set)(double);
    const char* format; ///< as it is written
};

/// In the order of writing. CrackRed is really spelled like this.
inline constexpr FactorElement factorElements[] = {
    {"GAMMA_SUP", &SafetyFactors::getGammaSup, &SafetyFactors::setGammaSup, "%.2f"},
    {"GAMMA_INF", &SafetyFactors::getGammaInf, &SafetyFactors::setGammaInf, "%.2f"},
    {"PSI0",      &SafetyFactors::getPsi0,     &SafetyFactors::setPsi0,     "%.2f"},
    {"PSI1",      &SafetyFactors::getPsi1,     &SafetyFactors::setPsi1,     "%.2f"},
    {"PSI2",      &SafetyFactors::getPsi2,     &SafetyFactors::setPsi2,     "%.2f"},
    {"PSI11",     &SafetyFactors::getPsi11,    &SafetyFactors::setPsi11,    "%.2f"},
    {"PSI21",     &SafetyFactors::getPsi21,    &SafetyFactors::setPsi21,    "%.2f"},
    {"PSI22",     &SafetyFactors::getPsi22,    &SafetyFactors::setPsi22,    "%.2f"},
    {"CrackRed",  &SafetyFactors::getCrackRed, &SafetyFactors::setCrackRed, "%.3f"},
};

/// The name of the elements that give values to other sets.
inline constexpr const char* defaultSetName = "DEFAULT";

} // namespace Standard
