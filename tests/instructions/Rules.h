#pragma once

#include <sstream>
#include <string>

#include <zelstandard/instructions/StateInstructionManager.h>
#include <zelstandard/vocabulary/XMLUtil.h>

/// @file
/// Superposition rules from documents, and as text to compare.

namespace support
{

/// The attributes in their order: "G1 AND, SNOW AND_MINMAX". What is no token or operator is "-".
inline std::string contents(const Standard::StateInstruction& instruction)
{
    using Standard::XMLUtil;
    std::string result;
    for (const Standard::StateAttributeBase* attribute : instruction.getAttributes()) {
        result += (result.empty() ? "" : ", ") +
                  XMLUtil::get()->getStringToStateAttrToken(attribute->getToken()) + " " +
                  XMLUtil::get()->getStringToOperator(attribute->getOperator());
    }
    return result;
}

/// All instructions, a line each: "EC-BUILDING FUNDAMENTAL: G1 AND, SNOW AND_MINMAX".
inline std::string contents(const Standard::StateInstructionManager& catalogue)
{
    using Standard::XMLUtil;
    std::string result;
    for (int id = 0; id <= 5; ++id) {
        const Standard::SuperpositionTemplate rules{id};
        for (const Standard::StateInstruction* instruction : catalogue.getStateInstructions(rules))
            result += XMLUtil::get()->getStringToSupTemplate(rules) + " " +
                      XMLUtil::get()->getStringToInstruction(instruction->getType()) + ": " +
                      contents(*instruction) + "\n";
    }
    return result;
}

inline void read(Standard::StateInstructionManager& catalogue, const std::string& document)
{
    std::istringstream stream(document);
    catalogue.read(stream);
}

} // namespace support
