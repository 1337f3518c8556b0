#pragma once

#include <string>

#include <zelstandard/Export.h>

/// @file
/// The stages of construction and their names. Several threads may ask for them while none changes
/// the language.

namespace Standard
{

/// Stage of construction at which a structure is checked. The values are stored in files.
enum class SignificantInstant : int {
    NotDefined = 0,
    Concreting = 1,
    SelfWeightFirstStageTensioning = 2,
    Transportation = 3,
    Assembling = 4,
    InSituConcreting = 5,
    InSituConcreteHardening = 6,
    InSituSecondStageTensioning = 7,
    AdditionalLoading = 8,
    Infinity = 9,
    AdditionalLoadingAccidental = 10,
    InfinityAccidental = 11,
    AdditionalLoadingSeismic = 12,
    InfinitySeismic = 13,
};

/// The display text of an instant; that of NotDefined for a value that is no member.
[[nodiscard]] ZELSTANDARD_API std::string GetSignificantInstantName(SignificantInstant instant);

/// The instant of a current or an old name, compared byte for byte; NotDefined for any other text.
[[nodiscard]] ZELSTANDARD_API SignificantInstant ReadSignificantInstant(const std::string& name);

/// The current name of an instant; "notDefined" for a value that is no member. The string lives
/// until the process ends.
[[nodiscard]] ZELSTANDARD_API const std::string&
WriteSignificantInstant(SignificantInstant instant);

} // namespace Standard
