#include <algorithm>
#include <ostream>
#include <string_view>

#include <command/answer/Answer.h>

namespace command
{

namespace
{

constexpr std::size_t pageWidth = 100;

std::string padded(const std::string& text, std::size_t width)
{
    const std::size_t has = widthOf(text);
    return has < width ? text + std::string(width - has, ' ') : text;
}

std::string padding(std::size_t width, std::size_t has)
{
    return std::string(width > has ? width - has : 0, ' ');
}

/// How wide the parts of a column are. Numbers stand by their decimal points, and their marks
/// behind them.
struct Layout {
    std::size_t before = 0; ///< the point, of numbers
    std::size_t behind = 0; ///< the point and the decimals
    std::size_t text = 0;   ///< of title and texts, without marks
    std::size_t marks = 0;
    bool isNumeric = false;

    [[nodiscard]] std::size_t width() const { return std::max(text, before + behind); }
};

std::size_t pointOf(const std::string& number) { return std::min(number.find('.'), number.size()); }

std::string shown(const Cell& cell)
{
    return cell.number ? numberText(*cell.number, cell.decimals) : cell.text;
}

Layout layoutOf(const Table& table, std::size_t column)
{
    Layout layout;
    layout.text = widthOf(table.columns[column].title);
    // What stands in the place of numbers stands where they would.
    layout.isNumeric = !table.rows.empty() && std::ranges::all_of(table.rows, [&](const auto& row) {
        return row[column].text == "-";
    });
    for (const auto& row : table.rows) {
        const Cell& cell = row[column];
        const std::string text = shown(cell);
        layout.marks = std::max(layout.marks, cell.marks.size());
        if (cell.number) {
            layout.isNumeric = true;
            layout.before = std::max(layout.before, pointOf(text));
            layout.behind = std::max(layout.behind, text.size() - pointOf(text));
        } else {
            layout.text = std::max(layout.text, widthOf(text));
        }
    }
    return layout;
}

class TextPrinter
{
public:
    TextPrinter(std::ostream& out, bool coloured) : out_(out), coloured_(coloured) {}

    void print(const Answer& answer)
    {
        bool isFirst = true;
        for (const Section& section : answer.sections) {
            if (!isFirst && !section.title.empty())
                out_ << '\n';
            isFirst = false;
            print(section);
        }
        for (const Finding& finding : answer.findings)
            print(finding);
        for (const char sign : legend_)
            if (const Mark* mark = findMark(sign))
                out_ << "  " << paint(std::string(1, sign), "33") << ' ' << mark->text
                     << (sign == '!' ? answer.comparedWith : "") << '\n';
        for (const std::string& note : answer.notes)
            wrap(note);
        if (!answer.more.empty())
            out_ << "more: " << answer.more << '\n';
    }

private:
    void print(const Section& section)
    {
        for (const std::string& title : section.title)
            for (const std::string& line : broken(title, pageWidth))
                out_ << paint(line, "1") << '\n';
        if (section.table)
            print(*section.table);
        print(section.chain);
        for (const std::string& line : section.lines)
            wrap(line);
    }

    void print(Table table)
    {
        std::vector<Layout> layouts;
        for (std::size_t i = 0; i < table.columns.size(); ++i)
            layouts.push_back(layoutOf(table, i));
        const auto width = [&] {
            std::size_t sum = 0;
            for (std::size_t i = 0; i < layouts.size(); ++i)
                if (!table.columns[i].hidden)
                    sum += layouts[i].width() + layouts[i].marks + 2;
            return sum;
        };
        for (Column& column : table.columns)
            if (column.droppable && width() > pageWidth + 2)
                column.hidden = true;
        printTitles(table, layouts);
        // Words in the last column are broken where the table would become too wide.
        const std::size_t last = layouts.size() - 1;
        const std::size_t begin = width() - layouts[last].width() - layouts[last].marks - 2;
        const bool breaks = width() > pageWidth + 2 && !layouts[last].isNumeric &&
                            !table.columns[last].hidden && begin + 20 < pageWidth;
        for (auto row : table.rows) {
            std::vector<std::string> parts = {""};
            if (breaks)
                parts = broken(row[last].text, pageWidth - begin);
            if (breaks)
                row[last].text = parts.front();
            std::string line;
            for (std::size_t i = 0; i < row.size(); ++i)
                if (!table.columns[i].hidden)
                    addCell(row[i], layouts[i], line);
            putLine(line);
            for (std::size_t i = 1; i < parts.size(); ++i)
                putLine(std::string(begin, ' ') + parts[i]);
        }
    }

    void printTitles(const Table& table, const std::vector<Layout>& layouts)
    {
        std::string line;
        for (std::size_t i = 0; i < layouts.size(); ++i) {
            if (table.columns[i].hidden)
                continue;
            const std::string& title = table.columns[i].title;
            const Layout& layout = layouts[i];
            line += layout.isNumeric ? padding(layout.width(), widthOf(title)) + title
                                     : padded(title, layout.width());
            line += std::string(layout.marks + 2, ' ');
        }
        if (line.find_first_not_of(' ') != std::string::npos)
            putLine(line);
    }

    void addCell(const Cell& cell, const Layout& layout, std::string& line)
    {
        const std::string text = shown(cell);
        if (cell.number) {
            const std::size_t left = layout.width() - layout.behind;
            line += padding(left, pointOf(text)) + text;
            // Marks stand at the number, not behind decimals that others have.
            line += marksOf(cell) + padding(layout.behind + layout.marks,
                                            text.size() - pointOf(text) + cell.marks.size());
        } else if (layout.isNumeric) {
            line += padding(layout.width(), widthOf(text)) + text + marksOf(cell) +
                    padding(layout.marks, cell.marks.size());
        } else {
            line += padded(text, layout.width()) + marksOf(cell) +
                    padding(layout.marks, cell.marks.size());
        }
        line += "  ";
    }

    std::string marksOf(const Cell& cell)
    {
        for (const char sign : cell.marks)
            if (legend_.find(sign) == std::string::npos)
                legend_ += sign;
        return cell.marks.empty() ? "" : paint(cell.marks, "33");
    }

    void print(const std::vector<ChainStep>& chain)
    {
        std::size_t marks = 0;
        std::size_t what = 0;
        std::size_t place = 0;
        for (const ChainStep& step : chain) {
            marks = std::max(marks, step.value.marks.size());
            what = std::max(what, widthOf(step.what));
            place = std::max(place, widthOf(placeText(step.place)));
        }
        for (std::size_t i = 0; i < chain.size(); ++i) {
            const ChainStep& step = chain[i];
            const std::string number = std::to_string(i + 1);
            const std::string head = padding(3, number.size()) + number + "  " + shown(step.value);
            const std::string tail = padding(marks, step.value.marks.size()) + "  " +
                                     padded(step.what, what) + "  " +
                                     padded(placeText(step.place), place) + "  ";
            std::string line = head;
            line += marksOf(step.value);
            line += tail;
            std::string origin = step.source;
            if (!step.status.empty())
                origin += (origin.empty() ? "(" : " (") + step.status + ")";
            const std::size_t width = widthOf(head) + step.value.marks.size() + widthOf(tail);
            if (width + widthOf(origin) <= pageWidth) {
                putLine(line + origin);
            } else {
                putLine(line);
                wrap(std::string(8, ' ') + origin);
            }
        }
    }

    static std::string placeText(const Place& place)
    {
        if (place.line == 0)
            return place.file;
        return place.file + ":" + std::to_string(place.line);
    }

    void print(const Finding& finding)
    {
        static constexpr const char* words[] = {"error", "warning", "note"};
        static constexpr const char* colours[] = {"31", "35", "36"};
        const auto severity = static_cast<std::size_t>(finding.severity);
        out_ << paint(finding.place.file + ":" + std::to_string(finding.place.line) + ":" +
                          std::to_string(finding.place.column) + ":",
                      "1")
             << ' ' << paint(std::string(words[severity]) + ":", colours[severity]) << ' '
             << finding.message << "  [" << finding.rule << "]\n";
        if (finding.snippet.empty())
            return;
        printSnippet(finding);
    }

    /// The line, moved to the left and cut where it is long, and the mark below it.
    void printSnippet(const Finding& finding)
    {
        constexpr std::size_t margin = 4;
        std::vector<std::string> line = charactersOf(finding.snippet);
        std::size_t mark = std::min(finding.place.column - 1, line.size());
        std::size_t length = std::max<std::size_t>(finding.length, 1);
        const auto drop = [&](std::size_t count) {
            line.erase(line.begin(), line.begin() + static_cast<std::ptrdiff_t>(count));
            mark -= count;
        };
        const auto text = std::ranges::find_if(line, [](const auto& c) { return c != " "; });
        drop(std::min(static_cast<std::size_t>(text - line.begin()), mark));
        constexpr std::size_t room = pageWidth - margin;
        if (line.size() > room && mark + std::min(length, room / 2) > room - 3) {
            drop(mark - std::min(mark, room / 4));
            std::fill_n(line.begin(), std::min<std::size_t>(3, mark), ".");
        }
        if (line.size() > room) {
            line.resize(room);
            std::fill_n(line.end() - 3, 3, ".");
        }
        length = std::min(length, std::max<std::size_t>(line.size(), mark + 1) - mark);
        std::string shown(margin, ' ');
        for (const std::string& character : line)
            shown += character;
        putLine(shown);
        const std::string marker =
            std::string(margin + mark, ' ') + '^' + std::string(length - 1, '~');
        const bool isBeside = marker.size() + 2 + widthOf(finding.hint) <= pageWidth;
        out_ << paint(marker, "32");
        out_ << (finding.hint.empty() || !isBeside ? "" : "  " + finding.hint) << '\n';
        if (!isBeside)
            wrap(std::string(margin + 2, ' ') + finding.hint);
    }

    /// The characters of a text; what a terminal cannot show is "?", a tab a blank.
    static std::vector<std::string> charactersOf(const std::string& text)
    {
        std::vector<std::string> characters;
        for (const char c : text) {
            const auto byte = static_cast<unsigned char>(c);
            if ((byte & 0xC0U) == 0x80 && !characters.empty() && characters.back() != "?")
                characters.back() += c;
            else if (c == '\t')
                characters.emplace_back(" ");
            else
                characters.emplace_back(byte < 0x20 || byte == 0x7F || byte >= 0xF8 ||
                                                (byte & 0xC0U) == 0x80
                                            ? "?"
                                            : std::string(1, c));
        }
        for (std::string& character : characters) {
            const auto lead = static_cast<unsigned char>(character.front());
            const std::size_t size = lead < 0x80 ? 1 : lead >= 0xF0 ? 4 : lead >= 0xE0 ? 3 : 2;
            if (character.size() != size)
                character = "?";
        }
        return characters;
    }

    /// A sentence, broken between words where it is too long.
    void wrap(const std::string& text)
    {
        for (const std::string& line : broken(text, pageWidth))
            putLine(line);
    }

    /// The lines of a text that has so many characters in a line; all begin as far in as the first.
    static std::vector<std::string> broken(const std::string& text, std::size_t width)
    {
        std::vector<std::string> lines;
        const std::size_t indent = std::min(text.find_first_not_of(' '), text.size());
        const std::string margin(indent, ' ');
        std::string line = margin;
        for (std::size_t at = indent; at <= text.size();) {
            const std::size_t end = std::min(text.find(' ', at), text.size());
            const std::string word = text.substr(at, end - at);
            if (line != margin && widthOf(line) + 1 + widthOf(word) > width) {
                lines.push_back(line);
                line = margin + word;
            } else {
                line += (line == margin ? "" : " ") + word;
            }
            at = end + 1;
        }
        lines.push_back(line);
        return lines;
    }

    void putLine(std::string line)
    {
        line.erase(line.find_last_not_of(' ') + 1);
        out_ << line << '\n';
    }

    [[nodiscard]] std::string paint(const std::string& text, const char* colour) const
    {
        return coloured_ ? "\x1b[" + std::string(colour) + "m" + text + "\x1b[0m" : text;
    }

    std::ostream& out_;
    bool coloured_;
    std::string legend_; ///< the marks that were printed
};

} // namespace

void printText(const Answer& answer, std::ostream& out, bool coloured)
{
    TextPrinter(out, coloured).print(answer);
}

} // namespace command
