#pragma once

/// @file
/// The few kernel file calls that the library uses, under their Windows names. On Windows they are
/// the kernel's own; elsewhere the embedded suite gives them the same meaning, so that the code
/// above this header is one path for both. There they live in a namespace of their own, so that a
/// host which brings functions of these names does not put its own in their place. A host with an
/// external suite provides the functions of zelkernel, with C++ linkage, on every system but
/// Windows. Several threads may call all of it.

#if defined(_WIN32)

#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#ifndef NOMINMAX
#define NOMINMAX
#endif
#include <windows.h>

#else

#include <cstdint>

#include <zelstandard/Export.h>

namespace zelkernel
{

using DWORD = std::uint32_t;
using UINT = unsigned int;
using BOOL = int;
inline constexpr BOOL FALSE = 0;
inline constexpr BOOL TRUE = 1;
inline constexpr DWORD MAX_PATH = 4096;
inline constexpr DWORD INVALID_FILE_ATTRIBUTES = 0xFFFFFFFF;
inline constexpr DWORD FILE_ATTRIBUTE_DIRECTORY = 0x10;
inline constexpr DWORD FILE_ATTRIBUTE_NORMAL = 0x80;

// A path may part its names with "\". The folder is what stands before the last "/" or "\": when it
// does not exist as written, it is looked for with each "\" taken as "/", and when that does not
// exist either, the call fails.

/// The temporary directory with a separator at its end: $TMPDIR, else /tmp.
/// @return the length without the closing zero; the length needed with it when the buffer is too
///         small; 0 on failure
ZELSUITE_API DWORD GetTempPathA(DWORD size, char* buffer);

/// Creates a new empty file in the directory, its name beginning with the first three characters
/// of the prefix, readable by its owner alone.
/// @param unique must be 0: the system chooses the name
/// @param name receives the path; MAX_PATH bytes
/// @return non-zero on success
ZELSUITE_API UINT GetTempFileNameA(const char* directory, const char* prefix, UINT unique,
                                   char* name);

/// @return FILE_ATTRIBUTE_DIRECTORY for a directory, FILE_ATTRIBUTE_NORMAL for all else,
///         INVALID_FILE_ATTRIBUTES when nothing of that name exists
ZELSUITE_API DWORD GetFileAttributesA(const char* path);

/// Copies contents over the target; @p failIfExists non-zero refuses an existing one. A copy that
/// fails for want of space leaves a part of the contents in the target.
ZELSUITE_API BOOL CopyFileA(const char* from, const char* to, BOOL failIfExists);

/// Moves a regular file to a name that must not exist yet, giving it the permissions that the
/// process's umask asks of a new file. Between file systems it copies, then removes the source if
/// it can; the target appears when it is whole, and a failed copy leaves the source and no target.
ZELSUITE_API BOOL MoveFileA(const char* from, const char* to);

/// Removes a file; a directory is refused.
ZELSUITE_API BOOL DeleteFileA(const char* path);

/// A second spelling of the path of an existing file: here the path with "/" for each "\".
/// @return the length without the closing zero; the length needed with it when the buffer is too
///         small; 0 when no such file exists
ZELSUITE_API DWORD GetShortPathNameA(const char* path, char* buffer, DWORD size);

} // namespace zelkernel

using namespace zelkernel;

#endif
