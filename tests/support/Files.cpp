#include "support/Files.h"

#include <iterator>
#include <random>

#include <zelsuite/zelsuite.h>

namespace support
{

TemporaryDirectory::TemporaryDirectory(const std::filesystem::path& parent)
{
    std::random_device random;
    do
        path_ = parent / ("zelstandard-test-" + std::to_string(random()));
    while (!std::filesystem::create_directory(path_));
}

TemporaryDirectory::~TemporaryDirectory()
{
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

std::string TemporaryDirectory::write(const std::string& name, const std::string& content) const
{
    writeFile(path_ / name, content);
    return file(name);
}

std::string readFile(const std::filesystem::path& path)
{
    std::ifstream stream(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
}

void writeFile(const std::filesystem::path& path, const std::string& content)
{
    std::ofstream(path, std::ios::binary) << content;
}

std::string unixLines(std::string text)
{
    std::erase(text, '\r');
    return text;
}

std::string enciphered(const std::string& plain)
{
    std::istringstream input(plain);
    std::ostringstream output;
    zelsuite::encrypt(input, output, "kT$WqRmYdNc4");
    return output.str();
}

std::filesystem::path sourceFile(const std::string& relative)
{
    return std::filesystem::path(ZELSTANDARD_SOURCE_DIR) / relative;
}

} // namespace support
