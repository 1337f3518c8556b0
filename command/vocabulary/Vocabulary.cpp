#include <command/vocabulary/Vocabulary.h>

#include <algorithm>

#include <zelstandard/vocabulary/XMLUtil.h>

namespace command
{

using Standard::DesignSituation;
using Standard::XMLUtil;

std::string wordOf(Structure structure)
{
    const auto* row = std::ranges::find(structures, structure, &StructureRow::value);
    return row == std::end(structures) ? "-" : row->word;
}

std::string wordOf(Mode code) { return XMLUtil::get()->getStringToMode(code); }

std::string wordOf(ActionTypeId action) { return XMLUtil::get()->getStringToActionType(action); }

std::span<const Mode> allCodes()
{
    static constexpr auto codes = [] {
        std::array<Mode, std::size(Standard::designCodes) - 1> result{};
        for (std::size_t i = 0; i < result.size(); ++i)
            result[i] = Standard::designCodes[i + 1].value;
        return result;
    }();
    return codes;
}

std::span<const char* const> columnsOf(const MaterialRow& row)
{
    static constexpr const char* situations[] = {"PERSISTENT", "ACCIDENTAL", "ACCIDENTAL_EQ"};
    static constexpr const char* kinds[] = {"BUILDING", "BRIDGE"};
    static constexpr const char* none[] = {"-"};
    if (row.gamma)
        return situations;
    if (row.alpha)
        return kinds;
    return none;
}

double valueOf(const MaterialRow& row, Mode code, std::size_t column)
{
    if (row.gamma)
        return (Coefficients::get()->*row.gamma)(code, static_cast<DesignSituation>(column));
    if (row.alpha)
        return (Coefficients::get()->*row.alpha)(code, static_cast<Classification>(column + 1));
    return row.control(code);
}

} // namespace command
