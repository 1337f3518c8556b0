#include "OwnFiles.h"

#if defined(_WIN32)
#include <zelstandard/platform/WindowsFiles.h>
#else
#include <climits>
#include <cstdlib>

#include <dlfcn.h>
#include <link.h>
#include <sys/stat.h>
#endif

namespace zelsuite::files
{

namespace
{

/// Any object of this library, by whose address the system finds the file.
const char marker = 0;

#if defined(_WIN32)

std::string findOwnFile()
{
    HMODULE module = nullptr;
    std::string path(32768, '\0'); // the longest path there can be
    if (!GetModuleHandleExA(GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS |
                                GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT,
                            &marker, &module))
        return {};
    path.resize(GetModuleFileNameA(module, path.data(), static_cast<DWORD>(path.size())));
    return path;
}

#else

std::string findOwnFile()
{
    // The loader's name of a library may be relative to the working directory at its loading, and
    // that of the program is empty: the kernel knows better than the first argument does.
    Dl_info info{};
    link_map* map = nullptr;
    if (!dladdr1(&marker, &info, reinterpret_cast<void**>(&map), RTLD_DL_LINKMAP) || !map)
        return {};
    const bool isProgram = map->l_name[0] == '\0';
    char path[PATH_MAX];
    return realpath(isProgram ? "/proc/self/exe" : map->l_name, path) ? path : std::string();
}

#endif

std::string directoryOf(const std::string& path)
{
    const std::size_t end = path.find_last_of(separators);
    return end == std::string::npos ? std::string() : path.substr(0, end);
}

[[maybe_unused]] const std::string& settledAtLoading = ownLibraryDirectory();

} // namespace

const std::string& ownLibraryDirectory()
{
    // Never destroyed, since static destructors of the host may still ask for it.
    static const auto& directory = *new std::string(directoryOf(findOwnFile()));
    return directory;
}

bool exists(const std::string& path)
{
    if (path.find('\0') != std::string::npos)
        return false;
#if defined(_WIN32)
    // Not std::filesystem, which takes narrow names for UTF-8 where the file streams do not.
    return GetFileAttributesA(path.c_str()) != INVALID_FILE_ATTRIBUTES;
#else
    struct stat status;
    return stat(path.c_str(), &status) == 0;
#endif
}

} // namespace zelsuite::files
