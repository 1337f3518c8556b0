#include <command/verbs/FactorTable.h>

#include <algorithm>
#include <utility>

#include <command/names/Names.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

/// The set that the library gives.
const SafetyFactors* libraryFactors(const Context& context, ActionTypeId action, Mode code,
                                    Structure structure)
{
    const Standard::ActionType* type = context.data().actions().findActionType(action);
    return type ? type->getFactors(code, structure.classification, structure.bridgeType) : nullptr;
}

/// Where the set comes from.
const FactorSet* derivedFactors(const Context& context, ActionTypeId action, Mode code,
                                Structure structure)
{
    const ActionValues* values = context.data().actionValues().find(action);
    return values ? values->find(code, structure) : nullptr;
}

bool repeats(const Cell& cell, const Cell& leader)
{
    return !cell.number || (leader.number && *cell.number == *leader.number);
}

} // namespace

FactorTable::FactorTable(const Context& context, const std::string& key, bool withNames)
    : context_(context), withNames_(withNames)
{
    table_.columns.push_back({key, ""});
    if (withNames)
        table_.columns.push_back({"name", "", false, true});
    for (const FactorRow& row : factors)
        table_.columns.push_back({row.key, row.title});
}

void FactorTable::add(const std::string& heading, ActionTypeId action, Mode code,
                      Structure structure, std::optional<Mode> compared)
{
    std::vector<Cell> row = {heading};
    if (withNames_)
        row.emplace_back(nameOf(action));
    const SafetyFactors* given = libraryFactors(context_, action, code, structure);
    const FactorSet* derived = derivedFactors(context_, action, code, structure);
    if (!given != !derived)
        throw Failure("the derivation of " + wordOf(action) + " contradicts the library");
    const SafetyFactors* other = compared && *compared != code
                                     ? libraryFactors(context_, action, *compared, structure)
                                     : nullptr;
    for (const FactorRow& factor : factors) {
        if (!given) {
            row.emplace_back("-");
            hasAbsent_ = true;
            continue;
        }
        Cell cell = cellOf((*derived)[factor.value], factor.decimals);
        cell.number = (given->*factor.get)();
        if (other && *cell.number != (other->*factor.get)())
            cell.marks.insert(cell.marks.begin(), '!');
        row.push_back(std::move(cell));
    }
    table_.rows.push_back(std::move(row));
}

Table FactorTable::finish(bool all)
{
    const Cell one(1.0);
    const std::size_t first = withNames_ ? 2 : 1;
    for (const FactorRow& factor : factors) {
        const std::size_t column = static_cast<std::size_t>(factor.value) + first;
        const bool isCrackRed = factor.value == Factor::CrackRed;
        if (all || (!isCrackRed && factor.leader == factor.value))
            continue;
        table_.columns[column].hidden = std::ranges::all_of(table_.rows, [&](const auto& row) {
            return repeats(row[column],
                           isCrackRed ? one : row[static_cast<std::size_t>(factor.leader) + first]);
        });
    }
    return std::move(table_);
}

} // namespace command
