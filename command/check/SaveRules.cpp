#include <cmath>
#include <map>
#include <sstream>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/platform/ZelXml.h>

#include <command/check/Rules.h>

namespace command::rules
{

namespace
{

/// What the library writes of a document into a new one.
template <class Write> std::shared_ptr<const Document> saved(const Document& document, Write write)
{
    ZelXmlTree tree;
    std::istringstream text(document.text());
    tree.buildOfStream(text);
    std::ostringstream written;
    write(tree, written);
    return Document::parse(document.path(), written.str());
}

std::shared_ptr<const Document> savedActions(const Document& document)
{
    return saved(document, [](const ZelXmlTree& tree, std::ostream& written) {
        Standard::ActionTypeManager(tree).output(written);
    });
}

} // namespace

void savedValues(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (files.asksSave && file->actions) {
            const ActionFile kept(savedActions(*file->document));
            for (const ActionValues& type : file->actions->types())
                for (const auto& [key, set] : type.sets) {
                    const ActionValues* other = kept.find(type.id);
                    const auto found = other ? other->sets.find(key) : type.sets.end();
                    if (!other || found == other->sets.end())
                        continue;
                    for (const FactorRow& row : factors) {
                        const Value& value = set[row.value];
                        const double number = found->second[row.value].number;
                        if (value.element && !value.isCopy && value.number != number)
                            report.atText(*value.element, describe(*value.element) +
                                                              " is saved as " +
                                                              numberText(number, 2));
                    }
                }
        }
        if (!files.asksSave || !file->coefficients)
            continue;
        for (const Site& site : file->sites) {
            double number = 0;
            const bool isCoefficient = site.form->isNumber() && site.element->parent->parent &&
                                       site.element->parent->parent->parent == file->coefficients;
            if (isCoefficient && readNumber(site.element->text, number) &&
                std::round(number * 100) / 100 != number)
                report.atText(*site.element, describe(*site.element) + " is saved as " +
                                                 numberText(std::round(number * 100) / 100, 2));
        }
    }
}

void savedAnnexes(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!files.asksSave || !file->actions)
            continue;
        const ActionFile kept(savedActions(*file->document));
        std::map<Mode, std::pair<const Element*, int>> lost;
        for (const ActionValues& type : file->actions->types()) {
            const ActionValues* other = kept.find(type.id);
            for (const Mode code : allCodes())
                if (const Element* annex = type.annexOf(code);
                    annex && other && !other->annexOf(code)) {
                    lost[code].first = lost[code].first ? lost[code].first : annex;
                    ++lost[code].second;
                }
        }
        for (const auto& [code, where] : lost)
            report.atValue(*where.first, "NAME",
                           "a save into a new document has no annex " + wordOf(code) +
                               ", here and in " + std::to_string(where.second - 1) +
                               " more action types",
                           "The values are lost, and the actions are inactive there");
    }
    for (const auto& file : files.files)
        if (files.asksSave && file->stressBlock)
            for (const Element* annex : file->stressBlock->children)
                if (annex->get("NAME") != "EC" && annex->get("NAME") != "DIN-1988")
                    report.atValue(*annex, "NAME",
                                   "a save writes the annexes EC and DIN-1988 of STRESSBLOCK alone",
                                   "its values are saved as those of EC");
}

void savedWords(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!files.asksSave || !file->attributes || !files.actions)
            continue;
        std::istringstream text(files.actions->document->text());
        ZelXmlTree actions;
        actions.buildOfStream(text);
        Standard::ActionTypeManager types(actions);
        const auto written = saved(*file->document, [&](ZelXmlTree& tree, std::ostream& stream) {
            Standard::StateAttributeManager attributes(&types);
            attributes.init(tree);
            attributes.output(stream);
        });
        const Element* list = written->root();
        for (const Element* attribute : file->attributes->children) {
            const Element* other = nullptr;
            for (const Element* candidate : list ? list->children : std::vector<const Element*>())
                if (candidate->get("NAME") == attribute->get("NAME"))
                    other = candidate;
            for (const Element* child : attribute->children) {
                const Element* now = other ? other->child(child->name) : nullptr;
                if (now && now->text != child->text)
                    report.atText(*child, describe(*child) + ", " + child->text + ", is saved as " +
                                              (now->text.empty() ? "nothing" : now->text));
            }
        }
    }
}

void savedParts(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!files.asksSave || !file->settings)
            continue;
        std::string parts;
        for (const Element* part : {file->coefficients, file->stressBlock, file->rules})
            if (part)
                parts += (parts.empty() ? "" : ", ") + std::string(part->name);
        if (!parts.empty())
            report.atTag(*file->settings,
                         "a program that saves its settings to this path replaces the file",
                         parts + " are lost then; let it save elsewhere");
    }
}

void savedComments(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        const Document& document = *file->document;
        if (!files.asksSave || !document.root())
            continue;
        int comments = 0;
        for (std::size_t at = 0; (at = document.text().find("<!--", at)) != std::string::npos; ++at)
            ++comments;
        int origins = 0;
        for (const Element& element : document.elements())
            for (const Attribute& attribute : element.attributes)
                origins += attribute.name.ends_with("SOURCE") ||
                                   attribute.name.ends_with("STATUS") || attribute.name == "NOTE" ||
                                   attribute.name == "CHECKED" || attribute.name == "ACCEPTED" ||
                                   attribute.name == "VERSION"
                               ? 1
                               : 0;
        if (comments + origins > 0)
            report.atTag(*document.root(),
                         "a save into a new document keeps none of " + std::to_string(comments) +
                             " comments and " + std::to_string(origins) +
                             " attributes of source, status and review",
                         "one into the tree that was read keeps them");
    }
}

} // namespace command::rules
