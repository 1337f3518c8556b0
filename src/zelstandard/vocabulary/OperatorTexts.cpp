#include <zelstandard/vocabulary/OperatorTexts.h>

#include <algorithm>

#include <zelstandard/platform/ZelText.h>

namespace Standard
{

namespace
{

struct OperatorRow {
    Operator value;
    unsigned int textId;
    const char* symbol;
};

constexpr OperatorRow operators[] = {
    {Operator::AND,        4244, "  +  "},
    {Operator::OR,         4245, "  ?  "},
    {Operator::AND_MINMAX, 4246, "+(0?)"},
    {Operator::OR_MINMAX,  4247, "?(0?)"},
};

/// Null for NONE and any value that is no member.
const OperatorRow* rowOf(Operator value)
{
    const auto* found = std::ranges::find(operators, value, &OperatorRow::value);
    return found == std::end(operators) ? nullptr : found;
}

/// By the value of the combination.
constexpr unsigned int combinationTextIds[] = {6456, 6594, 6595, 6596, 6597,
                                               6598, 6599, 6600, 5213};

} // namespace

std::string getOperatorName(Operator value)
{
    const OperatorRow* row = rowOf(value);
    return row ? ZelText::LoadReport(row->textId) : "-";
}

std::string getOperatorReportName(Operator value)
{
    const OperatorRow* row = rowOf(value);
    return row ? ZelText::Load(row->textId) : "-";
}

std::string getOperatorSymbol(Operator value)
{
    const OperatorRow* row = rowOf(value);
    return row ? row->symbol : " ";
}

Operator getOperatorToName(const std::string& text)
{
    for (const OperatorRow& row : operators)
        if (ZelTextResource::get()->loadString(row.textId) == text)
            return row.value;
    return static_cast<Operator>(-1);
}

std::string GetCombinationText(Combination combination)
{
    const auto index = static_cast<std::size_t>(combination);
    return index < std::size(combinationTextIds)
               ? ZelTextResource::get()->loadString(combinationTextIds[index])
               : "";
}

} // namespace Standard
