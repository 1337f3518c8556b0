#include <command/provenance/SafeFile.h>

#include <cerrno>
#include <cstring>
#include <filesystem>
#include <fstream>

#include <command/vocabulary/Failure.h>

namespace command
{

namespace fs = std::filesystem;

namespace
{

/// The file itself where the path is a link to one.
fs::path targetOf(const std::string& path)
{
    std::error_code error;
    const fs::path target = fs::canonical(path, error);
    return error ? fs::path(path) : target;
}

} // namespace

void replaceFile(const std::string& path, const std::string& bytes)
{
    const fs::path target = targetOf(path);
    const fs::path temporary = target.string() + ".new";
    const auto fail = [&](const std::string& why) {
        std::error_code ignored;
        fs::remove(temporary, ignored);
        throw Failure("cannot write \"" + path + "\": " + why + "; it is as it was");
    };
    std::error_code error;
    const fs::file_status status = fs::status(target, error);
    if (fs::exists(status) && !fs::is_regular_file(status))
        fail("it is no regular file");
    fs::remove(temporary, error);
    std::ofstream file(temporary, std::ios::binary);
    if (!file)
        fail(std::strerror(errno));
    file << bytes;
    file.close();
    if (!file)
        fail("the disk is full, or the like");
    if (fs::exists(status))
        fs::permissions(temporary, status.permissions(), error);
    if (!error)
        fs::rename(temporary, target, error);
    if (error)
        fail(error.message());
}

} // namespace command
