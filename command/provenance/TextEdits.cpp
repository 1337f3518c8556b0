#include <command/provenance/TextEdits.h>

#include <algorithm>
#include <utility>

namespace command
{

namespace
{

/// The blanks in front of the element in its line.
std::string indentationOf(const Element& element)
{
    const std::string_view line = element.document->lineText(element.position().line);
    return std::string(line.substr(0, line.find_first_not_of(" \t")));
}

/// The text with the line ends of the document.
std::string withLineEnds(const Document& document, const std::string& text)
{
    if (document.text().find("\r\n") == std::string::npos)
        return text;
    std::string result;
    for (const char c : text)
        result += c == '\n' ? "\r\n" : std::string(1, c);
    return result;
}

} // namespace

void TextEdits::replace(std::size_t begin, std::size_t end, std::string text)
{
    edits_.push_back({begin, end, std::move(text)});
}

std::size_t TextEdits::endOf(const Attribute& attribute) const
{
    const std::string& text = document_.text();
    return text.find(text[attribute.valueAt - 1], attribute.valueAt);
}

void TextEdits::replaceValue(const Attribute& attribute, std::string text)
{
    replace(attribute.valueAt, endOf(attribute), std::move(text));
}

void TextEdits::remove(const Attribute& attribute)
{
    const std::size_t blanks = document_.text().find_last_not_of(" \t\r\n", attribute.nameAt - 1);
    replace(blanks + 1, endOf(attribute) + 1, "");
}

void TextEdits::append(const Element& element, const std::string& text)
{
    appendLines(element, withLineEnds(document_, text));
}

void TextEdits::appendLines(const Element& element, const std::string& text)
{
    const std::string newLine = document_.text().find("\r\n") == std::string::npos ? "\n" : "\r\n";
    const std::string indentation = indentationOf(element);
    const std::string line = newLine + indentation + "  " + text;
    if (!element.isEmptyTag()) {
        // Behind the last child, so that the end tag keeps its line.
        const std::size_t at =
            element.children.empty() ? element.contentBegin : element.children.back()->end;
        replace(at, at, element.children.empty() ? line + newLine + indentation : line);
        return;
    }
    // "<A/>" becomes "<A>...</A>"; a second text goes between them.
    const auto opened = std::ranges::find(edits_, element.end - 2, &Edit::begin);
    if (opened != edits_.end()) {
        opened->text.insert(opened->text.rfind(newLine + indentation + "</"), line);
        return;
    }
    replace(element.end - 2, element.end,
            ">" + line + newLine + indentation + "</" + std::string(element.name) + ">");
}

std::string TextEdits::apply() const { return apply(0, document_.text().size()); }

std::string TextEdits::apply(std::size_t begin, std::size_t end) const
{
    std::vector<Edit> edits = edits_;
    std::ranges::stable_sort(edits, {}, &Edit::begin);
    std::string result;
    std::size_t at = begin;
    for (const Edit& edit : edits) {
        result.append(document_.text(), at, edit.begin - at).append(edit.text);
        at = edit.end;
    }
    return result.append(document_.text(), at, end - at);
}

} // namespace command
