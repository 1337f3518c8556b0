#pragma once

#include <zelstandard/vocabulary/Enumerations.h>

namespace Standard
{

/// The child elements that stand for the members of a validity set, in the order of writing. A
/// member without an element cannot be stored: SIA, BS, DIN-EN, DIN-1988 and FOOTBRIDGE2.
template <class Value> struct SetElement {
    const char* name;
    Value value;
};

/// DIN_2008 is spelled with an underscore here, unlike the code's word; this is wanted.
inline constexpr SetElement<Mode> standardElements[] = {
    {"DIN_2008", Mode::DIN_2008},
    {"EC",       Mode::EC      },
    {"OENORM",   Mode::OENORM  },
    {"CSN",      Mode::CSN     }
};

inline constexpr SetElement<BridgeType> bridgeTypeElements[] = {
    {"RAILWAY1",    BridgeType::RAILWAY1   },
    {"RAILWAY2",    BridgeType::RAILWAY2   },
    {"RAILWAY3",    BridgeType::RAILWAY3   },
    {"ROADWAY",     BridgeType::ROADWAY    },
    {"FOOTBRIDGE1", BridgeType::FOOTBRIDGE1},
};

inline constexpr const char* standardElement = "STANDARD";

} // namespace Standard
