#include <algorithm>
#include <sstream>

#include <command/check/Rules.h>
#include <command/names/Names.h>

namespace command::rules
{

namespace
{

template <class Visit> void forSites(const CheckedFiles& files, Visit visit)
{
    for (const auto& file : files.files)
        for (const Site& site : file->sites)
            visit(*file, *site.element, *site.form);
}

/// "near: A, B", or all of a few.
std::string nearHint(std::string_view text, const std::vector<std::string>& words)
{
    std::vector<std::string> near = nearest(std::string(text), words);
    const char* start = "near: ";
    if (near.empty() && words.size() <= 8) {
        near = words;
        start = "known: ";
    }
    std::string hint;
    for (std::size_t i = 0; i < near.size() && i < 8; ++i)
        hint += (i == 0 ? start : ", ") + near[i];
    return hint;
}

std::string withFallback(std::string hint, std::string_view fallback)
{
    if (fallback.empty())
        return hint;
    return (hint.empty() ? "" : hint + ". ") + "As it stands it reads as " + std::string(fallback);
}

std::vector<std::string> namesOf(const std::vector<const Form*>& forms)
{
    std::vector<std::string> names;
    names.reserve(forms.size());
    for (const Form* form : forms)
        names.emplace_back(form->name);
    return names;
}

/// Attributes of the schema language, which every root may have.
bool isForeign(std::string_view name)
{
    return name.starts_with("xmlns") || name.starts_with("xsi:");
}

void checkWord(Report& report, const Element& element, std::string_view attribute,
               std::string_view text, const WordKind& kind, std::string_view fallback)
{
    if (kind.has(text) || text.empty())
        return;
    const std::string message = "\"" + std::string(text) + "\" is no " + kind.name;
    const std::string hint = withFallback(nearHint(text, kind.words), fallback);
    if (attribute.empty())
        report.atText(element, message, hint);
    else
        report.atValue(element, attribute, message, hint);
}

} // namespace

void unknownElement(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files)
        for (const auto& [element, around] : file->unknown)
            if (!around->takesAnyName)
                report.atTag(*element,
                             "the library knows no element " + std::string(element->name) + " in " +
                                 std::string(around->name),
                             withFallback(nearHint(element->name, namesOf(around->children)), {}));
}

void elementName(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files)
        for (const auto& [element, around] : file->unknown)
            if (around->takesAnyName)
                report.atTag(*element,
                             "an element of " + std::string(around->name) + " is called " +
                                 std::string(element->name),
                             "write " + std::string(around->children.front()->name) +
                                 ", as which the library reads it");
}

void unknownAttribute(const CheckedFiles& files, Report& report)
{
    forSites(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        std::vector<std::string> known;
        for (const AttributeForm& attribute : form.attributes)
            known.emplace_back(attribute.name);
        for (const Attribute& attribute : element.attributes)
            if (!form.attribute(attribute.name) && !isForeign(attribute.name))
                report.add(*element.document, &element, attribute.nameAt,
                           attribute.nameAt + attribute.name.size(),
                           "nobody knows the attribute " + std::string(attribute.name) + " of " +
                               std::string(form.name),
                           nearHint(attribute.name, known));
    });
}

void strayText(const CheckedFiles& files, Report& report)
{
    forSites(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        const bool isEmptyForm =
            form.content == Form::Content::Elements || form.content == Form::Content::Any;
        if (isEmptyForm && !element.text.empty())
            report.atText(element,
                          "text in " + std::string(element.name) + ", which holds elements alone",
                          "the library passes over it");
        if (form.content != Form::Content::Elements && form.content != Form::Content::Any)
            for (const Element* child : element.children)
                report.atTag(*child,
                             "an element in " + std::string(element.name) +
                                 ", which holds a text alone",
                             "the library passes over it");
    });
}

void duplicateElement(const CheckedFiles& files, Report& report)
{
    forSites(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        if (form.takesAnyName || form.content != Form::Content::Elements)
            return;
        for (const Element* child : element.children) {
            const Element* first = element.child(child->name);
            const Form* known = form.child(child->name);
            const bool mayRepeat = known && known->attribute("NAME");
            if (first != child && known && !mayRepeat)
                report.atTag(*child, describe(*child) + " stands twice",
                             "the first one counts, in line " +
                                 std::to_string(first->position().line));
        }
    });
}

void missingElement(const CheckedFiles& files, Report& report)
{
    forSites(files, [&](const CheckedFile& file, const Element& element, const Form& form) {
        std::string names;
        std::string effects;
        for (const Form* child : form.children) {
            if (!child->isRequired || element.child(child->name) || file.isOffice)
                continue;
            names += (names.empty() ? "" : ", ") + std::string(child->name);
            effects += (effects.empty() ? "As it stands " : "; ") + std::string(child->name) +
                       " reads as " +
                       std::string(child->missing.empty() ? child->fallback : child->missing);
        }
        if (!names.empty())
            report.atTag(element, describe(element) + " has no " + names, effects);
        if (form.content == Form::Content::Word && element.text.empty() && !form.mayBeEmpty)
            report.atTag(element, describe(element) + " is empty", withFallback({}, form.fallback));
    });
}

void missingAttribute(const CheckedFiles& files, Report& report)
{
    forSites(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        for (const AttributeForm& attribute : form.attributes)
            if (attribute.isRequired && element.get(attribute.name).empty())
                report.atTag(element,
                             std::string(element.name) + " has no " + std::string(attribute.name),
                             withFallback({}, attribute.fallback));
    });
}

void unknownWord(const CheckedFiles& files, Report& report)
{
    forSites(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        if (form.content == Form::Content::Word)
            checkWord(report, element, {}, element.text, *form.words, form.fallback);
        for (const AttributeForm& attribute : form.attributes)
            if (attribute.words)
                checkWord(report, element, attribute.name, element.get(attribute.name),
                          *attribute.words, attribute.fallback);
        std::istringstream confirmed{std::string(element.get("BUILDING_VALUES"))};
        for (std::string word; confirmed >> word;)
            checkWord(report, element, "BUILDING_VALUES", word, factorNames(), {});
    });
}

void oddWord(const CheckedFiles& files, Report& report)
{
    forSites(files, [&](const CheckedFile&, const Element& element, const Form& form) {
        const std::string message = "FOOTBRIDGE2 reads as FOOTBRIDGE1";
        const std::string hint =
            "write FOOTBRIDGE1; no file reaches the second type of footbridges";
        if (form.content == Form::Content::Word && element.text == "FOOTBRIDGE2")
            report.atText(element, message, hint);
        if (element.get("NAME") == "FOOTBRIDGE2" && form.attribute("NAME") &&
            form.attribute("NAME")->words && form.attribute("NAME")->words->has("FOOTBRIDGE2"))
            report.atValue(element, "NAME", message, hint);
    });
}

} // namespace command::rules
