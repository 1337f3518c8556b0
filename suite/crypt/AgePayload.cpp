#include "AgePayload.h"

#include <cstdint>
#include <vector>

namespace FileCrypt::Age
{

namespace
{

constexpr std::size_t chunkSize = 65536;

using PayloadNonce = Bytes<16>;

Nonce chunkNonce(std::uint64_t number, bool isLast)
{
    Nonce nonce{};
    for (std::size_t i = nonce.size() - 1; i-- > 0; number >>= 8)
        nonce[i] = static_cast<unsigned char>(number & 0xff);
    nonce.back() = isLast ? 1 : 0;
    return nonce;
}

/// At most @p bytes.size(), less only at the end of the stream or when it fails.
std::size_t readUpTo(std::istream& stream, std::span<unsigned char> bytes)
{
    stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return static_cast<std::size_t>(stream.gcount());
}

void write(std::ostream& stream, std::span<const unsigned char> bytes)
{
    stream.write(reinterpret_cast<const char*>(bytes.data()),
                 static_cast<std::streamsize>(bytes.size()));
}

bool isAtEnd(std::istream& stream) { return stream.peek() == std::istream::traits_type::eof(); }

/// @param plain null to prove the chunks only
bool readChunks(std::istream& file, const Key& key, std::ostream* plain)
{
    std::vector<unsigned char> buffer(chunkSize + tagSize);
    bool isLast = false;
    for (std::uint64_t number = 0; !isLast; ++number) {
        const std::size_t size = readUpTo(file, buffer);
        isLast = isAtEnd(file);
        if (file.bad() || size < tagSize || (size == tagSize && number > 0))
            return false;
        const auto message = std::span(buffer).first(size);
        if (!open(key, chunkNonce(number, isLast), message))
            return false;
        if (plain != nullptr)
            write(*plain, message.first(size - tagSize));
    }
    return true;
}

} // namespace

bool readPayload(std::istream& file, const FileKey& fileKey, std::ostream& plain)
{
    PayloadNonce nonce{};
    Key key;
    if (readUpTo(file, nonce) != nonce.size() || !deriveKey(fileKey, nonce, "payload", key))
        return false;

    const auto start = file.tellg();
    if (!readChunks(file, key, nullptr))
        return false;
    file.clear();
    file.seekg(start);
    return readChunks(file, key, &plain);
}

bool writePayload(std::istream& plain, const FileKey& fileKey, std::ostream& file)
{
    PayloadNonce nonce{};
    randomise(nonce);
    Key key;
    if (!deriveKey(fileKey, nonce, "payload", key))
        return false;
    write(file, nonce);

    std::vector<unsigned char> buffer(chunkSize + tagSize);
    bool isLast = false;
    for (std::uint64_t number = 0; !isLast; ++number) {
        const std::size_t size = readUpTo(plain, std::span(buffer).first(chunkSize));
        isLast = isAtEnd(plain);
        const auto message = std::span(buffer).first(size + tagSize);
        if (plain.bad() || !seal(key, chunkNonce(number, isLast), message))
            return false;
        write(file, message);
        if (!file)
            return false;
    }
    return true;
}

} // namespace FileCrypt::Age
