#include "XmlCharacters.h"

#include <algorithm>
#include <iterator>

namespace zelsuite::xml
{

namespace
{

struct Range {
    char32_t first, last;
};

/// Characters with which a name may begin (XML 1.0, production 4).
constexpr Range NameStart[] = {
    {':',     ':'    },
    {'A',     'Z'    },
    {'_',     '_'    },
    {'a',     'z'    },
    {0xC0,    0xD6   },
    {0xD8,    0xF6   },
    {0xF8,    0x2FF  },
    {0x370,   0x37D  },
    {0x37F,   0x1FFF },
    {0x200C,  0x200D },
    {0x2070,  0x218F },
    {0x2C00,  0x2FEF },
    {0x3001,  0xD7FF },
    {0xF900,  0xFDCF },
    {0xFDF0,  0xFFFD },
    {0x10000, 0xEFFFF},
};

/// Those that may only follow (production 4a).
constexpr Range NameRest[] = {
    {'-',    '.'   },
    {'0',    '9'   },
    {0xB7,   0xB7  },
    {0x300,  0x36F },
    {0x203F, 0x2040},
};

template <std::size_t Count> bool isIn(const Range (&ranges)[Count], char32_t character)
{
    return std::any_of(std::begin(ranges), std::end(ranges), [character](const Range& range) {
        return range.first <= character && character <= range.last;
    });
}

} // namespace

char32_t readCharacter(std::string_view& text)
{
    const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    std::size_t length = 1;
    char32_t character = lead;
    char32_t least = 0;
    if (lead >= 0xF0 && lead <= 0xF4) {
        length = 4;
        character = lead & 0x07U;
        least = 0x10000;
    } else if (lead >= 0xE0 && lead <= 0xEF) {
        length = 3;
        character = lead & 0x0FU;
        least = 0x800;
    } else if (lead >= 0xC2 && lead <= 0xDF) {
        length = 2;
        character = lead & 0x1FU;
    } else if (lead >= 0x80) {
        character = InvalidCharacter;
    }
    bool valid = length <= text.size();
    for (std::size_t i = 1; valid && i < length; ++i) {
        valid = (byte(i) & 0xC0U) == 0x80;
        character = (character << 6U) | (byte(i) & 0x3FU);
    }
    if (length > 1 && (!valid || character < least || character > 0x10FFFF ||
                       (character >= 0xD800 && character <= 0xDFFF))) {
        length = 1;
        character = InvalidCharacter;
    }
    text.remove_prefix(length);
    return character;
}

void appendCharacter(std::string& text, char32_t character)
{
    const auto append = [&text](char32_t byte) {
        text += static_cast<char>(static_cast<unsigned char>(byte));
    };
    if (character < 0x80) {
        append(character);
    } else if (character < 0x800) {
        append(0xC0U | (character >> 6U));
        append(0x80U | (character & 0x3FU));
    } else if (character < 0x10000) {
        append(0xE0U | (character >> 12U));
        append(0x80U | ((character >> 6U) & 0x3FU));
        append(0x80U | (character & 0x3FU));
    } else {
        append(0xF0U | (character >> 18U));
        append(0x80U | ((character >> 12U) & 0x3FU));
        append(0x80U | ((character >> 6U) & 0x3FU));
        append(0x80U | (character & 0x3FU));
    }
}

bool isXmlCharacter(char32_t character)
{
    if (character < 0x20)
        return character == '\t' || character == '\n' || character == '\r';
    return character <= 0xD7FF || (character >= 0xE000 && character <= 0xFFFD) ||
           (character >= 0x10000 && character <= 0x10FFFF);
}

bool isXmlText(std::string_view text)
{
    while (!text.empty()) {
        if (text.front() >= 0x20 && text.front() <= 0x7E)
            text.remove_prefix(1);
        else if (!isXmlCharacter(readCharacter(text)))
            return false;
    }
    return true;
}

std::string toXmlText(std::string_view text)
{
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const char32_t character = readCharacter(text);
        appendCharacter(result, isXmlCharacter(character) ? character : U'\uFFFD');
    }
    return result;
}

std::size_t nameLength(std::string_view text)
{
    std::string_view rest = text;
    std::size_t length = 0;
    while (!rest.empty()) {
        const char32_t character = readCharacter(rest);
        if (!isIn(NameStart, character) && (length == 0 || !isIn(NameRest, character)))
            break;
        length = text.size() - rest.size();
    }
    return length;
}

} // namespace zelsuite::xml
