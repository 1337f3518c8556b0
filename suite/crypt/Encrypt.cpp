#include <zelsuite/zelsuite.h>

#include "AgeHeader.h"
#include "AgePayload.h"

namespace zelsuite
{

bool encrypt(std::istream& plain, std::ostream& enciphered, const std::string& key)
{
    using namespace FileCrypt::Age;

    if (!plain || !enciphered || !initialiseLibrary())
        return false;
    FileKey fileKey;
    randomise(fileKey.bytes);
    return writeHeader(enciphered, key, fileKey) && writePayload(plain, fileKey, enciphered) &&
           enciphered.flush();
}

} // namespace zelsuite
