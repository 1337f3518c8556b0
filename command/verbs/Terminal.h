#pragma once

namespace command
{

/// True when standard output is a terminal.
bool isTerminal();

} // namespace command
