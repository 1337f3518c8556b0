#include <command/check/Report.h>

#include <algorithm>
#include <sstream>
#include <tuple>
#include <utility>

#include <command/check/Rules.h>

namespace command
{

namespace
{

std::string trimmed(const std::string& text)
{
    const std::size_t begin = text.find_first_not_of(" \t\r\n");
    return begin == std::string::npos
               ? ""
               : text.substr(begin, text.find_last_not_of(" \t\r\n") - begin + 1);
}

} // namespace

std::vector<Acceptance> acceptancesOf(const Element& element)
{
    std::vector<Acceptance> parts;
    std::istringstream text{std::string(element.get("ACCEPTED"))};
    for (std::string part; std::getline(text, part, ';');) {
        const std::size_t colon = std::min(part.find(':'), part.size());
        parts.push_back({trimmed(part.substr(0, colon)),
                         colon < part.size() ? trimmed(part.substr(colon + 1)) : ""});
    }
    return parts;
}

void Report::add(const Document& document, const Element* around, std::size_t begin,
                 std::size_t end, std::string message, std::string hint)
{
    const Position position = document.positionOf(begin);
    const Position last = document.positionOf(end);
    std::string line(document.lineText(position.line));
    if (position.line == 1 && line.starts_with("\xEF\xBB\xBF"))
        line.erase(0, 3);
    Finding finding;
    finding.severity = rule_->severity;
    finding.rule = rule_->name;
    finding.message = std::move(message);
    finding.place = {document.path(), position.line, position.column};
    // What goes on in the next line is marked to the end of this one.
    const std::size_t width = widthOf(line) + 1 - std::min(position.column, widthOf(line) + 1);
    finding.length = std::max<std::size_t>(
        1, last.line == position.line ? last.column - position.column : width);
    finding.snippet = line;
    finding.hint = std::move(hint);
    for (const Element* at = around; at; at = at->parent)
        for (const Acceptance& part : acceptancesOf(*at))
            if (part.rule == rule_->name && !part.reason.empty()) {
                used_.emplace_back(at, part.rule);
                accepted_.push_back({std::move(finding), part.reason});
                return;
            }
    const auto isSame = [&](const Finding& other) {
        return other.place.file == finding.place.file && other.place.line == finding.place.line &&
               other.place.column == finding.place.column && other.rule == finding.rule &&
               other.message == finding.message;
    };
    if (std::ranges::none_of(findings_, isSame))
        findings_.push_back(std::move(finding));
}

void Report::atText(const Element& element, std::string message, std::string hint)
{
    if (element.text.empty())
        return atTag(element, std::move(message), std::move(hint));
    std::size_t end =
        std::min(element.document->text().find('<', element.textAt), element.contentEnd);
    while (end > element.textAt + 1 &&
           std::string_view(" \t\r\n").find(element.document->text()[end - 1]) !=
               std::string_view::npos)
        --end;
    add(*element.document, &element, element.textAt, end, std::move(message), std::move(hint));
}

void Report::atTag(const Element& element, std::string message, std::string hint)
{
    add(*element.document, &element, element.begin, element.begin + 1 + element.name.size(),
        std::move(message), std::move(hint));
}

void Report::atValue(const Element& element, std::string_view attribute, std::string message,
                     std::string hint)
{
    const Attribute* found = element.attribute(attribute);
    if (!found || found->value.empty())
        return atTag(element, std::move(message), std::move(hint));
    const std::string& text = element.document->text();
    add(*element.document, &element, found->valueAt,
        text.find(text[found->valueAt - 1], found->valueAt), std::move(message), std::move(hint));
}

bool Report::hasUsed(const Element& element, std::string_view rule) const
{
    return std::ranges::any_of(
        used_, [&](const auto& use) { return use.first == &element && use.second == rule; });
}

void Report::sort(const std::vector<std::string>& paths)
{
    const auto key = [&](const Finding& finding) {
        return std::tuple(std::ranges::find(paths, finding.place.file) - paths.begin(),
                          finding.place.line, finding.place.column);
    };
    std::ranges::stable_sort(findings_, {}, key);
    std::ranges::stable_sort(accepted_, {}, [&](const Accepted& a) { return key(a.finding); });
}

} // namespace command
