#pragma once

#include <string>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include "support/Documents.h"

/// @file
/// Sets of factors as text to compare.

namespace support
{

/// A field of a set of factors.
struct FactorField {
    const char* name;
    double (Standard::SafetyFactors::*get)() const;
    void (Standard::SafetyFactors::*set)(double);
};

/// In the order of their declaration.
inline constexpr FactorField factorFields[] = {
    {"gamma sup", &Standard::SafetyFactors::getGammaSup, &Standard::SafetyFactors::setGammaSup},
    {"gamma inf", &Standard::SafetyFactors::getGammaInf, &Standard::SafetyFactors::setGammaInf},
    {"psi0",      &Standard::SafetyFactors::getPsi0,     &Standard::SafetyFactors::setPsi0    },
    {"psi1",      &Standard::SafetyFactors::getPsi1,     &Standard::SafetyFactors::setPsi1    },
    {"psi2",      &Standard::SafetyFactors::getPsi2,     &Standard::SafetyFactors::setPsi2    },
    {"psi11",     &Standard::SafetyFactors::getPsi11,    &Standard::SafetyFactors::setPsi11   },
    {"psi21",     &Standard::SafetyFactors::getPsi21,    &Standard::SafetyFactors::setPsi21   },
    {"psi22",     &Standard::SafetyFactors::getPsi22,    &Standard::SafetyFactors::setPsi22   },
    {"crack",     &Standard::SafetyFactors::getCrackRed, &Standard::SafetyFactors::setCrackRed},
};

/// The nine factors, each in the shortest text that reads back equal: "1.35 1 0.7 0.5 0.2 0 0 0 1".
inline std::string text(const Standard::SafetyFactors& factors)
{
    std::string result;
    for (const FactorField& field : factorFields)
        append(result, (factors.*field.get)());
    return result;
}

/// All sets of a type, a line each: "EC BUILDING 1.35 1 0.7 0.5 0.2 0 0 0 1". A bridge type without
/// a word is its number.
inline std::string sets(const Standard::ActionType& type)
{
    using namespace Standard;
    std::string result;
    for (int mode = 0; mode <= 8; ++mode)
        for (int bridge = -1; bridge <= 6; ++bridge) {
            const auto kind = bridge < 0 ? Classification::BUILDING : Classification::BRIDGE;
            const SafetyFactors* set = type.getFactors(Mode{mode}, kind, BridgeType{bridge});
            if (!set)
                continue;
            const std::string word = XMLUtil::get()->getStringToBridgeType(BridgeType{bridge});
            result += XMLUtil::get()->getStringToMode(Mode{mode}) + " " +
                      (bridge < 0    ? "BUILDING"
                       : word == "-" ? std::to_string(bridge)
                                     : word) +
                      " " + text(*set) + "\n";
        }
    return result;
}

} // namespace support
