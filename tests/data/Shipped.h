#pragma once

#include <string>
#include <vector>

#include <zelstandard/vocabulary/Enumerations.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include "support/Files.h"

/// @file
/// The files that are shipped, and all the settings that they answer for.

namespace support
{

inline const std::string actionTypeFile = sourceFile("data/ActionTypes.xml").string();
inline const std::string stateAttributeFile = sourceFile("data/StateAttributes.xml").string();
inline const std::string settingsFile = sourceFile("data/Profiles/Standard.xml").string();

/// A kind of structure that has factors of its own.
struct Structure {
    Standard::Classification classification;
    Standard::BridgeType bridgeType; ///< of no meaning for a building
    const char* word;
};

inline constexpr Structure structures[] = {
    {Standard::Classification::BUILDING, Standard::BridgeType::ROADWAY,     "BUILDING"   },
    {Standard::Classification::BRIDGE,   Standard::BridgeType::ROADWAY,     "ROADWAY"    },
    {Standard::Classification::BRIDGE,   Standard::BridgeType::RAILWAY1,    "RAILWAY1"   },
    {Standard::Classification::BRIDGE,   Standard::BridgeType::RAILWAY2,    "RAILWAY2"   },
    {Standard::Classification::BRIDGE,   Standard::BridgeType::RAILWAY3,    "RAILWAY3"   },
    {Standard::Classification::BRIDGE,   Standard::BridgeType::FOOTBRIDGE1, "FOOTBRIDGE1"},
};

/// EC to DIN-EN.
inline std::vector<Standard::Mode> codes()
{
    std::vector<Standard::Mode> result;
    for (const auto& row : Standard::designCodes)
        if (row.value != Standard::Mode::NO_CODE)
            result.push_back(row.value);
    return result;
}

/// Its word.
inline std::string codeWord(Standard::Mode code)
{
    return Standard::XMLUtil::get()->getStringToMode(code);
}

} // namespace support
