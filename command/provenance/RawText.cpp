#include <command/provenance/RawText.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <utility>

namespace command
{

namespace
{

using Kind = RawFault::Kind;

bool isBlank(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }

bool isNameCharacter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
           std::string_view("_:-.").find(c) != std::string_view::npos ||
           static_cast<unsigned char>(c) >= 0x80;
}

/// XML 1.0, production Char.
bool isCharacter(std::uint32_t code)
{
    return code == '\t' || code == '\n' || code == '\r' || (code >= 0x20 && code < 0xD800) ||
           (code >= 0xE000 && code < 0xFFFE) || (code >= 0x10000 && code <= 0x10FFFF);
}

std::string hexOf(std::uint32_t number)
{
    std::array<char, 9> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + 8, number, 16).ptr;
    std::string text(digits.data(), end);
    std::ranges::transform(text, text.begin(),
                           [](char c) { return c >= 'a' ? static_cast<char>(c - 32) : c; });
    return text;
}

class Scanner
{
public:
    explicit Scanner(std::string_view text) : text_(text) {}

    std::vector<RawFault> scan()
    {
        scanCharacters();
        if (text_.starts_with("\xEF\xBB\xBF"))
            at_ = 3;
        start_ = at_;
        while (at_ < text_.size()) {
            if (text_[at_] == '<')
                scanMarkup();
            else
                scanText();
        }
        std::ranges::stable_sort(faults_, {}, &RawFault::begin);
        return std::move(faults_);
    }

private:
    void add(Kind kind, std::size_t begin, std::size_t end, std::string message,
             std::string hint = {})
    {
        faults_.push_back({kind, begin, end, std::move(message), std::move(hint)});
    }

    void scanCharacters()
    {
        for (std::size_t at = 0; at < text_.size();) {
            const auto lead = static_cast<unsigned char>(text_[at]);
            const std::size_t length = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
            static constexpr std::uint32_t least[] = {0, 0, 0x80, 0x800, 0x10000};
            std::uint32_t code = length == 1 ? lead : lead & (0x7FU >> length);
            bool isUtf8 = lead < 0x80 || (lead >= 0xC0 && lead < 0xF8);
            for (std::size_t i = 1; i < length && isUtf8; ++i) {
                const auto byte =
                    at + i < text_.size() ? static_cast<unsigned char>(text_[at + i]) : 0U;
                isUtf8 = (byte & 0xC0U) == 0x80;
                code = code << 6U | (byte & 0x3FU);
            }
            isUtf8 = isUtf8 && code >= least[length] && code <= 0x10FFFF &&
                     (code < 0xD800 || code > 0xDFFF);
            if (!isUtf8) {
                std::size_t end = at + 1;
                while (end < text_.size() &&
                       (static_cast<unsigned char>(text_[end]) & 0xC0U) == 0x80)
                    ++end;
                add(Kind::Bytes, at, end, "the byte " + hexOf(lead) + " is no UTF-8",
                    "save the file as UTF-8");
                at = end;
                continue;
            }
            if (!isCharacter(code))
                add(Kind::Character, at, at + length,
                    "the character U+" +
                        std::string(code < 0x10    ? "000"
                                    : code < 0x100 ? "00"
                                                   : "") +
                        hexOf(code) + " may stand in no XML document",
                    "delete it");
            at += length;
        }
    }

    /// Behind the next occurrence of a text, or at the end.
    [[nodiscard]] std::size_t behind(std::string_view closing, std::size_t from) const
    {
        const std::size_t found = text_.find(closing, from);
        return found == std::string_view::npos ? text_.size() : found + closing.size();
    }

    void scanMarkup()
    {
        const std::string_view rest = text_.substr(at_);
        if (rest.starts_with("<!--"))
            scanComment();
        else if (rest.starts_with("<![CDATA["))
            at_ = behind("]]>", at_);
        else if (rest.starts_with("<!"))
            scanDoctype();
        else if (rest.starts_with("<?"))
            scanInstruction();
        else if (rest.starts_with("</"))
            at_ = behind(">", at_);
        else
            scanTag();
    }

    void scanComment()
    {
        const std::size_t end = behind("-->", at_ + 4);
        const std::size_t hyphens = text_.find("--", at_ + 4);
        // In "--->" the two are the last of the comment's own text.
        if (end >= 3 && hyphens + 3 < end && hyphens != std::string_view::npos)
            add(Kind::Comment, hyphens, hyphens + 2, "\"--\" may not stand in a comment",
                "write one hyphen");
        else if (end >= 4 && text_[end - 4] == '-' && end - 4 >= at_ + 4)
            add(Kind::Comment, end - 4, end, "a comment may not end with \"--->\"",
                "write a blank before the end");
        at_ = end;
    }

    void scanDoctype()
    {
        int depth = 0;
        for (; at_ < text_.size(); ++at_) {
            depth += text_[at_] == '[' ? 1 : text_[at_] == ']' ? -1 : 0;
            if (depth <= 0 && text_[at_] == '>')
                break;
        }
        ++at_;
    }

    void scanInstruction()
    {
        const std::size_t begin = at_;
        at_ = behind("?>", at_);
        const std::string_view body = text_.substr(begin, at_ - begin);
        if (!body.starts_with("<?xml") || body.size() < 6 || isNameCharacter(body[5]))
            return;
        if (begin != start_)
            add(Kind::Declaration, begin, begin + 5,
                "the XML declaration does not stand at the begin of the file",
                "move it to the first line");
        const std::size_t name = body.find("encoding");
        if (name == std::string_view::npos)
            return;
        const std::size_t open = body.find_first_of("\"'", name);
        if (open == std::string_view::npos)
            return;
        const std::size_t close = body.find(body[open], open + 1);
        std::string value(body.substr(open + 1, close - open - 1));
        std::ranges::transform(value, value.begin(), [](char c) {
            return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        });
        static constexpr std::string_view known[] = {"utf-8",    "us-ascii", "iso-8859-1", "latin1",
                                                     "utf-16",   "utf-16le", "utf-16be",   "utf-32",
                                                     "utf-32le", "utf-32be"};
        if (std::ranges::find(known, value) == std::end(known))
            add(Kind::Declaration, begin + open + 1, begin + close,
                "the library does not know the encoding \"" + value + "\" and reads UTF-8",
                "save the file as UTF-8, and declare that");
    }

    void scanTag()
    {
        ++at_;
        while (at_ < text_.size() && isNameCharacter(text_[at_]))
            ++at_;
        std::vector<std::string_view> names;
        while (at_ < text_.size() && text_[at_] != '>') {
            const std::size_t begin = at_;
            while (at_ < text_.size() && isNameCharacter(text_[at_]))
                ++at_;
            if (at_ == begin) {
                ++at_; // a blank, or the "/" of an empty element
                continue;
            }
            scanAttribute(text_.substr(begin, at_ - begin), begin, names);
        }
        ++at_;
    }

    void scanAttribute(std::string_view name, std::size_t begin,
                       std::vector<std::string_view>& names)
    {
        if (std::ranges::find(names, name) != names.end())
            add(Kind::Attribute, begin, at_,
                "the attribute " + std::string(name) + " stands twice; the first one counts",
                "delete one");
        names.push_back(name);
        while (at_ < text_.size() && (isBlank(text_[at_]) || text_[at_] == '='))
            ++at_;
        if (at_ >= text_.size() || (text_[at_] != '"' && text_[at_] != '\''))
            return; // the parser refuses this
        const char quote = text_[at_++];
        for (; at_ < text_.size() && text_[at_] != quote; ++at_) {
            if (text_[at_] == '<')
                add(Kind::Attribute, at_, at_ + 1, "\"<\" may not stand in an attribute",
                    "write &lt;");
            else if (text_[at_] == '&')
                checkReference(at_);
        }
        ++at_;
    }

    void scanText()
    {
        for (; at_ < text_.size() && text_[at_] != '<'; ++at_) {
            if (text_[at_] == '&')
                checkReference(at_);
            else if (text_.substr(at_, 3) == "]]>")
                add(Kind::Section, at_, at_ + 3, "\"]]>\" may not stand in a text", "write ]]&gt;");
        }
    }

    void checkReference(std::size_t at)
    {
        std::size_t end = at + 1;
        while (end < text_.size() && (isNameCharacter(text_[end]) || text_[end] == '#'))
            ++end;
        const std::string_view name = text_.substr(at + 1, end - at - 1);
        if (name.empty() || end >= text_.size() || text_[end] != ';') {
            add(Kind::Reference, at, at + 1, "a bare \"&\"", "write &amp;");
            return;
        }
        static constexpr std::string_view known[] = {"amp", "lt", "gt", "quot", "apos"};
        if (std::ranges::find(known, name) != std::end(known))
            return;
        if (!name.starts_with('#')) {
            add(Kind::Reference, at, end + 1,
                "no document can know \"&" + std::string(name) + ";\": it stays as it stands",
                "write the character itself");
            return;
        }
        const bool isHex = name.starts_with("#x");
        const std::string_view digits = name.substr(isHex ? 2 : 1);
        std::uint32_t code = 0;
        const auto read =
            std::from_chars(digits.data(), digits.data() + digits.size(), code, isHex ? 16 : 10);
        if (read.ec != std::errc{} || read.ptr != digits.data() + digits.size() ||
            !isCharacter(code))
            add(Kind::Reference, at, end + 1,
                "\"&" + std::string(name) + ";\" is no character that XML allows", "delete it");
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::size_t start_ = 0;
    std::vector<RawFault> faults_;
};

} // namespace

std::vector<RawFault> findRawFaults(std::string_view text) { return Scanner(text).scan(); }

} // namespace command
