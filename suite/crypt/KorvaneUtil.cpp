#include <algorithm>
#include <array>
#include <fstream>

#include <zelstandard/platform/FileCrypt.h>

#include "AgeHeader.h"
#include "AgePayload.h"

namespace FileCrypt::Clr
{

bool KorvaneUtil::isEncrypted(const std::string& path, const std::string& /*key*/)
{
    std::ifstream file(path, std::ios::in | std::ios::binary);
    std::array<char, Age::firstLine.size()> start{};
    return file.read(start.data(), start.size()) && std::ranges::equal(start, Age::firstLine);
}

bool KorvaneUtil::decrypt(const std::string& path, std::ostream& plain, const std::string& key)
{
    std::ifstream file(path, std::ios::in | std::ios::binary);
    Age::FileKey fileKey;
    return file && Age::initialiseLibrary() && Age::readHeader(file, key, fileKey) &&
           Age::readPayload(file, fileKey, plain) && plain.flush();
}

} // namespace FileCrypt::Clr
