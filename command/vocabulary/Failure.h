#pragma once

#include <stdexcept>
#include <string>

namespace command
{

/// Why a question has no answer: wrong usage or input that cannot be read. The program ends with 2.
/// The text says what was given, what is near, and how to list the rest; lines are parted by "\n".
class Failure : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

} // namespace command
