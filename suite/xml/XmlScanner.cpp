#include "XmlScanner.h"

#include "XmlCharacters.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zelsuite::xml
{

namespace
{

constexpr std::string_view White = " \t\r\n";

bool isWhite(char c) { return White.find(c) != std::string_view::npos; }

/// The document from the place that has been reached. The functions that read something go past it
/// and are true when it was there and well formed; after false the place is of no use any more.
class Scanner
{
public:
    explicit Scanner(std::string_view text) : rest_(text) {}

    [[nodiscard]] std::string_view rest() const { return rest_; }
    [[nodiscard]] bool atEnd() const { return rest_.empty(); }

    bool literal(std::string_view expected)
    {
        if (!rest_.starts_with(expected))
            return false;
        rest_.remove_prefix(expected.size());
        return true;
    }

    /// True when there was any white space.
    bool white()
    {
        std::size_t count = 0;
        while (count < rest_.size() && isWhite(rest_[count]))
            ++count;
        rest_.remove_prefix(count);
        return count > 0;
    }

    /// Goes past the next occurrence.
    bool upTo(std::string_view end)
    {
        const std::size_t found = rest_.find(end);
        if (found == std::string_view::npos)
            return false;
        rest_.remove_prefix(found + end.size());
        return true;
    }

    bool name()
    {
        const std::size_t length = nameLength(rest_);
        rest_.remove_prefix(length);
        return length > 0;
    }

    /// A text between two quotation marks of a kind, given without them.
    bool quoted(std::string_view& value)
    {
        if (rest_.empty() || (rest_.front() != '"' && rest_.front() != '\''))
            return false;
        const std::size_t end = rest_.find(rest_.front(), 1);
        if (end == std::string_view::npos)
            return false;
        value = rest_.substr(1, end - 1);
        rest_.remove_prefix(end + 1);
        return true;
    }

    /// White space, the name, "=" and a quoted value: one part of an XML declaration.
    bool declared(std::string_view name, std::string_view& value)
    {
        if (!white() || !literal(name))
            return false;
        white();
        if (!literal("="))
            return false;
        white();
        return quoted(value);
    }

    /// From behind "<!--"; two hyphens may only end it.
    bool comment() { return upTo("--") && literal(">"); }

    /// From behind "<?".
    bool instruction()
    {
        const std::string_view target = rest_.substr(0, nameLength(rest_));
        const bool reserved = target.size() == 3 && (target[0] | 0x20) == 'x' &&
                              (target[1] | 0x20) == 'm' && (target[2] | 0x20) == 'l';
        return !reserved && name() && (literal("?>") || (white() && upTo("?>")));
    }

    /// White space, comments and processing instructions.
    bool miscellany()
    {
        for (;;) {
            white();
            if (literal("<!--")) {
                if (!comment())
                    return false;
            } else if (literal("<?")) {
                if (!instruction())
                    return false;
            } else {
                return true;
            }
        }
    }

    /// From behind "<!DOCTYPE" to behind its ">". Its declarations are passed over; only what is
    /// needed to find its end is looked at.
    bool doctype()
    {
        if (!white() || !name())
            return false;
        std::string_view ignored;
        while (!atEnd()) {
            if (literal(">"))
                return true;
            if (literal("[")) {
                if (!internalSubset())
                    return false;
                white();
                return literal(">");
            }
            if (rest_.front() == '"' || rest_.front() == '\'') {
                if (!quoted(ignored))
                    return false;
            } else if (!white() && !name()) {
                return false;
            }
        }
        return false;
    }

    /// One element with all that it holds.
    bool element()
    {
        int depth = 0;
        do {
            if (literal("</")) {
                if (!name())
                    return false;
                white();
                if (!literal(">"))
                    return false;
                --depth;
            } else if (depth > 0 && literal("<!--")) {
                if (!comment())
                    return false;
            } else if (depth > 0 && literal("<![CDATA[")) {
                if (!upTo("]]>"))
                    return false;
            } else if (depth > 0 && literal("<?")) {
                if (!instruction())
                    return false;
            } else if (!startTag(depth)) {
                return false;
            }
            if (depth > 0 && !characterData())
                return false;
        } while (depth > 0);
        return depth == 0;
    }

    void allowEntities() { entitiesAllowed_ = true; }

private:
    bool startTag(int& depth)
    {
        if (depth == DeepestElement || !literal("<") || !name())
            return false;
        for (;;) {
            const bool separated = white();
            if (literal(">")) {
                ++depth;
                return true;
            }
            if (literal("/>"))
                return true;
            if (!separated || !attribute())
                return false;
        }
    }

    bool attribute()
    {
        if (!name())
            return false;
        white();
        if (!literal("="))
            return false;
        white();
        std::string_view value;
        return quoted(value) && value.find('<') == std::string_view::npos && references(value);
    }

    /// Text up to the next "<", which must come.
    bool characterData()
    {
        const std::size_t end = rest_.find('<');
        if (end == std::string_view::npos)
            return false;
        const std::string_view text = rest_.substr(0, end);
        rest_.remove_prefix(end);
        return text.find("]]>") == std::string_view::npos && references(text);
    }

    /// Each "&" of the text must begin a reference.
    [[nodiscard]] bool references(std::string_view text) const
    {
        for (std::size_t at = text.find('&'); at != std::string_view::npos; at = text.find('&')) {
            text.remove_prefix(at + 1);
            const std::size_t end = text.find(';');
            if (end == std::string_view::npos || !reference(text.substr(0, end)))
                return false;
            text.remove_prefix(end + 1);
        }
        return true;
    }

    [[nodiscard]] bool reference(std::string_view name) const
    {
        constexpr std::array<std::string_view, 5> Known = {"amp", "lt", "gt", "quot", "apos"};
        if (!name.starts_with('#')) {
            return std::find(Known.begin(), Known.end(), name) != Known.end() ||
                   (entitiesAllowed_ && isName(name));
        }
        const bool hexadecimal = name.starts_with("#x");
        name.remove_prefix(hexadecimal ? 2 : 1);
        unsigned int character = 0;
        const char* end = name.data() + name.size();
        const auto read = std::from_chars(name.data(), end, character, hexadecimal ? 16 : 10);
        return read.ec == std::errc{} && read.ptr == end && isXmlCharacter(character);
    }

    /// From behind "[" to behind "]".
    bool internalSubset()
    {
        while (miscellany()) {
            if (literal("]"))
                return true;
            if (literal("%")) {
                if (!name() || !literal(";"))
                    return false;
            } else if (!literal("<!") || !name() || !markupDeclaration()) {
                return false;
            }
        }
        return false;
    }

    /// The rest of "<!ENTITY ... >" and its like, in which ">" may stand between quotation marks.
    bool markupDeclaration()
    {
        std::string_view ignored;
        for (;;) {
            const std::size_t next = rest_.find_first_of("\"'<>");
            if (next == std::string_view::npos)
                return false;
            rest_.remove_prefix(next);
            if (literal(">"))
                return true;
            if (!quoted(ignored))
                return false;
        }
    }

    std::string_view rest_;
    bool entitiesAllowed_ = false;
};

bool isVersion(std::string_view version)
{
    return version.size() > 2 && version.starts_with("1.") &&
           version.find_first_not_of("0123456789", 2) == std::string_view::npos;
}

} // namespace

Declaration readDeclaration(std::string_view document)
{
    Declaration result;
    Scanner scanner(document);
    if (!scanner.literal("<?xml") || scanner.atEnd() || !isWhite(scanner.rest().front()))
        return result;
    result.valid = false;
    std::string_view version;
    if (!scanner.declared("version", version) || !isVersion(version))
        return result;
    Scanner ahead = scanner;
    if (ahead.declared("encoding", result.encoding)) {
        if (result.encoding.empty())
            return result;
        scanner = ahead;
    }
    ahead = scanner;
    std::string_view standalone;
    if (ahead.declared("standalone", standalone)) {
        if (standalone != "yes" && standalone != "no")
            return result;
        scanner = ahead;
    }
    scanner.white();
    result.valid = scanner.literal("?>");
    result.length = document.size() - scanner.rest().size();
    return result;
}

bool isWellFormed(std::string_view document)
{
    const Declaration declaration = readDeclaration(document);
    if (!declaration.valid || !isXmlText(document))
        return false;
    Scanner scanner(document.substr(declaration.length));
    if (!scanner.miscellany())
        return false;
    if (scanner.literal("<!DOCTYPE")) {
        scanner.allowEntities();
        if (!scanner.doctype() || !scanner.miscellany())
            return false;
    }
    return scanner.element() && scanner.miscellany() && scanner.atEnd();
}

} // namespace zelsuite::xml
