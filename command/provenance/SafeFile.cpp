#include <command/provenance/SafeFile.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <utility>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

namespace fs = std::filesystem;

// Where files of text and of bytes differ, the flush to the disk has another name too.
#ifdef O_BINARY
constexpr int bytesAsTheyAre = O_BINARY;
int flush(int file) { return _commit(file); }
#else
constexpr int bytesAsTheyAre = 0;
int flush(int file) { return ::fsync(file); }
#endif

/// @return -1 when there is such a file
int openNew(const char* path)
{
    return ::open(path, O_WRONLY | O_CREAT | O_EXCL | bytesAsTheyAre, 0666);
}

/// An open file that nobody else writes; closed and removed unless it is kept.
class TemporaryFile
{
public:
    explicit TemporaryFile(const fs::path& beside)
    {
        for (int i = 0; i < 1000 && file_ < 0; ++i) {
            path_ = beside.string() + ".new" + std::to_string(i);
            file_ = openNew(path_.c_str());
            if (file_ < 0 && errno != EEXIST)
                break;
        }
    }
    ~TemporaryFile()
    {
        close();
        std::error_code ignored;
        if (!path_.empty() && wasOpened_)
            fs::remove(path_, ignored);
    }
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] bool isOpen() const { return file_ >= 0; }
    bool write(const std::string& bytes)
    {
        wasOpened_ = true;
        for (std::size_t at = 0; at < bytes.size();) {
            const auto part =
                static_cast<unsigned int>(std::min<std::size_t>(bytes.size() - at, 1U << 20U));
            const auto written = ::write(file_, bytes.data() + at, part);
            if (written <= 0)
                return false;
            at += static_cast<std::size_t>(written);
        }
        return flush(file_) == 0 && close();
    }
    void keep() { wasOpened_ = false; }

private:
    bool close() { return file_ < 0 || ::close(std::exchange(file_, -1)) == 0; }

    std::string path_;
    int file_ = -1;
    bool wasOpened_ = false;
};

} // namespace

bool isSameFile(const std::string& path, const std::string& other)
{
    std::error_code error;
    return fs::equivalent(path, other, error);
}

void replaceFile(const std::string& path, const std::string& bytes)
{
    std::error_code error;
    const fs::path target = fs::exists(path, error) ? fs::canonical(path, error) : fs::path(path);
    const auto fail = [&](const std::string& why) {
        throw Failure("cannot write \"" + path + "\": " + why + "; it is as it was");
    };
    if (error)
        fail(error.message());
    const fs::file_status status = fs::status(target, error);
    const bool exists = status.type() != fs::file_type::not_found;
    if (exists && status.type() != fs::file_type::regular)
        fail("no regular file");
    constexpr fs::perms writable =
        fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    if (exists && (status.permissions() & writable) == fs::perms::none)
        fail("it is read-only");
    TemporaryFile file(target);
    if (!file.isOpen() || !file.write(bytes))
        fail(std::strerror(errno));
    if (exists) {
        fs::permissions(file.path(), status.permissions(), error);
        if (error)
            fail(error.message());
    }
    fs::rename(file.path(), target, error);
    if (error)
        fail(error.message());
    file.keep();
}

} // namespace command
