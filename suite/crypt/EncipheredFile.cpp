#include <array>
#include <fstream>
#include <span>
#include <string_view>
#include <vector>

#include <sodium.h>

#include <zelstandard/platform/FileCrypt.h>
#include <zelsuite/zelsuite.h>

// An enciphered file is a line that names its form and version, the header of a secretstream of
// libsodium, and the chunks of the stream. All chunks but the last hold chunkSize bytes of the
// text; the last one, which may be empty, is tagged as final. So a file that is damaged, cut,
// continued or put into another order does not pass.

namespace
{

/// What the first line begins with in every version.
constexpr std::string_view formName = "zelstandard-enciphered ";
/// The first line of the only version there is.
constexpr std::string_view firstLine = "zelstandard-enciphered 1\n";

constexpr std::size_t chunkSize = 65536;
constexpr std::size_t chunkOverhead = crypto_secretstream_xchacha20poly1305_ABYTES;
constexpr unsigned char lastTag = crypto_secretstream_xchacha20poly1305_TAG_FINAL;

using Header = std::array<unsigned char, crypto_secretstream_xchacha20poly1305_HEADERBYTES>;

/// The key, and what follows from it; overwritten in the end.
struct Secrets {
    /// The passphrase is a constant of the library and no secret to be stretched.
    explicit Secrets(const std::string& passphrase)
        : areReady(sodium_init() >= 0 &&
                   crypto_generichash(key.data(), key.size(),
                                      reinterpret_cast<const unsigned char*>(passphrase.data()),
                                      passphrase.size(), nullptr, 0) == 0)
    {
    }
    Secrets(const Secrets&) = delete;
    Secrets& operator=(const Secrets&) = delete;
    ~Secrets()
    {
        sodium_memzero(key.data(), key.size());
        sodium_memzero(&state, sizeof state);
    }

    std::array<unsigned char, crypto_secretstream_xchacha20poly1305_KEYBYTES> key{};
    crypto_secretstream_xchacha20poly1305_state state{};
    const bool areReady; ///< false when libsodium refuses
};

/// Reads as many bytes as there is room for; less only at the end of the stream or when it fails.
/// @return the bytes read
std::span<unsigned char> readUpTo(std::istream& stream, std::span<unsigned char> bytes)
{
    stream.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    return bytes.first(static_cast<std::size_t>(stream.gcount()));
}

/// True when the stream goes on with that text, behind which it then stands.
bool hasNext(std::istream& stream, std::string_view text)
{
    std::string next(text.size(), '\0');
    return stream.read(next.data(), static_cast<std::streamsize>(next.size())) && next == text;
}

bool isAtEnd(std::istream& stream) { return stream.peek() == std::istream::traits_type::eof(); }

void write(std::ostream& stream, std::span<const unsigned char> bytes)
{
    stream.write(reinterpret_cast<const char*>(bytes.data()),
                 static_cast<std::streamsize>(bytes.size()));
}

/// Takes the text from a whole file.
/// @param plain holds a part of it on false
bool decipher(std::istream& file, std::string& plain, const std::string& passphrase)
{
    Secrets secrets(passphrase);
    Header header{};
    if (!secrets.areReady || !hasNext(file, firstLine) ||
        readUpTo(file, header).size() != header.size() ||
        crypto_secretstream_xchacha20poly1305_init_pull(&secrets.state, header.data(),
                                                        secrets.key.data()) != 0)
        return false;
    std::vector<unsigned char> buffer(chunkSize + chunkOverhead);
    std::vector<unsigned char> text(chunkSize);
    for (unsigned char tag = 0; tag != lastTag;) {
        const auto chunk = readUpTo(file, buffer);
        unsigned long long length = 0;
        if (crypto_secretstream_xchacha20poly1305_pull(&secrets.state, text.data(), &length, &tag,
                                                       chunk.data(), chunk.size(), nullptr, 0) != 0)
            return false;
        plain.append(reinterpret_cast<const char*>(text.data()), length);
    }
    return isAtEnd(file) && !file.bad();
}

} // namespace

namespace zelsuite
{

bool encrypt(std::istream& plain, std::ostream& enciphered, const std::string& key)
{
    Secrets secrets(key);
    Header header{};
    if (!secrets.areReady || !plain || !enciphered ||
        crypto_secretstream_xchacha20poly1305_init_push(&secrets.state, header.data(),
                                                        secrets.key.data()) != 0)
        return false;
    enciphered << firstLine;
    write(enciphered, header);
    std::vector<unsigned char> buffer(chunkSize);
    std::vector<unsigned char> chunk(chunkSize + chunkOverhead);
    for (bool isLast = false; !isLast && enciphered;) {
        const auto text = readUpTo(plain, buffer);
        isLast = isAtEnd(plain);
        unsigned long long length = 0;
        if (plain.bad() || crypto_secretstream_xchacha20poly1305_push(
                               &secrets.state, chunk.data(), &length, text.data(), text.size(),
                               nullptr, 0, isLast ? lastTag : 0) != 0)
            return false;
        write(enciphered, std::span(chunk).first(length));
    }
    return !enciphered.flush().fail();
}

} // namespace zelsuite

namespace FileCrypt::Clr
{

bool KorvaneUtil::isEncrypted(const std::string& path, const std::string& /*key*/)
{
    std::ifstream file(path, std::ios::in | std::ios::binary);
    return hasNext(file, formName);
}

bool KorvaneUtil::decrypt(const std::string& path, std::ostream& plain, const std::string& key)
{
    std::ifstream file(path, std::ios::in | std::ios::binary);
    std::string text;
    return decipher(file, text, key) &&
           !plain.write(text.data(), static_cast<std::streamsize>(text.size())).flush().fail();
}

} // namespace FileCrypt::Clr
