#include <zelstandard/platform/Tools.h>

#include <optional>

#include <files/OwnFiles.h>
#include <zelsuite/zelsuite.h>

using zelsuite::files::separators;

namespace
{

constexpr int ignoringCaseAndBlanks = 1;

std::string normalised(const std::string& text)
{
    constexpr const char* blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(blanks);
    if (begin == std::string::npos)
        return {};
    std::string result = text.substr(begin, text.find_last_not_of(blanks) - begin + 1);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

std::string withoutSeparatorAtEnd(std::string path)
{
    path.erase(path.find_last_not_of(separators) + 1);
    return path;
}

/// "share/zelstandard" beside the directory of the library.
std::string builtInDirectory()
{
    std::string path = zelsuite::files::ownLibraryDirectory();
    path.erase(path.find_last_of(separators) + 1);
    return withoutSeparatorAtEnd(path) + "/share/zelstandard";
}

/// The directory that the host has set. Never destroyed, since static destructors of the host may
/// still ask for it.
std::optional<std::string>& hostDirectory()
{
    static auto& directory = *new std::optional<std::string>;
    return directory;
}

} // namespace

namespace Tools
{

StringCompare::StringCompare(const std::string& text, int mode)
    : text_(mode == ignoringCaseAndBlanks ? normalised(text) : text), mode_(mode)
{
}

bool StringCompare::operator()(const std::string& candidate) const
{
    return mode_ == ignoringCaseAndBlanks ? normalised(candidate) == text_ : candidate == text_;
}

bool File::exists(const std::string& path) { return zelsuite::files::exists(path); }

std::string getInstallationDirectory(bool withSeparator)
{
    const std::string directory = hostDirectory() ? *hostDirectory() : builtInDirectory();
    return withSeparator ? directory + "/" : directory;
}

} // namespace Tools

namespace zelsuite
{

void setInstallationDirectory(const std::string& directory)
{
    hostDirectory() =
        directory.empty() ? std::nullopt : std::optional(withoutSeparatorAtEnd(directory));
}

} // namespace zelsuite
