#include "AgeHeader.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <system_error>

#include "Base64.h"

namespace FileCrypt::Age
{

namespace
{

constexpr std::string_view stanzaStart = "-> scrypt ";
constexpr std::string_view macStart = "---";

/// 2^18 costs 256 MiB and about a second, which is where other programs start; a file that asks for
/// more is refused rather than let it bind the host's memory.
constexpr unsigned highestWorkFactor = 18;

/// The passphrase is a constant of the library and no secret to be stretched.
constexpr unsigned ownWorkFactor = 10;

struct Stanza {
    Bytes<16> salt{};
    unsigned workFactor = 0;
    Bytes<16 + tagSize> wrappedKey{};
};

/// The line without its line feed. False for a line that is cut short, or longer than any that a
/// header has.
bool readLine(std::istream& file, std::string& line)
{
    std::array<char, 80> buffer{};
    if (!file.getline(buffer.data(), buffer.size()) || file.eof())
        return false;
    line.assign(buffer.data(), static_cast<std::size_t>(file.gcount()) - 1);
    return true;
}

/// Decimal digits without sign or leading zero.
bool parseWorkFactor(std::string_view text, unsigned& workFactor)
{
    if (text.empty() || text.front() == '0')
        return false;
    const char* const end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, workFactor);
    return result.ec == std::errc() && result.ptr == end && workFactor <= highestWorkFactor;
}

bool parseStanza(std::string_view arguments, std::string_view body, Stanza& stanza)
{
    if (!arguments.starts_with(stanzaStart))
        return false;
    arguments.remove_prefix(stanzaStart.size());
    const std::size_t blank = arguments.find(' ');
    return blank != std::string_view::npos &&
           decodeBase64(arguments.substr(0, blank), stanza.salt) &&
           parseWorkFactor(arguments.substr(blank + 1), stanza.workFactor) &&
           decodeBase64(body, stanza.wrappedKey);
}

bool parseMac(std::string_view line, Digest& mac)
{
    if (!line.starts_with(macStart))
        return false;
    line.remove_prefix(macStart.size());
    return line.starts_with(' ') && decodeBase64(line.substr(1), mac);
}

/// The key under which the file key stands in the header.
bool deriveWrappingKey(const std::string& passphrase, const Stanza& stanza, Key& key)
{
    static constexpr std::string_view label = "age-encryption.org/v1/scrypt";
    Bytes<label.size() + std::tuple_size_v<decltype(stanza.salt)>> salt{};
    std::copy(stanza.salt.begin(), stanza.salt.end(),
              std::copy(label.begin(), label.end(), salt.begin()));
    return stretchPassphrase(passphrase, salt, stanza.workFactor, key);
}

/// @param text the header up to and with the three dashes of its last line
bool computeMac(const FileKey& fileKey, std::string_view text, Digest& mac)
{
    Key key;
    return deriveKey(fileKey, {}, "header", key) && authenticate(key, text, mac);
}

/// Takes the same time wherever the first difference is.
bool isSame(const Digest& left, const Digest& right)
{
    unsigned difference = 0;
    for (std::size_t i = 0; i < left.size(); ++i)
        difference |= static_cast<unsigned>(left[i] ^ right[i]);
    return difference == 0;
}

} // namespace

bool readHeader(std::istream& file, const std::string& passphrase, FileKey& fileKey)
{
    std::string version;
    std::string arguments;
    std::string body;
    std::string macLine;
    if (!readLine(file, version) || version + '\n' != firstLine || !readLine(file, arguments) ||
        !readLine(file, body) || !readLine(file, macLine))
        return false;

    Stanza stanza;
    Digest mac{};
    if (!parseStanza(arguments, body, stanza) || !parseMac(macLine, mac))
        return false;

    // A wrapping key serves once, since its salt is new in each file: its nonce may be constant.
    Key wrappingKey;
    Secret<16 + tagSize> message;
    message.bytes = stanza.wrappedKey;
    if (!deriveWrappingKey(passphrase, stanza, wrappingKey) ||
        !open(wrappingKey, Nonce{}, message.bytes))
        return false;
    std::copy_n(message.bytes.begin(), fileKey.bytes.size(), fileKey.bytes.begin());

    std::string covered = version + '\n' + arguments + '\n' + body + '\n';
    covered += macStart;
    Digest expected{};
    return computeMac(fileKey, covered, expected) && isSame(mac, expected);
}

bool writeHeader(std::ostream& file, const std::string& passphrase, const FileKey& fileKey)
{
    Stanza stanza;
    randomise(stanza.salt);
    stanza.workFactor = ownWorkFactor;

    Key wrappingKey;
    Secret<16 + tagSize> message;
    std::copy(fileKey.bytes.begin(), fileKey.bytes.end(), message.bytes.begin());
    if (!deriveWrappingKey(passphrase, stanza, wrappingKey) ||
        !seal(wrappingKey, Nonce{}, message.bytes))
        return false;
    stanza.wrappedKey = message.bytes;

    std::string text(firstLine);
    text += stanzaStart;
    text += encodeBase64(stanza.salt) + ' ' + std::to_string(stanza.workFactor) + '\n';
    text += encodeBase64(stanza.wrappedKey) + '\n';
    text += macStart;
    Digest mac{};
    if (!computeMac(fileKey, text, mac))
        return false;
    file << text << ' ' << encodeBase64(mac) << '\n';
    return true;
}

} // namespace FileCrypt::Age
