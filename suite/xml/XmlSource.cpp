#include "XmlSource.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <istream>
#include <new>
#include <string>

#include "Pugi.h"
#include "XmlCharacters.h"
#include "XmlScanner.h"

namespace zelsuite::xml
{

void PugiDelete::operator()(char* memory) const
{
    pugi::get_memory_deallocation_function()(memory);
}

namespace
{

std::unique_ptr<char, PugiDelete> allocate(std::size_t size)
{
    std::unique_ptr<char, PugiDelete> memory(
        static_cast<char*>(pugi::get_memory_allocation_function()(size)));
    if (!memory)
        throw std::bad_alloc();
    return memory;
}

Source readAll(std::istream& stream)
{
    if (!stream.good())
        return {};
    // What the stream says to have at hand is the whole of most files and string streams; one byte
    // more lets its end be seen without another buffer. It is only believed within limits.
    constexpr std::streamsize Least = 1 << 16;
    constexpr std::streamsize Most = 1 << 30;
    const std::streamsize atHand = std::clamp(stream.rdbuf()->in_avail(), Least, Most);
    std::size_t capacity = static_cast<std::size_t>(atHand) + 1;
    Source source{allocate(capacity), 0};
    for (;;) {
        stream.read(source.memory.get() + source.size,
                    static_cast<std::streamsize>(capacity - source.size));
        source.size += static_cast<std::size_t>(stream.gcount());
        if (stream.bad())
            return {};
        if (!stream.good())
            return source;
        capacity *= 2;
        auto larger = allocate(capacity);
        std::memcpy(larger.get(), source.memory.get(), source.size);
        source.memory = std::move(larger);
    }
}

enum class Form { Utf8, Utf16Le, Utf16Be, Latin1, Ascii, Unknown };

struct Mark {
    std::string_view bytes;
    Form form;
    bool isByteOrderMark;
};

using namespace std::string_view_literals;

/// How a document in each form may begin; anything else is one byte a character. Without a byte
/// order mark UTF-16 must be declared, so it begins with "<?".
constexpr Mark Marks[] = {
    {"\xEF\xBB\xBF"sv, Form::Utf8,    true },
    {"\xFF\xFE"sv,     Form::Utf16Le, true },
    {"\xFE\xFF"sv,     Form::Utf16Be, true },
    {"<\0?\0"sv,       Form::Utf16Le, false},
    {"\0<\0?"sv,       Form::Utf16Be, false},
};

struct EncodingName {
    std::string_view name;
    Form form;
};

constexpr EncodingName EncodingNames[] = {
    {"UTF-8",      Form::Utf8   },
    {"UTF-16LE",   Form::Utf16Le},
    {"UTF-16BE",   Form::Utf16Be},
    {"ISO-8859-1", Form::Latin1 },
    {"US-ASCII",   Form::Ascii  },
};

bool isSameWord(std::string_view a, std::string_view b)
{
    const auto upper = [](char c) {
        return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    };
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [upper](char x, char y) { return upper(x) == upper(y); });
}

/// The form that a declared encoding stands for, in a document whose bytes look like @p seen.
Form declaredForm(std::string_view encoding, Form seen)
{
    if (encoding.empty())
        return seen;
    if (isSameWord(encoding, "UTF-16"))
        return seen == Form::Utf16Be ? Form::Utf16Be : Form::Utf16Le;
    for (const EncodingName& row : EncodingNames) {
        if (isSameWord(encoding, row.name))
            return row.form;
    }
    return Form::Unknown;
}

/// Takes one character of a text in UTF-16 off its front.
char32_t readUtf16(std::string_view& text, Form form)
{
    const auto unit = [&text, form]() -> char32_t {
        if (text.size() < 2)
            return InvalidCharacter;
        const auto first = static_cast<unsigned char>(text[0]);
        const auto second = static_cast<unsigned char>(text[1]);
        return form == Form::Utf16Le ? static_cast<char32_t>(first | second << 8)
                                     : static_cast<char32_t>(first << 8 | second);
    };
    const char32_t high = unit();
    text.remove_prefix(std::min<std::size_t>(text.size(), 2));
    if (high < 0xD800 || high > 0xDFFF)
        return high;
    const char32_t low = unit();
    if (high > 0xDBFF || low < 0xDC00 || low > 0xDFFF)
        return InvalidCharacter;
    text.remove_prefix(2);
    return 0x10000 + ((high - 0xD800) << 10U) + (low - 0xDC00);
}

/// Brings UTF-16 or ISO-8859-1 to UTF-8, without memory when the text is not of its form.
Source convert(std::string_view text, Form form)
{
    // Two bytes of UTF-16 take up to three of UTF-8, one byte of ISO-8859-1 up to two.
    const std::size_t enough = form == Form::Latin1 ? text.size() * 2 : text.size() / 2 * 3;
    Source result{allocate(enough + 1), 0};
    std::string bytes;
    while (!text.empty()) {
        char32_t character = 0;
        if (form == Form::Latin1) {
            character = static_cast<unsigned char>(text.front());
            text.remove_prefix(1);
        } else {
            character = readUtf16(text, form);
            if (character == InvalidCharacter)
                return {};
        }
        bytes.clear();
        appendCharacter(bytes, character);
        std::memcpy(result.memory.get() + result.size, bytes.data(), bytes.size());
        result.size += bytes.size();
    }
    return result;
}

} // namespace

Source readSource(std::istream& stream)
{
    Source source = readAll(stream);
    if (!source.memory)
        return {};
    Mark seen{{}, Form::Utf8, false};
    for (const Mark& mark : Marks) {
        if (seen.bytes.empty() && source.text().starts_with(mark.bytes))
            seen = mark;
    }
    if (seen.isByteOrderMark) {
        source.size -= seen.bytes.size();
        std::memmove(source.memory.get(), source.memory.get() + seen.bytes.size(), source.size);
    }
    const bool wide = seen.form == Form::Utf16Le || seen.form == Form::Utf16Be;
    if (wide) {
        source = convert(source.text(), seen.form);
        if (!source.memory)
            return {};
    }

    const Declaration declaration = readDeclaration(source.text());
    const Form form = declaredForm(declaration.encoding, seen.form);
    const bool byteForm = !wide && !seen.isByteOrderMark;
    switch (form) {
    case Form::Latin1:
        return byteForm ? convert(source.text(), form) : Source{};
    case Form::Ascii: {
        const std::string_view text = source.text();
        const bool isAscii = std::none_of(
            text.begin(), text.end(), [](char c) { return static_cast<unsigned char>(c) >= 0x80; });
        return byteForm && isAscii ? std::move(source) : Source{};
    }
    default:
        break;
    }
    // Beyond those two, a document must be declared as what its bytes show, and UTF-16 without a
    // byte order mark must be declared.
    const bool declaredOrMarked = !wide || seen.isByteOrderMark || !declaration.encoding.empty();
    return form == seen.form && declaredOrMarked ? std::move(source) : Source{};
}

} // namespace zelsuite::xml
