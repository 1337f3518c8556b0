#pragma once

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include "support/Files.h"

/// @file
/// The transcription of the standards' tables in tests/data/tables: cells between bars, the names
/// of the columns in the first line that is no remark (#). It is written from the values of the
/// standards and not from the shipped files, so that a slip in either shows.

namespace support
{

/// The cells of a row by the name of their column.
using Row = std::map<std::string, std::string>;

inline std::vector<std::string> cells(const std::string& line)
{
    std::vector<std::string> result;
    std::istringstream stream(line);
    for (std::string cell; std::getline(stream, cell, '|');) {
        cell.erase(0, cell.find_first_not_of(' '));
        cell.erase(cell.find_last_not_of(' ') + 1);
        result.push_back(cell);
    }
    return result;
}

inline std::vector<Row> readTable(const std::string& name)
{
    std::istringstream stream(unixLines(readFile(sourceFile("tests/data/tables/" + name))));
    std::vector<std::string> columns;
    std::vector<Row> rows;
    for (std::string line; std::getline(stream, line);) {
        if (line.empty() || line.front() == '#')
            continue;
        const std::vector<std::string> values = cells(line);
        if (columns.empty()) {
            columns = values;
            continue;
        }
        Row& row = rows.emplace_back();
        for (std::size_t i = 0; i < columns.size(); ++i)
            row[columns[i]] = values.at(i); // no row with missing cells
    }
    return rows;
}

} // namespace support
