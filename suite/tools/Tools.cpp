#include <zelstandard/platform/Tools.h>

#include <optional>

#include <files/OwnFiles.h>
#include <zelsuite/zelsuite.h>

namespace
{

constexpr int IgnoringCaseAndBlanks = 1;

std::string normalised(const std::string& text)
{
    constexpr const char* Blanks = " \t\r\n";
    const std::size_t begin = text.find_first_not_of(Blanks);
    if (begin == std::string::npos)
        return {};
    std::string result = text.substr(begin, text.find_last_not_of(Blanks) - begin + 1);
    for (char& c : result) {
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    }
    return result;
}

std::string withoutSeparatorAtEnd(std::string path)
{
    path.erase(path.find_last_not_of(zelsuite::files::Separators) + 1);
    return path;
}

/// "share/zelstandard" beside the directory of the library.
std::string builtInDirectory()
{
    std::string path = zelsuite::files::ownLibraryDirectory();
    path.erase(path.find_last_of(zelsuite::files::Separators) + 1);
    return withoutSeparatorAtEnd(path) + "/share/zelstandard";
}

/// The directory that the host has set.
std::optional<std::string>& hostDirectory()
{
    static std::optional<std::string> directory;
    return directory;
}

} // namespace

Tools::StringCompare::StringCompare(const std::string& text, int mode)
    : text_(mode == IgnoringCaseAndBlanks ? normalised(text) : text), mode_(mode)
{
}

bool Tools::StringCompare::operator()(const std::string& candidate) const
{
    return mode_ == IgnoringCaseAndBlanks ? normalised(candidate) == text_ : candidate == text_;
}

bool Tools::File::exists(const std::string& path) { return zelsuite::files::exists(path); }

std::string Tools::getInstallationDirectory(bool withSeparator)
{
    const std::string directory = hostDirectory() ? *hostDirectory() : builtInDirectory();
    return withSeparator ? directory + "/" : directory;
}

void zelsuite::setInstallationDirectory(const std::string& directory)
{
    hostDirectory().reset();
    if (!directory.empty())
        hostDirectory() = withoutSeparatorAtEnd(directory);
}
