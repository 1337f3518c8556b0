#include <command/provenance/Utf8.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>

namespace command
{

namespace
{

/// How the characters of a text lie in its bytes.
struct Encoding {
    std::size_t size; ///< bytes of a unit
    bool bigEnd;      ///< the highest byte comes first
};

/// Size 1 for a text of bytes. The first character is "<" or a byte order mark.
Encoding encodingOf(std::string_view bytes)
{
    const auto begins = [&](std::string_view start) { return bytes.starts_with(start); };
    using namespace std::string_view_literals;
    if (begins("\xFF\xFE\0\0"sv) || begins("<\0\0\0"sv))
        return {4, false};
    if (begins("\0\0\xFE\xFF"sv) || begins("\0\0\0<"sv))
        return {4, true};
    if (begins("\xFF\xFE"sv) || begins("<\0"sv))
        return {2, false};
    if (begins("\xFE\xFF"sv) || begins("\0<"sv))
        return {2, true};
    return {1, false};
}

/// Whether the declaration names ISO-8859-1, which is also called latin1.
bool isLatin1(std::string_view bytes)
{
    const std::string_view declaration = bytes.substr(0, bytes.find("?>"));
    const std::size_t name = declaration.find("encoding");
    if (!bytes.starts_with("<?xml") || name == std::string_view::npos)
        return false;
    std::string value;
    for (const char c : declaration.substr(name))
        value += static_cast<char>(c >= 'A' && c <= 'Z' ? c - 'A' + 'a' : c);
    return value.find("iso-8859-1") != std::string::npos ||
           value.find("latin1") != std::string::npos;
}

char32_t unitAt(std::string_view bytes, std::size_t at, Encoding encoding)
{
    char32_t unit = 0;
    for (std::size_t i = 0; i < encoding.size; ++i) {
        const std::size_t place = encoding.bigEnd ? i : encoding.size - 1 - i;
        unit = unit << 8U | static_cast<unsigned char>(bytes[at + place]);
    }
    return unit;
}

} // namespace

void appendUtf8(std::string& text, char32_t character)
{
    const auto add = [&](char32_t byte) {
        text += static_cast<char>(static_cast<std::uint8_t>(byte));
    };
    if (character < 0x80) {
        add(character);
        return;
    }
    const unsigned int length = character < 0x800 ? 2 : character < 0x10000 ? 3 : 4;
    add((0xF00U >> length & 0xFFU) | character >> 6U * (length - 1));
    for (unsigned int i = length - 1; i-- > 0;)
        add(0x80U | (character >> 6U * i & 0x3FU));
}

std::string toUtf8(std::string bytes)
{
    const Encoding encoding = encodingOf(bytes);
    if (encoding.size == 1 && !isLatin1(bytes))
        return bytes;
    std::string text;
    for (std::size_t at = 0; at + encoding.size <= bytes.size(); at += encoding.size) {
        char32_t unit = unitAt(bytes, at, encoding);
        const bool leads = encoding.size == 2 && unit >= 0xD800 && unit < 0xDC00;
        if (leads && at + 4 <= bytes.size()) {
            at += 2;
            unit = 0x10000 + ((unit - 0xD800) << 10U) + (unitAt(bytes, at, encoding) - 0xDC00);
        }
        if (unit != 0xFEFF || at != 0)
            appendUtf8(text, unit);
    }
    return text;
}

} // namespace command
