#include <ostream>

#include <command/answer/Answer.h>

namespace command
{

namespace
{

std::string quoted(const std::string& text)
{
    if (text.find_first_of(",\"\r\n") == std::string::npos)
        return text;
    std::string result = "\"";
    for (const char c : text)
        result += c == '"' ? "\"\"" : std::string(1, c);
    return result + '"';
}

std::string textOf(const Cell& cell)
{
    return cell.number ? numberText(*cell.number, 0) : quoted(cell.text);
}

/// "psi0:! gamma_inf:i"
std::string marksOf(const Table& table, const std::vector<Cell>& row)
{
    std::string marks;
    for (std::size_t i = 0; i < row.size(); ++i)
        if (!row[i].marks.empty())
            marks += (marks.empty() ? "" : " ") + table.columns[i].key + ":" + row[i].marks;
    return marks;
}

std::string headingOf(const Section& section)
{
    std::string line;
    for (const auto& [key, cell] : section.facts)
        line += key + ",";
    for (const Column& column : section.table->columns)
        line += column.key + ",";
    return line + "marks";
}

void printTable(const Section& section, std::ostream& out)
{
    for (const auto& row : section.table->rows) {
        for (const auto& [key, cell] : section.facts)
            out << textOf(cell) << ',';
        for (const Cell& cell : row)
            out << textOf(cell) << ',';
        out << marksOf(*section.table, row) << '\n';
    }
}

void printChain(const Section& section, std::ostream& out)
{
    out << "step,value,what,file,line,source,status\n";
    for (std::size_t i = 0; i < section.chain.size(); ++i) {
        const ChainStep& step = section.chain[i];
        out << i + 1 << ',' << textOf(step.value) << ',' << quoted(step.what) << ','
            << quoted(step.place.file) << ',' << step.place.line << ',' << quoted(step.source)
            << ',' << step.status << '\n';
    }
}

} // namespace

/// Tables of one heading go on below one another; another heading begins behind an empty line.
void printCsv(const Answer& answer, std::ostream& out)
{
    std::string heading;
    bool isFirst = true;
    const auto begin = [&] {
        out << (isFirst ? "" : "\n");
        isFirst = false;
    };
    for (const Section& section : answer.sections) {
        if (section.table) {
            if (const std::string own = headingOf(section); own != heading) {
                begin();
                out << own << '\n';
                heading = own;
            }
            printTable(section, out);
        } else if (!section.chain.empty()) {
            begin();
            heading.clear();
            printChain(section, out);
        }
    }
    if (answer.findings.empty())
        return;
    static constexpr const char* severities[] = {"error", "warning", "note"};
    begin();
    out << "file,line,column,severity,rule,message\n";
    for (const Finding& finding : answer.findings)
        out << quoted(finding.place.file) << ',' << finding.place.line << ','
            << finding.place.column << ',' << severities[static_cast<std::size_t>(finding.severity)]
            << ',' << finding.rule << ',' << quoted(finding.message) << '\n';
}

} // namespace command
