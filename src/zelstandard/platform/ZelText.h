#pragma once

#include <string>

#include <zelstandard/Export.h>

/// @file
/// The suite's text resource: display and report texts by numeric id, UTF-8, in the language that
/// the suite is set to. An unknown id gives the empty string. Several threads may ask for texts
/// while none changes the language.

/// The texts of the language in force.
class ZELSUITE_API ZelTextResource
{
public:
    /// The one instance; never null, not owned by the caller.
    static ZelTextResource* get();

    /// The display text of an id.
    [[nodiscard]] std::string loadString(unsigned int id) const;

private:
    ZelTextResource() = default;
};

namespace ZelText
{
/// The display text of an id; equal to ZelTextResource::loadString.
ZELSUITE_API std::string Load(unsigned int id);
/// The report text of an id: the whole wording, for printed output.
ZELSUITE_API std::string LoadReport(unsigned int id);
} // namespace ZelText

/// The report text of an id; equal to ZelText::LoadReport.
ZELSUITE_API std::string LSReport(unsigned int id);
