#pragma once

#include <memory>
#include <string>
#include <vector>

#include <command/check/Forms.h>
#include <command/provenance/ActionValues.h>
#include <command/provenance/MaterialValues.h>

/// @file
/// What a check looks at.

namespace command
{

/// An element whose form is known.
struct Site {
    const Element* element;
    const Form* form;
};

/// One file with the parts that the library finds in it; null for those that it lacks.
struct CheckedFile {
    std::shared_ptr<const Document> document;
    bool isOffice = false; ///< values of an office, which stand beside those of the data set
    const Element* actionTypes = nullptr;
    const Element* attributes = nullptr;
    const Element* settings = nullptr;
    const Element* coefficients = nullptr;
    const Element* stressBlock = nullptr;
    const Element* rules = nullptr;
    std::vector<Site> sites; ///< in document order
    /// Elements for which there is no form, with that of the element around them.
    std::vector<Site> unknown;
    /// Null without action types, and for an office's file.
    std::unique_ptr<ActionFile> actions;
    /// Null without coefficients and control values.
    std::unique_ptr<MaterialFile> materials;

    [[nodiscard]] bool holdsSettings() const
    {
        return settings || coefficients || stressBlock || rules;
    }
    /// Whether any of its values has a source or a status.
    [[nodiscard]] bool hasSources() const;
};

/// The files of one check.
struct CheckedFiles {
    std::vector<std::unique_ptr<CheckedFile>> files;
    // The first file that has the part; null for none.
    const CheckedFile* actions = nullptr;
    const CheckedFile* attributes = nullptr;
    const CheckedFile* rules = nullptr;
    /// The action types with the office's values laid over; null without such.
    std::unique_ptr<ActionFile> withOffice;
    /// What a save through the library would lose is looked for too.
    bool asksSave = false;

    void add(std::shared_ptr<const Document> document, bool isOffice);
    /// After the last file.
    void join();
};

/// The element's words for a sentence: "psi0 of SNOW, EC, building".
std::string describe(const Element& element);
/// Whether the element is a value of a set of factors.
const FactorRow* factorOf(const Element& element);

} // namespace command
