#include <command/verbs/Terminal.h>

#include <unistd.h>

namespace command
{

bool isTerminal() { return isatty(1) != 0; }

} // namespace command
