#pragma once

#include <string>

#include <zelstandard/Export.h>
#include <zelstandard/vocabulary/Enumerations.h>

/// @file
/// Texts of operators and combinations. Several threads may ask for them while none changes the
/// language.

namespace Standard
{

/// The text of a superposition operator; "-" for NONE and any other value. The two loaders are
/// crossed, and this is wanted: the name comes from the report texts, the report name from the
/// display texts.
[[nodiscard]] ZELSTANDARD_API std::string getOperatorName(Operator value);
[[nodiscard]] ZELSTANDARD_API std::string getOperatorReportName(Operator value);

/// Five characters ("  +  ", "  ?  ", "+(0?)", "?(0?)"); one blank for any other value.
[[nodiscard]] ZELSTANDARD_API std::string getOperatorSymbol(Operator value);

/// The operator whose display text equals the given one byte for byte; -1, which is no member, for
/// any other text. So it takes back what getOperatorReportName gives; a name from getOperatorName
/// comes back only where the report text equals the display text.
[[nodiscard]] ZELSTANDARD_API Operator getOperatorToName(const std::string& text);

/// The display text of a combination of actions; empty for a value that is no member.
[[nodiscard]] ZELSTANDARD_API std::string GetCombinationText(Combination combination);

} // namespace Standard
