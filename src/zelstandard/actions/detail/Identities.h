#pragma once

namespace Standard
{

/// How often an assignment has given an action type of this process another identity. A catalogue
/// that keeps an index of identities makes it anew when this changed.
extern unsigned int identityChanges;

} // namespace Standard
