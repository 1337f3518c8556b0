#pragma once

#include <functional>
#include <string>
#include <vector>

/// @file
/// The words of the enumerations as the library converts them, with its fallbacks for unknown ones.

namespace command
{

/// One enumeration, both ways; values as numbers.
struct Enumeration {
    const char* name;
    std::function<int(const std::string&)> value;
    std::function<std::string(int)> word;
};

const std::vector<Enumeration>& enumerations();
/// Throws Failure when there is none of that name.
const Enumeration& enumerationOf(const std::string& name);

bool isInteger(const std::string& text, int& value);

/// A number as it stands, else what the library makes of the word.
template <class Value> Value valueOf(const char* enumeration, const std::string& text)
{
    int number = 0;
    return static_cast<Value>(isInteger(text, number) ? number
                                                      : enumerationOf(enumeration).value(text));
}

template <class Value> std::string wordFor(const char* enumeration, Value value)
{
    return enumerationOf(enumeration).word(static_cast<int>(value));
}

} // namespace command
