#pragma once

#include <cstddef>
#include <iosfwd>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// @file
/// What a verb answers, whatever the format in which it is printed.

namespace command
{

/// A text or a number, with marks that the answer explains.
struct Cell {
    Cell() = default;
    Cell(std::string words) : text(std::move(words)) {} // NOLINT(google-explicit-constructor)
    Cell(const char* words) : text(words) {}            // NOLINT(google-explicit-constructor)
    explicit Cell(double value, int digits = 2) : number(value), decimals(digits) {}

    std::string text;             ///< for a number what stands in its place: nothing, or "-"
    std::optional<double> number; ///< printed with decimals
    int decimals = 2;
    std::string marks;  ///< one character each, "!i"
    std::string status; ///< of the value's source, "CONFIRMED-2S"; empty for none
};

struct Column {
    std::string key;        ///< in JSON and CSV: lower case, "_" for blanks
    std::string title;      ///< over the column
    bool hidden = false;    ///< left out of the text, where it repeats another one
    bool droppable = false; ///< left out of a text that would become too wide
};

struct Table {
    std::vector<Column> columns;
    std::vector<std::vector<Cell>> rows; ///< as many cells as columns
};

/// A place in a file; line 0: none.
struct Place {
    std::string file;
    std::size_t line = 0;
    std::size_t column = 0;
};

/// One step on the way to a value.
struct ChainStep {
    Cell value;
    std::string what; ///< "own value of BS"
    Place place;
    std::string source; ///< "EN 1990, Table A1.1, wind"
    std::string status;
};

/// One part of an answer: heading, then what there is of table, chain and lines.
struct Section {
    std::vector<std::string> title;
    /// What the heading says, for programs: ("action", "LW"), ("structure", "BUILDING").
    std::vector<std::pair<std::string, Cell>> facts;
    std::optional<Table> table;
    std::vector<ChainStep> chain;
    std::vector<std::string> lines;
};

enum class Severity { Error, Warning, Note };

/// What is wrong at a place of a file.
struct Finding {
    Severity severity = Severity::Error;
    std::string rule;    ///< "decimal-comma"
    std::string message; ///< one line
    Place place;
    std::size_t length = 1; ///< characters that are marked in the line
    std::string snippet;    ///< the line of the file; empty for none
    std::string hint;       ///< behind the marked characters: "write 0.50"
};

struct Answer {
    std::vector<Section> sections;
    std::vector<Finding> findings;
    std::vector<std::string> notes; ///< below everything: what the answer takes for granted
    std::string comparedWith;       ///< what the mark "!" differs from: "EC"
    std::string more;               ///< the next useful question; empty for none
    int status = 0;                 ///< exit status: 0 fine, 1 findings
    bool isPrinted = false;         ///< the verb has printed all itself

    Section& section(std::string title = {});
    void note(std::string text); ///< once, however often it is said
};

/// What a mark means; null for one that has no meaning.
struct Mark {
    char sign;
    const char* word; ///< for JSON
    const char* text;
};
const Mark* findMark(char sign);
/// True when the answer rests on values that are inherited, conventions or on the safe side.
bool restsOnUnconfirmed(const Answer& answer);

// The printers. The text is for 100 columns.

void printText(const Answer& answer, std::ostream& out, bool coloured);
/// @param question the words of the command line
void printJson(const Answer& answer, const std::vector<std::string>& question, std::ostream& out);
void printCsv(const Answer& answer, std::ostream& out);
/// The findings alone, as editors and build servers read them.
void printSarif(const Answer& answer, std::ostream& out);

/// The number with so many decimals, a "." in every locale; more decimals where it has more.
std::string numberText(double number, int decimals);
/// Characters of a UTF-8 text.
std::size_t widthOf(const std::string& text);

} // namespace command
