#include <zelstandard/datafiles/detail/DataFile.h>

#include <array>
#include <fstream>
#include <new>
#include <sstream>

#include <zelstandard/datafiles/DataFileKey.h>
#include <zelstandard/platform/FileCrypt.h>
#include <zelstandard/platform/Tools.h>
#include <zelstandard/platform/WindowsFiles.h>

namespace Standard
{

namespace
{

const char* const dataFileKey = "kT$WqRmYdNc4";

} // namespace

std::string getDataFileKey() { return dataFileKey; }

std::unique_ptr<std::istream> openInputFile(const std::string& path)
{
    auto stream = std::make_unique<std::ifstream>(path, std::ios::in);
    if (stream->good())
        return stream;

    std::array<char, 4096> shortPath{};
    const DWORD length = GetShortPathNameA(path.c_str(), shortPath.data(), shortPath.size());
    const bool found = length != 0 && length < shortPath.size();
    return std::make_unique<std::ifstream>(found ? shortPath.data() : path.c_str(), std::ios::in);
}

std::unique_ptr<std::istream> openDataFile(const std::string& path)
{
    if (!Tools::File::exists(path))
        return nullptr;
    using FileCrypt::Clr::KorvaneUtil;
    if (!KorvaneUtil::isEncrypted(path, dataFileKey))
        return std::make_unique<std::ifstream>(path, std::ios::in);
    auto plain = std::make_unique<std::stringstream>();
    if (!KorvaneUtil::decrypt(path, *plain, dataFileKey)) {
        if (plain->bad()) // a stream in memory has no other reason to fail
            throw std::bad_alloc();
        return std::make_unique<std::stringstream>();
    }
    plain->seekg(0);
    return plain;
}

} // namespace Standard
