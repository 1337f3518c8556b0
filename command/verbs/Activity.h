#pragma once

#include <string>

#include <zelstandard/attributes/StateAttribute.h>

#include <command/verbs/Data.h>

/// @file
/// Why a state attribute is active or not under the settings in force.

namespace command
{

/// The rule that rejects the attribute, as the end of "rejected by ..."; empty for an active one.
std::string inactivityOf(const Standard::StateAttribute& attribute);

/// Says so where StateAttributeValidator decides otherwise; else empty.
std::string validatorDifference(const Standard::StateAttribute& attribute);

/// The last element of the attribute, which decides but for the action; null for none.
const Element* attributeElement(Data& data, const std::string& word);

/// The word of an operator; "-" for a value that is no member.
std::string operatorWord(Standard::Operator value);

} // namespace command
