#include <zelstandard/platform/ZelText.h>

#include <algorithm>

#include <zelsuite/zelsuite.h>

#include "TextTables.h"

using zelsuite::text::TextRow;
using zelsuite::text::TextTable;
using zelsuite::text::textTables;

namespace
{

const TextTable*& tableInForce()
{
    static const TextTable* table = &textTables().front();
    return table;
}

/// One of the two texts of an id; empty for an unknown one.
std::string textOf(unsigned int id, const char* TextRow::*form)
{
    const std::span<const TextRow> rows = tableInForce()->rows;
    const auto row = std::lower_bound(rows.begin(), rows.end(), id,
                                      [](const TextRow& r, unsigned int i) { return r.id < i; });
    return row != rows.end() && row->id == id ? (*row).*form : std::string();
}

} // namespace

namespace zelsuite
{

bool setLanguage(const std::string& language)
{
    const std::span<const TextTable> tables = textTables();
    const auto table = std::find_if(tables.begin(), tables.end(), [&language](const TextTable& t) {
        return language == t.language;
    });
    if (table == tables.end())
        return false;
    tableInForce() = &*table;
    return true;
}

std::string getLanguage() { return tableInForce()->language; }

} // namespace zelsuite

ZelTextResource* ZelTextResource::get()
{
    static ZelTextResource resource; // nothing to destroy, so static destructors may use it
    return &resource;
}

std::string ZelTextResource::loadString(unsigned int id) const { return ZelText::Load(id); }

namespace ZelText
{

std::string Load(unsigned int id) { return textOf(id, &TextRow::display); }

std::string LoadReport(unsigned int id) { return textOf(id, &TextRow::report); }

} // namespace ZelText

std::string LSReport(unsigned int id) { return ZelText::LoadReport(id); }
