#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace support
{

/// A new directory below the system's temporary one, removed with all that it holds.
class TemporaryDirectory
{
public:
    explicit TemporaryDirectory(
        const std::filesystem::path& parent = std::filesystem::temp_directory_path());
    ~TemporaryDirectory();
    TemporaryDirectory(const TemporaryDirectory&) = delete;
    TemporaryDirectory& operator=(const TemporaryDirectory&) = delete;

    [[nodiscard]] const std::filesystem::path& path() const { return path_; }
    /// The path of a file in it.
    [[nodiscard]] std::string file(const std::string& name) const
    {
        return (path_ / name).string();
    }
    /// Writes a file in it and gives its path.
    std::string write(const std::string& name, const std::string& content) const;

private:
    std::filesystem::path path_;
};

/// All bytes of a file; empty when it does not exist.
std::string readFile(const std::filesystem::path& path);
void writeFile(const std::filesystem::path& path, const std::string& content);

/// Text with the line ends of Unix, for comparing files written on any system.
std::string unixLines(std::string text);

/// Enciphers a text with the library's data-file key.
std::string enciphered(const std::string& plain);

/// A file of the source tree.
std::filesystem::path sourceFile(const std::string& relative);

} // namespace support
