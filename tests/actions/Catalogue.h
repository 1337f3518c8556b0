#pragma once

#include <charconv>
#include <sstream>
#include <string>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/vocabulary/XMLUtil.h>

/// @file
/// Catalogues of action types from documents, and as text to compare.

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
    {"gamma sup",       &Standard::SafetyFactors::getGammaSup, &Standard::SafetyFactors::setGammaSup},
    {"gamma inf",       &Standard::SafetyFactors::getGammaInf, &Standard::SafetyFactors::setGammaInf},
    {"psi0",            &Standard::SafetyFactors::getPsi0,     &Standard::SafetyFactors::setPsi0    },
    {"psi1",            &Standard::SafetyFactors::getPsi1,     &Standard::SafetyFactors::setPsi1    },
    {"psi2",            &Standard::SafetyFactors::getPsi2,     &Standard::SafetyFactors::setPsi2    },
    {"psi11",           &Standard::SafetyFactors::getPsi11,    &Standard::SafetyFactors::setPsi11   },
    {"psi21",           &Standard::SafetyFactors::getPsi21,    &Standard::SafetyFactors::setPsi21   },
    {"psi22",           &Standard::SafetyFactors::getPsi22,    &Standard::SafetyFactors::setPsi22   },
    {"crack reduction", &Standard::SafetyFactors::getCrackRed,
     &Standard::SafetyFactors::setCrackRed                                                          },
};

/// A set with nine different values, each of which a file can hold.
inline Standard::SafetyFactors distinctFactors(double first)
{
    Standard::SafetyFactors factors;
    for (const FactorField& field : factorFields)
        (factors.*field.set)(first++ / 100.0);
    return factors;
}

/// The nine factors, each in the shortest text that reads back equal: "1.35 1 0.7 0.5 0.2 0 0 0 1".
inline std::string text(const Standard::SafetyFactors& factors)
{
    std::string result;
    for (const FactorField& field : factorFields) {
        char number[32];
        const auto end = std::to_chars(number, number + sizeof number, (factors.*field.get)()).ptr;
        result += (result.empty() ? "" : " ") + std::string(number, end);
    }
    return result;
}

/// All sets of a type, a line each: "EC BUILDING 1.35 1 0.7 0.5 0.2 0 0 0 1". A bridge type without
/// a word is its number.
inline std::string sets(const Standard::ActionType& type)
{
    using namespace Standard;
    std::string result;
    for (int mode = 0; mode <= 8; ++mode) {
        const std::string code = XMLUtil::get()->getStringToMode(Mode{mode});
        if (const SafetyFactors* set =
                type.getFactors(Mode{mode}, Classification::BUILDING, BridgeType::ROADWAY))
            result += code + " BUILDING " + text(*set) + "\n";
        for (int bridge = 0; bridge <= 6; ++bridge) {
            const std::string word = XMLUtil::get()->getStringToBridgeType(BridgeType{bridge});
            if (const SafetyFactors* set =
                    type.getFactors(Mode{mode}, Classification::BRIDGE, BridgeType{bridge}))
                result += code + " " + (word == "-" ? std::to_string(bridge) : word) + " " +
                          text(*set) + "\n";
        }
    }
    return result;
}

/// All types: "SNOW, group SNOW, MEDIUMTERM" and their sets.
inline std::string contents(const Standard::ActionTypeManager& catalogue)
{
    using Standard::XMLUtil;
    std::string result;
    for (const Standard::ActionType* type : catalogue.getActionTypes())
        result += XMLUtil::get()->getStringToActionType(type->getId()) + ", group " +
                  XMLUtil::get()->getStringToActionGroup(type->getActionGroupId()) + ", " +
                  XMLUtil::get()->getStringToLoadDuration(type->getLoadDurationClass()) + "\n" +
                  sets(*type);
    return result;
}

inline Standard::ActionTypeManager emptyCatalogue()
{
    return Standard::ActionTypeManager(ZelXmlTree());
}

inline Standard::ActionTypeManager readCatalogue(const std::string& document)
{
    std::istringstream stream(document);
    ZelXmlTree tree;
    tree.buildOfStream(stream);
    return Standard::ActionTypeManager(tree);
}

inline std::string written(Standard::ActionTypeManager& catalogue)
{
    std::ostringstream stream;
    catalogue.output(stream);
    return stream.str();
}

} // namespace support
