#pragma once

#include <zelstandard/vocabulary/Enumerations.h>
#include <zelstandard/vocabulary/detail/Words.h>

namespace Standard
{

/// The child elements that stand for the members of a validity set, in the order of writing. A
/// member without an element cannot be stored: SIA, BS, DIN-EN, DIN-1988 and FOOTBRIDGE2.
template <class Value> struct SetElement {
    Value value;
    const char* name;
};

constexpr SetElement<Mode> elementOf(Mode code)
{
    return {code, Words<designCodes, 0>::text(code)};
}

constexpr SetElement<BridgeType> elementOf(BridgeType type)
{
    return {type, Words<bridgeTypeWords, 0>::text(type)};
}

inline constexpr SetElement<Mode> standardElements[] = {
    {Mode::DIN_2008, "DIN_2008"}, // unlike the code's word, with an underscore: this is wanted
    elementOf(Mode::EC),
    elementOf(Mode::OENORM),
    elementOf(Mode::CSN),
};

inline constexpr SetElement<BridgeType> bridgeTypeElements[] = {
    elementOf(BridgeType::RAILWAY1),    elementOf(BridgeType::RAILWAY2),
    elementOf(BridgeType::RAILWAY3),    elementOf(BridgeType::ROADWAY),
    elementOf(BridgeType::FOOTBRIDGE1),
};

inline constexpr const char* standardElement = "STANDARD";

} // namespace Standard
