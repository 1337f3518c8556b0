#include <zelstandard/platform/WindowsFiles.h>

#if !defined(_WIN32)

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <string_view>

#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zelkernel
{

namespace
{

/// A path that asks for no memory: a finished file must reach its target all the same. One that is
/// longer than the system takes is empty, which no call takes for a name.
class Path
{
public:
    explicit Path(std::string_view text) { append(text); }

    void append(std::string_view text)
    {
        isTooLong_ = isTooLong_ || size_ + text.size() >= text_.size();
        size_ = isTooLong_ ? 0 : size_ + text.copy(end(), text.size());
        *end() = 0;
    }

    [[nodiscard]] const char* c_str() const { return text_.data(); }
    [[nodiscard]] std::string_view view() const { return {text_.data(), size_}; }
    char* begin() { return text_.data(); }
    char* end() { return text_.data() + size_; }

private:
    std::array<char, MAX_PATH> text_;
    std::size_t size_ = 0;
    bool isTooLong_ = false;
};

/// An open file, closed at the end of its scope.
class File
{
public:
    explicit File(int descriptor) : descriptor_(descriptor) {}
    File(const File&) = delete;
    File& operator=(const File&) = delete;
    ~File() { close(); }

    explicit operator bool() const { return descriptor_ >= 0; }
    [[nodiscard]] int descriptor() const { return descriptor_; }

    /// False when what was written may not have reached the file.
    bool close()
    {
        // After EINTR the descriptor is closed all the same on Linux.
        const int descriptor = descriptor_;
        descriptor_ = -1;
        return descriptor < 0 || ::close(descriptor) == 0 || errno == EINTR;
    }

private:
    int descriptor_;
};

/// Calls again what a signal has interrupted.
template <class Call> auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

int openFile(const char* path, int flags)
{
    // Not blocking, so that a pipe of that name does not hold the caller up.
    return uninterrupted(
        [&] { return open(path, flags | O_CLOEXEC | O_NONBLOCK | O_NOCTTY, 0666); });
}

bool isDirectory(const Path& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

Path withSlashes(Path path)
{
    std::ranges::replace(path, '\\', '/');
    return path;
}

/// The folder part of a path, "." when it has none.
Path folderOf(const Path& path)
{
    const std::size_t end = path.view().rfind('/');
    return Path(
        end == std::string_view::npos ? "." : path.view().substr(0, std::max<std::size_t>(end, 1)));
}

/// Where a path leads whose names may be parted by "\": see WindowsFiles.h. Empty when its folder
/// does not exist.
Path resolved(const char* path)
{
    const Path written(path ? path : "");
    if (written.view().find('\\') == std::string_view::npos)
        return written;
    Path inFolder = written;
    inFolder.begin()[written.view().find_last_of("/\\")] = '/';
    if (isDirectory(folderOf(inFolder)))
        return inFolder;
    const Path slashed = withSlashes(written);
    return isDirectory(folderOf(slashed)) ? slashed : Path("");
}

/// A new file with no permissions but the owner's; @p path ends in "XXXXXX", which is replaced.
int createPrivately(Path& path)
{
    return uninterrupted([&path] {
        std::fill(path.end() - 6, path.end(), 'X'); // a failed call may have touched it
        return mkostemp(path.begin(), O_CLOEXEC);
    });
}

/// The permissions of a file that the process creates. The umask is read without being changed
/// where the kernel tells it, since other threads may be creating files.
mode_t ordinaryPermissions()
{
    const File status(openFile("/proc/self/status", O_RDONLY));
    std::array<char, 1024> text{};
    if (status && read(status.descriptor(), text.data(), text.size() - 1) > 0) {
        if (const char* line = std::strstr(text.data(), "\nUmask:"))
            return 0666U & ~static_cast<mode_t>(std::strtoul(line + 7, nullptr, 8));
    }
    const mode_t mask = umask(077);
    umask(mask);
    return 0666U & ~mask;
}

/// Appends the whole of one open file to another.
bool copyContents(const File& from, const File& to)
{
    std::array<char, 1 << 16> buffer;
    for (;;) {
        const ssize_t count =
            uninterrupted([&] { return read(from.descriptor(), buffer.data(), buffer.size()); });
        if (count <= 0)
            return count == 0;
        std::string_view rest(buffer.data(), static_cast<std::size_t>(count));
        while (!rest.empty()) {
            const ssize_t written =
                uninterrupted([&] { return write(to.descriptor(), rest.data(), rest.size()); });
            if (written <= 0)
                return false;
            rest.remove_prefix(static_cast<std::size_t>(written));
        }
    }
}

/// Whether the limit that the process has for its files leaves room; writing beyond it would raise
/// a signal that ends the program.
bool isWithinFileLimit(off_t size)
{
    rlimit limit;
    return getrlimit(RLIMIT_FSIZE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY ||
           static_cast<rlim_t>(size) <= limit.rlim_cur;
}

/// Renames a file within its file system; false with EEXIST, and nothing changed, when the target
/// exists.
bool renameToNew(const Path& from, const Path& to)
{
    if (renameat2(AT_FDCWD, from.c_str(), AT_FDCWD, to.c_str(), RENAME_NOREPLACE) == 0)
        return true;
    if (errno != EINVAL && errno != ENOSYS)
        return false;
    // The file system does not know that call; a second name refuses an existing target as well.
    if (link(from.c_str(), to.c_str()) == 0) {
        if (unlink(from.c_str()) == 0)
            return true;
        unlink(to.c_str());
        return false;
    }
    if (errno == EEXIST || errno == EXDEV || errno == ENOENT)
        return false;
    // Nor does it have second names: all that is left is to look first.
    struct stat status;
    if (lstat(to.c_str(), &status) == 0) {
        errno = EEXIST;
        return false;
    }
    return rename(from.c_str(), to.c_str()) == 0;
}

/// Copies into a private file beside the target, which gets the target's name when it is whole.
bool moveByCopy(const Path& from, const Path& to, mode_t permissions)
{
    const File source(openFile(from.c_str(), O_RDONLY));
    struct stat status;
    if (!source || fstat(source.descriptor(), &status) != 0 || !isWithinFileLimit(status.st_size))
        return false;
    Path privately = folderOf(to);
    privately.append("/.zelXXXXXX");
    File copy(privately.view().empty() ? -1 : createPrivately(privately));
    if (!copy)
        return false;
    const bool whole =
        copyContents(source, copy) && uninterrupted([&] { return fsync(copy.descriptor()); }) == 0;
    fchmod(copy.descriptor(), permissions); // some file systems have none to set
    if (!copy.close() || !whole || !renameToNew(privately, to)) {
        unlink(privately.c_str());
        return false;
    }
    // A source that cannot be removed does not undo the move; Windows has it so, too.
    unlink(from.c_str());
    return true;
}

/// Hands a text out into a caller's buffer, as the Windows calls do.
DWORD giveText(std::string_view text, char* buffer, DWORD size)
{
    if (!buffer || text.size() >= size)
        return static_cast<DWORD>(text.size() + 1);
    buffer[text.copy(buffer, size)] = 0;
    return static_cast<DWORD>(text.size());
}

} // namespace

DWORD GetTempPathA(DWORD size, char* buffer)
{
    const char* const set = std::getenv("TMPDIR");
    const std::string_view directory = set && *set ? set : "/tmp";
    const std::string_view end = directory.ends_with('/') ? "" : "/";
    if (!buffer || directory.size() + end.size() >= size)
        return static_cast<DWORD>(directory.size() + end.size() + 1);
    giveText(directory, buffer, size);
    return static_cast<DWORD>(directory.size()) +
           giveText(end, buffer + directory.size(), size - static_cast<DWORD>(directory.size()));
}

UINT GetTempFileNameA(const char* directory, const char* prefix, UINT unique, char* name)
{
    const std::string_view start = std::string_view(prefix ? prefix : "").substr(0, 3);
    if (!directory || unique != 0 || !name || start.find('/') != std::string_view::npos)
        return 0;
    Path path(*directory ? directory : ".");
    path.append(path.view().ends_with('/') ? "" : "/");
    path.append(start);
    path.append("XXXXXX");
    const File file(path.view().empty() ? -1 : createPrivately(path));
    return file && giveText(path.view(), name, MAX_PATH) != 0 ? 1 : 0;
}

DWORD GetFileAttributesA(const char* path)
{
    struct stat status;
    if (stat(resolved(path).c_str(), &status) != 0)
        return INVALID_FILE_ATTRIBUTES;
    return S_ISDIR(status.st_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_NORMAL;
}

BOOL CopyFileA(const char* from, const char* to, BOOL failIfExists)
{
    const File source(openFile(resolved(from).c_str(), O_RDONLY));
    struct stat sourceStatus;
    if (!source || fstat(source.descriptor(), &sourceStatus) != 0 || !S_ISREG(sourceStatus.st_mode))
        return FALSE;
    File target(openFile(resolved(to).c_str(), O_WRONLY | O_CREAT | (failIfExists ? O_EXCL : 0)));
    struct stat targetStatus;
    if (!target || fstat(target.descriptor(), &targetStatus) != 0 || !S_ISREG(targetStatus.st_mode))
        return FALSE;
    const bool isSame =
        sourceStatus.st_dev == targetStatus.st_dev && sourceStatus.st_ino == targetStatus.st_ino;
    return !isSame && isWithinFileLimit(sourceStatus.st_size) &&
           uninterrupted([&] { return ftruncate(target.descriptor(), 0); }) == 0 &&
           copyContents(source, target) && target.close();
}

BOOL MoveFileA(const char* from, const char* to)
{
    const Path source = resolved(from);
    const Path target = resolved(to);
    struct stat status;
    if (lstat(source.c_str(), &status) != 0 || !S_ISREG(status.st_mode))
        return FALSE;
    const mode_t permissions = ordinaryPermissions();
    const bool changed = chmod(source.c_str(), permissions) == 0;
    if (renameToNew(source, target))
        return TRUE;
    const bool otherFileSystem = errno == EXDEV;
    if (changed)
        chmod(source.c_str(), status.st_mode & 07777U);
    return otherFileSystem && moveByCopy(source, target, permissions);
}

BOOL DeleteFileA(const char* path) { return unlink(resolved(path).c_str()) == 0; }

DWORD GetShortPathNameA(const char* path, char* buffer, DWORD size)
{
    const Path slashed = withSlashes(Path(path ? path : ""));
    struct stat status;
    if (stat(slashed.c_str(), &status) != 0)
        return 0;
    return giveText(slashed.view(), buffer, size);
}

} // namespace zelkernel

#endif
