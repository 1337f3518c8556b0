#include <command/answer/Answer.h>

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace command
{

namespace
{

constexpr Mark marks[] = {
    {'!', "differs",    "differs from "                                   },
    {'i', "inherited",  "inherited from EC, not confirmed for the code"   },
    {'c', "convention", "a convention of this data set"                   },
    {'s', "safer",      "on the safe side, not compared with the standard"},
    {'o', "office",     "the office's own value"                          },
};

} // namespace

Section& Answer::section(std::string title)
{
    Section& added = sections.emplace_back();
    if (!title.empty())
        added.title.push_back(std::move(title));
    return added;
}

void Answer::note(std::string text)
{
    if (std::ranges::find(notes, text) == notes.end())
        notes.push_back(std::move(text));
}

const Mark* findMark(char sign)
{
    const auto* found = std::ranges::find(marks, sign, &Mark::sign);
    return found == std::end(marks) ? nullptr : found;
}

bool restsOnUnconfirmed(const Answer& answer)
{
    const auto isUnconfirmed = [](const Cell& cell) {
        return cell.marks.find_first_of("ics") != std::string::npos;
    };
    return std::ranges::any_of(answer.sections, [&](const Section& section) {
        if (section.table && std::ranges::any_of(section.table->rows, [&](const auto& row) {
                return std::ranges::any_of(row, isUnconfirmed);
            }))
            return true;
        // Of a chain the last step is the value.
        return !section.chain.empty() && isUnconfirmed(section.chain.back().value);
    });
}

std::string numberText(double number, int decimals)
{
    std::array<char, 400> text{};
    char* const end = text.data() + text.size();
    const auto shortest = std::to_chars(text.data(), end, number, std::chars_format::fixed);
    const std::string_view exact(text.data(), static_cast<std::size_t>(shortest.ptr - text.data()));
    const std::size_t point = exact.find('.');
    const auto own =
        point == std::string_view::npos ? 0 : static_cast<int>(exact.size() - point - 1);
    if (own > decimals)
        return std::string(exact);
    const auto written =
        std::to_chars(text.data(), end, number, std::chars_format::fixed, decimals);
    return {text.data(), written.ptr};
}

std::size_t widthOf(const std::string& text)
{
    return static_cast<std::size_t>(std::ranges::count_if(
        text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80; }));
}

} // namespace command
