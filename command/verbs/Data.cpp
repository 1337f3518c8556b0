#include <command/verbs/Data.h>

#include <sstream>
#include <utility>

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/platform/Tools.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelsuite/zelsuite.h>

#include <command/vocabulary/Failure.h>

namespace command
{

Data::Data(std::string folder, bool withOffice)
    : folder_(std::move(folder)), withOffice_(withOffice)
{
    if (!folder_.empty())
        zelsuite::setInstallationDirectory(folder_);
    folder_ = Tools::getInstallationDirectory(false);
    actionsPath_ = folder_ + "/ActionTypes.xml";
    attributesPath_ = folder_ + "/StateAttributes.xml";
    settingsPath_ = folder_ + "/Profiles/Standard.xml";
    (void)checkFile(settingsPath_); // which the library opens by itself
}

std::shared_ptr<const Document> Data::document(std::shared_ptr<const Document>& kept,
                                               const std::string& path)
{
    if (!kept) {
        if (!Tools::File::exists(folder_))
            throw Failure("no data folder \"" + folder_ + "\"; name one with --data");
        auto read = Document::read(path);
        (void)read->orFail();
        kept = std::move(read);
    }
    return kept;
}

const Document& Data::actionsDocument() { return *document(actionsDocument_, actionsPath_); }

const Document& Data::attributesDocument()
{
    return *document(attributesDocument_, attributesPath_);
}

const Document& Data::settingsDocument()
{
    const Document& read = *document(settingsDocument_, settingsPath_);
    if (read.isEnciphered())
        throw Failure("\"" + settingsPath_ +
                      "\" is enciphered; the library reads settings plain only");
    return read;
}

const Document* Data::officeDocument()
{
    if (!withOffice_ || !Tools::File::exists(officePath()))
        return nullptr;
    return document(officeDocument_, officePath()).get();
}

const ActionFile& Data::actionValues()
{
    if (!actionValues_) {
        (void)actionsDocument();
        (void)officeDocument();
        actionValues_ = std::make_unique<ActionFile>(actionsDocument_, officeDocument_);
    }
    return *actionValues_;
}

const MaterialFile& Data::materialValues()
{
    if (!materialValues_) {
        (void)settingsDocument();
        materialValues_ = std::make_unique<MaterialFile>(settingsDocument_);
    }
    return *materialValues_;
}

Standard::ActionTypeManager& Data::actions()
{
    if (!actions_) {
        const Document& document = actionsDocument();
        const Document* office = officeDocument();
        if (!office) {
            actions_ = std::make_unique<Standard::ActionTypeManager>(actionsPath_);
            return *actions_;
        }
        ZelXmlTree tree;
        std::istringstream text(mergedText(document, *office));
        tree.buildOfStream(text);
        actions_ = std::make_unique<Standard::ActionTypeManager>(tree);
    }
    return *actions_;
}

Standard::StateAttributeManager& Data::attributes()
{
    if (!attributes_) {
        (void)attributesDocument();
        auto read = std::make_unique<Standard::StateAttributeManager>(&actions());
        read->init(attributesPath_);
        attributes_ = std::move(read);
    }
    return *attributes_;
}

Standard::StateInstructionManager& Data::rules()
{
    if (!rules_) {
        (void)settingsDocument();
        rules_ = std::make_unique<Standard::StateInstructionManager>(&attributes());
    }
    return *rules_;
}

void Data::dropActions()
{
    rules_.reset();
    attributes_.reset(); // they point at actions
    actionsDocument_.reset();
    actionValues_.reset();
}

void Data::loadActions(const std::string& path)
{
    if (!Tools::File::exists(path))
        return;
    dropActions();
    actionsPath_ = path;
    if (actions_)
        actions_->init(path);
    else
        actions_ = std::make_unique<Standard::ActionTypeManager>(path);
}

void Data::loadActions(const ZelXmlTree& tree, const std::string& text)
{
    dropActions();
    actionsDocument_ = Document::parse("ActionTypes.xml", text);
    if (actions_)
        actions_->init(tree);
    else
        actions_ = std::make_unique<Standard::ActionTypeManager>(tree);
}

void Data::loadAttributes(const std::string& path)
{
    if (!Tools::File::exists(path))
        return;
    rules_.reset();
    attributesPath_ = path;
    attributesDocument_.reset();
    attributes_ = std::make_unique<Standard::StateAttributeManager>(&actions());
    attributes_->init(path);
}

void Data::loadAttributes(const ZelXmlTree& tree, const std::string& text)
{
    rules_.reset();
    attributesDocument_ = Document::parse("StateAttributes.xml", text);
    attributes_ = std::make_unique<Standard::StateAttributeManager>(&actions());
    attributes_->init(tree);
}

Standard::StateInstructionManager& Data::emptyRules()
{
    ZelStandard& standard = *ZelStandard::get();
    const std::string path = standard.getDataBaseDir();
    standard.setAlternativeDBPath("no such file");
    rules_ = std::make_unique<Standard::StateInstructionManager>(&attributes());
    standard.setAlternativeDBPath(path);
    return *rules_;
}

void Data::forget() { rules_.reset(); }

void Data::useSettings(const std::string& path)
{
    (void)checkFile(path);
    settingsPath_ = path;
    settingsDocument_.reset();
    materialValues_.reset();
    rules_.reset();
    ZelStandard::get()->setAlternativeDBPath(path);
    ZelStandard::get()->input(path);
    Coefficients::get()->input(path);
    Control::input(path);
}

} // namespace command
