#include <cmath>
#include <cstdint>
#include <ostream>

#include <nlohmann/json.hpp>

#include <command/answer/Answer.h>

namespace command
{

namespace
{

using Json = nlohmann::ordered_json;

Json valueOf(const Cell& cell)
{
    if (!cell.number)
        return cell.text;
    if (cell.decimals == 0 && *cell.number == std::floor(*cell.number)) // a count, not a measure
        return static_cast<std::int64_t>(*cell.number);
    return *cell.number;
}

Json wordsOf(const std::string& signs)
{
    Json words = Json::array();
    for (const char sign : signs)
        if (const Mark* mark = findMark(sign))
            words.push_back(mark->word);
    return words;
}

Json placeOf(const Place& place)
{
    Json json = {
        {"file", place.file}
    };
    if (place.line != 0)
        json["line"] = place.line;
    if (place.column != 0)
        json["column"] = place.column;
    return json;
}

/// A row by its column's keys; what is marked stands apart, by the same keys.
Json rowOf(const Table& table, const std::vector<Cell>& row)
{
    Json json;
    Json marks;
    Json statuses;
    for (std::size_t i = 0; i < row.size(); ++i) {
        const std::string& key = table.columns[i].key;
        json[key] = valueOf(row[i]);
        if (!row[i].marks.empty())
            marks[key] = wordsOf(row[i].marks);
        if (!row[i].status.empty())
            statuses[key] = row[i].status;
    }
    if (!marks.empty())
        json["marks"] = marks;
    if (!statuses.empty())
        json["status"] = statuses;
    return json;
}

Json stepOf(const ChainStep& step)
{
    Json json = {
        {"value", valueOf(step.value)},
        {"what",  step.what          }
    };
    json["place"] = placeOf(step.place);
    if (!step.source.empty())
        json["source"] = step.source;
    if (!step.status.empty())
        json["status"] = step.status;
    return json;
}

Json sectionOf(const Section& section)
{
    Json json;
    if (!section.title.empty())
        json["title"] = section.title;
    for (const auto& [key, cell] : section.facts)
        json["facts"][key] = valueOf(cell);
    if (section.table) {
        json["rows"] = Json::array();
        for (const auto& row : section.table->rows)
            json["rows"].push_back(rowOf(*section.table, row));
    }
    for (const ChainStep& step : section.chain)
        json["chain"].push_back(stepOf(step));
    if (!section.lines.empty())
        json["lines"] = section.lines;
    return json;
}

Json findingOf(const Finding& finding)
{
    static constexpr const char* severities[] = {"error", "warning", "note"};
    Json json = {
        {"severity", severities[static_cast<std::size_t>(finding.severity)]},
        {"rule",     finding.rule                                          },
        {"message",  finding.message                                       },
        {"place",    placeOf(finding.place)                                },
        {"length",   finding.length                                        }
    };
    if (!finding.hint.empty())
        json["hint"] = finding.hint;
    return json;
}

} // namespace

void printJson(const Answer& answer, const std::vector<std::string>& question, std::ostream& out)
{
    Json json = {
        {"question", question     },
        {"status",   answer.status}
    };
    json["sections"] = Json::array();
    for (const Section& section : answer.sections)
        json["sections"].push_back(sectionOf(section));
    if (!answer.findings.empty()) {
        json["findings"] = Json::array();
        for (const Finding& finding : answer.findings)
            json["findings"].push_back(findingOf(finding));
    }
    if (!answer.notes.empty())
        json["notes"] = answer.notes;
    if (!answer.more.empty())
        json["more"] = answer.more;
    out << json.dump(2, ' ', false, Json::error_handler_t::replace) << '\n';
}

} // namespace command
