#include <memory>

#include <CLI/CLI.hpp>
#include <zelstandard/context/ZelStandard.h>

#include <command/names/Names.h>
#include <command/verbs/Verbs.h>

namespace command
{

namespace
{

/// The value of the library with the mark of its source; "-" for one that nobody gives.
Cell cellOf(const Context& context, const MaterialRow& table, Mode code, std::size_t column)
{
    const Value& derived = context.data().materialValues().find(table, code, column);
    const double number = valueOf(table, code, column);
    Cell cell = command::cellOf(derived, 2);
    cell.number = number;
    if (derived.steps.empty() && number == 0)
        return "-";
    if (code != Mode::EC && number != valueOf(table, Mode::EC, column))
        cell.marks.insert(cell.marks.begin(), '!');
    return cell;
}

/// One section a kind of table, all with the columns of that kind.
void addKind(Answer& answer, const Context& context, Mode code, const char* title,
             bool (*isOfKind)(const MaterialRow&))
{
    Section& section = answer.section(wordOf(code) + ", " + title);
    section.facts = {
        {"code", wordOf(code)}
    };
    Table table{
        {{"table", ""}, {"name", ""}},
        {             }
    };
    for (const MaterialRow& row : materialTables) {
        if (!isOfKind(row))
            continue;
        auto columns = columnsOf(row);
        std::size_t first = 0;
        if (row.gamma && !context.options.situation.empty()) {
            first = static_cast<std::size_t>(ZelStandard::get()->getSituation());
            columns = columns.subspan(first, 1);
        }
        if (table.columns.size() == 2)
            for (const char* column : columns)
                table.columns.push_back(row.control ? Column{"value", "value"}
                                                    : Column{column, column});
        std::vector<Cell> cells = {row.table, nameOf(row)};
        for (std::size_t column = 0; column < columns.size(); ++column)
            cells.push_back(cellOf(context, row, code, first + column));
        table.rows.push_back(std::move(cells));
    }
    section.table = std::move(table);
}

Answer answerMaterial(const Context& context)
{
    Answer answer;
    for (const Mode code : context.codes()) {
        addKind(answer, context, code, "partial factors by design situation",
                [](const MaterialRow& row) { return row.gamma != nullptr; });
        addKind(answer, context, code, "long-term coefficients of concrete",
                [](const MaterialRow& row) { return row.alpha != nullptr; });
        addKind(answer, context, code, "control values of concrete design",
                [](const MaterialRow& row) { return row.control != nullptr; });
        auto& rows = answer.sections.back().table->rows;
        rows.push_back({"GAMMA", "global factor on the resistance", Cell(Control::getGamma(code))});
        rows.push_back(
            {"GAMMAFACTOR", "global factor, brittle", Cell(Control::getGammaFactor(code))});
    }
    answer.comparedWith = wordOf(Mode::EC);
    context.noteSettings(answer, true, false);
    answer.more = "zelstandard explain GAMMA_C --code " + wordOf(context.codes().back());
    return answer;
}

} // namespace

Question declareMaterial(CLI::App&) { return answerMaterial; }

} // namespace command
