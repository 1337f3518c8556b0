#pragma once

#include <memory>
#include <string>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/instructions/StateInstructionManager.h>

#include <zelstandard/platform/ZelXml.h>

#include <command/provenance/ActionValues.h>
#include <command/provenance/MaterialValues.h>

namespace command
{

/// The data files of one folder, and what the library makes of them. Everything is read when it is
/// asked for first; what cannot be read throws Failure.
class Data
{
public:
    /// @param folder the data folder; empty for that of the installation
    /// @param withOffice whether Office.xml is laid over where it exists
    Data(std::string folder, bool withOffice);

    [[nodiscard]] const std::string& folder() const { return folder_; }

    // Their paths: beside one another in the folder, unless another file was named in their place.

    [[nodiscard]] const std::string& actionsPath() const { return actionsPath_; }
    [[nodiscard]] const std::string& attributesPath() const { return attributesPath_; }
    [[nodiscard]] const std::string& settingsPath() const { return settingsPath_; }
    /// Also when there is no such file.
    [[nodiscard]] std::string officePath() const { return folder_ + "/Office.xml"; }

    // The documents.

    const Document& actionsDocument();
    const Document& attributesDocument();
    const Document& settingsDocument();
    /// Null when there is none, or when it is left out.
    const Document* officeDocument();
    std::shared_ptr<const Document> officeShared()
    {
        return officeDocument() ? officeDocument_ : nullptr;
    }

    // Where their values come from.

    const ActionFile& actionValues();
    const MaterialFile& materialValues();

    // What the library answers; the office's values are laid over. These objects stay for the life
    // of Data.

    Standard::ActionTypeManager& actions();
    Standard::StateAttributeManager& attributes();
    Standard::StateInstructionManager& rules();

    // Another document in the place of one of the folder's, read by the library's own operations: a
    // missing file keeps what there is. Attributes and rules are read anew when they are asked for.

    void loadActions(const std::string& path);
    void loadActions(const ZelXmlTree& tree, const std::string& text);
    void loadAttributes(const std::string& path);
    void loadAttributes(const ZelXmlTree& tree, const std::string& text);
    /// Settings, coefficients, control values and rules.
    void useSettings(const std::string& path);
    /// A catalogue of rules that only holds those that are now read into it.
    Standard::StateInstructionManager& emptyRules();
    /// Forgets all that was made with the settings.
    void forget();

private:
    void dropActions();
    std::shared_ptr<const Document> document(std::shared_ptr<const Document>& kept,
                                             const std::string& path);

    std::string folder_;
    bool withOffice_;
    std::string actionsPath_;
    std::string attributesPath_;
    std::string settingsPath_;
    std::shared_ptr<const Document> actionsDocument_;
    std::shared_ptr<const Document> attributesDocument_;
    std::shared_ptr<const Document> settingsDocument_;
    std::shared_ptr<const Document> officeDocument_;
    std::unique_ptr<ActionFile> actionValues_;
    std::unique_ptr<MaterialFile> materialValues_;
    // The attributes point at actions.
    std::unique_ptr<Standard::ActionTypeManager> actions_;
    std::unique_ptr<Standard::StateAttributeManager> attributes_;
    std::unique_ptr<Standard::StateInstructionManager> rules_;
};

} // namespace command
