#include "Base64.h"

#include <cstddef>

namespace FileCrypt::Age
{

namespace
{

constexpr std::string_view alphabet =
    "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";

} // namespace

std::string encodeBase64(std::span<const unsigned char> bytes)
{
    std::string text;
    unsigned bits = 0;
    unsigned bitCount = 0;
    for (const unsigned char byte : bytes) {
        bits = bits << 8 | byte;
        bitCount += 8;
        while (bitCount >= 6) {
            bitCount -= 6;
            text += alphabet[bits >> bitCount & 63];
        }
    }
    if (bitCount > 0)
        text += alphabet[bits << (6 - bitCount) & 63];
    return text;
}

bool decodeBase64(std::string_view text, std::span<unsigned char> bytes)
{
    if (text.size() != (bytes.size() * 8 + 5) / 6)
        return false;
    unsigned bits = 0;
    unsigned bitCount = 0;
    std::size_t filled = 0;
    for (const char character : text) {
        const std::size_t value = alphabet.find(character);
        if (value == std::string_view::npos)
            return false;
        bits = bits << 6 | static_cast<unsigned>(value);
        bitCount += 6;
        if (bitCount >= 8) {
            bitCount -= 8;
            bytes[filled++] = static_cast<unsigned char>(bits >> bitCount);
            bits &= (1U << bitCount) - 1;
        }
    }
    return bits == 0;
}

} // namespace FileCrypt::Age
