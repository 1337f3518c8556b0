#pragma once

/// @file
/// Export marks of the two shared libraries. Public classes and functions of the design-standards
/// library carry ZELSTANDARD_API, those of the suite's libraries ZELSUITE_API; everything else
/// stays hidden.

#if defined(_WIN32)
#define ZEL_EXPORTED __declspec(dllexport)
#define ZEL_IMPORTED __declspec(dllimport)
#else
#define ZEL_EXPORTED __attribute__((visibility("default")))
#define ZEL_IMPORTED __attribute__((visibility("default")))
#endif

#if defined(ZELSTANDARD_BUILDING)
#define ZELSTANDARD_API ZEL_EXPORTED
#else
#define ZELSTANDARD_API ZEL_IMPORTED
#endif

#if defined(ZELSUITE_BUILDING)
#define ZELSUITE_API ZEL_EXPORTED
#else
#define ZELSUITE_API ZEL_IMPORTED
#endif
