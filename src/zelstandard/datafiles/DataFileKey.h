#pragma once

#include <string>

#include <zelstandard/Export.h>

namespace Standard
{

/// The key by which action type and state attribute files are enciphered. It keeps them from being
/// edited by accident; it is not a secret.
[[nodiscard]] ZELSTANDARD_API std::string getDataFileKey();

} // namespace Standard
