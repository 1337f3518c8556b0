#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <string_view>

namespace Standard
{

/// A table of words, searched both ways. All of it is made by the compiler, so there is nothing to
/// fill at run time.
///
/// @param rows a later row of a word replaces an earlier one
/// @param unknown the value of every other word
template <const auto& rows, int unknown> class Words
{
public:
    using Row = std::remove_cvref_t<decltype(rows[0])>;
    using Value = decltype(Row::value);

    /// The row of a word, byte for byte; null for any other text.
    static constexpr const Row* find(std::string_view word)
    {
        for (std::size_t at = hash(word);; ++at) {
            const Slot slot = slots[at % slots.size()];
            if (slot.row == none)
                return nullptr;
            if (word == std::string_view(rows[slot.row].word, slot.length))
                return &rows[slot.row];
        }
    }

    static constexpr Value value(std::string_view word)
    {
        const Row* row = find(word);
        return row ? row->value : static_cast<Value>(unknown);
    }

    /// The alphabetically first word of a value; null for a value without one.
    static constexpr const char* text(Value value)
    {
        const auto index =
            static_cast<std::size_t>(static_cast<int>(value)) - static_cast<std::size_t>(lowest);
        return index < firstRows.size() && firstRows[index] != none ? rows[firstRows[index]].word
                                                                    : nullptr;
    }

    /// As text(), but "-" for a value without a word; one pointer for each word.
    static constexpr const char* word(Value value)
    {
        const char* found = text(value);
        return found ? found : noWord;
    }

private:
    static constexpr std::uint8_t none = 0xFF;

    /// The table's own "-" if it has one, so that a word has one pointer.
    static constexpr const char* noWord = [] {
        for (const Row& row : rows)
            if (std::string_view(row.word) == "-")
                return row.word;
        return "-";
    }();

    /// Rows by number: the tables hold no addresses, which a loader would have to fill in.
    struct Slot {
        std::uint8_t row = none;
        std::uint8_t length = 0;
    };

    /// The length and five characters tell the words of all tables well apart.
    static constexpr std::size_t hash(std::string_view word)
    {
        const std::size_t size = word.size();
        const auto at = [&](std::size_t index) {
            return index < size ? static_cast<unsigned char>(word[index]) : 0U;
        };
        return size * 7 + at(0) * 31 + at(size / 2) * 5 + at(size - 1) * 13 + at(size - 2) * 61 +
               at(size - 3) * 3;
    }

    static constexpr auto slots = [] {
        std::array<Slot, std::bit_ceil(std::size(rows) * 2 + 1)> result{};
        for (std::size_t row = 0; row < std::size(rows); ++row) {
            const std::string_view word = rows[row].word;
            std::size_t at = hash(word);
            while (result[at % result.size()].row != none &&
                   rows[result[at % result.size()].row].word != word)
                ++at;
            result[at % result.size()] = {static_cast<std::uint8_t>(row),
                                          static_cast<std::uint8_t>(word.size())};
        }
        return result;
    }();

    static constexpr int lowest =
        static_cast<int>(std::ranges::min_element(rows, {}, [](const Row& r) {
                             return static_cast<int>(r.value);
                         })->value);
    static constexpr int highest =
        static_cast<int>(std::ranges::max_element(rows, {}, [](const Row& r) {
                             return static_cast<int>(r.value);
                         })->value);

    static constexpr auto firstRows = [] {
        std::array<std::uint8_t, highest - lowest + 1> result{};
        result.fill(none);
        for (const Slot slot : slots) {
            if (slot.row == none)
                continue;
            auto& first =
                result[static_cast<std::size_t>(static_cast<int>(rows[slot.row].value) - lowest)];
            if (first == none || std::string_view(rows[slot.row].word) < rows[first].word)
                first = slot.row;
        }
        return result;
    }();

    static_assert(std::size(rows) < none);
};

/// The text of a value's row; 0 for a value that has none.
template <const auto& rows, class Value> constexpr unsigned int textIdOf(Value value)
{
    const auto* row =
        std::ranges::find(rows, value, &std::remove_cvref_t<decltype(rows[0])>::value);
    return row == std::end(rows) ? 0 : row->textId;
}

} // namespace Standard
