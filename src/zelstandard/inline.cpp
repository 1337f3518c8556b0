// Holds the inline operations of the public classes, for callers that find them by name.

#include <zelstandard/zelstandard.h> // IWYU pragma: keep
