#pragma once

#include <istream>
#include <ostream>
#include <string>

#include <zelstandard/Export.h>

/// @file
/// What the embedded suite offers its host beyond the interfaces that the design standards call.
/// The two setters are for one thread, while no other uses either library; the rest is for all.

namespace zelsuite
{

/// Chooses the language of all texts for the process: "en" (at the start) or "de".
/// Texts that ZelStandard stored when it was created keep the language of that moment, so switch
/// before the first ZelStandard::get(), or after ZelStandard::kill().
/// @return false, and nothing changes, for a language that has no texts
ZELSUITE_API bool setLanguage(const std::string& language);

/// The language in force.
ZELSUITE_API std::string getLanguage();

/// Sets the directory that holds the suite's shared data ("Profiles" and so on); separators at its
/// end are dropped. The empty string returns to the built-in place: "share/zelstandard" beside the
/// directory of this library.
ZELSUITE_API void setInstallationDirectory(const std::string& directory);

/// Enciphers all of @p plain to @p enciphered in the form that FileCrypt::Clr::KorvaneUtil reads.
/// @return false when the plain text cannot be read or the result cannot be written
ZELSUITE_API bool encrypt(std::istream& plain, std::ostream& enciphered, const std::string& key);

} // namespace zelsuite
