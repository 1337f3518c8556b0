#include "XmlText.h"

namespace zelsuite::xml
{

namespace
{

/// Takes a character off the front of a text that is not empty, or one byte of what is not UTF-8.
/// @return 0 for what XML cannot hold
char32_t takeCharacter(std::string_view& text)
{
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) {
        text.remove_prefix(1);
        return lead >= 0x20 || lead == '\t' || lead == '\n' || lead == '\r' ? lead : 0;
    }
    const std::size_t length = lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
    constexpr char32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
    char32_t character = lead & (0x7FU >> length);
    bool isUtf8 = lead >= 0xC0 && lead < 0xF8 && length <= text.size();
    for (std::size_t i = 1; isUtf8 && i < length; ++i) {
        isUtf8 = (byte(i) & 0xC0U) == 0x80;
        character = character << 6U | (byte(i) & 0x3FU);
    }
    isUtf8 = isUtf8 && character >= least[length] && character <= 0x10FFFF &&
             (character < 0xD800 || character > 0xDFFF);
    text.remove_prefix(isUtf8 ? length : 1);
    return !isUtf8 || character == 0xFFFE || character == 0xFFFF ? 0 : character;
}

} // namespace

bool isName(std::string_view text)
{
    unsigned int all = 0;
    for (const char& c : text) {
        const auto byte = static_cast<unsigned char>(c);
        const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || byte > 0x7F;
        const bool isLater = (c >= '0' && c <= '9') || c == '-' || c == '.';
        if (!isLetter && c != '_' && c != ':' && (&c == text.data() || !isLater))
            return false;
        all |= byte;
    }
    std::string changed;
    return !text.empty() && (all <= 0x7F || toXmlText(text, changed).data() == text.data());
}

std::string_view toXmlText(std::string_view text, std::string& changed)
{
    const char* kept = text.data(); // what stands before it is in changed
    std::string_view rest = text;
    while (!rest.empty()) {
        const char* const here = rest.data();
        if (takeCharacter(rest) == 0) {
            changed.append(kept, here).append("\xEF\xBF\xBD");
            kept = rest.data();
        }
    }
    return kept == text.data() ? text : changed.append(kept, rest.data());
}

} // namespace zelsuite::xml
