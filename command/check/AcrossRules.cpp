#include <algorithm>
#include <map>
#include <set>

#include <zelstandard/vocabulary/XMLUtil.h>

#include <command/check/Rules.h>

namespace command::rules
{

namespace
{

using Standard::XMLUtil;

std::string lineOf(const Element& element)
{
    return element.document->fileName() + ":" + std::to_string(element.position().line);
}

/// The entries of all blocks and rules that name a state attribute.
std::vector<const Element*> participantsOf(const CheckedFile& file)
{
    std::vector<const Element*> found;
    for (const Site& site : file.sites)
        if (site.form->attribute("OPERATOR") && site.form->attribute("NAME"))
            found.push_back(site.element);
    return found;
}

std::map<std::string_view, const Element*> attributesOf(const CheckedFile& file)
{
    std::map<std::string_view, const Element*> found;
    for (const Element* attribute : file.attributes->children)
        found[attribute->get("NAME")] = attribute; // the last one's operator counts
    return found;
}

struct NamedAction {
    const Element* attribute;
    const Element* action;
};

/// The actions that the state attributes name.
std::vector<NamedAction> namedActions(const CheckedFiles& files)
{
    std::vector<NamedAction> found;
    for (const auto& file : files.files)
        if (file->attributes)
            for (const Element* attribute : file->attributes->children)
                if (const Element* action = attribute->child("ACTIONTYPE");
                    action && !action->text.empty() && action->text != "NONE")
                    found.push_back({attribute, action});
    return found;
}

/// The structures for which an attribute is offered.
std::vector<const StructureRow*> offered(const Element& attribute)
{
    const Element* kind = attribute.child("CLASSIFICATION");
    const Element* types = attribute.find("BRIDGETYPE");
    std::vector<const StructureRow*> rows;
    for (const StructureRow& row : structures) {
        const std::string_view needed = row.value.isBuilding() ? "BUILDING" : "BRIDGE";
        const bool isKind = !kind || kind->text.empty() || kind->text == needed;
        const bool isType =
            row.value.isBuilding() || !types || types->children.empty() || types->child(row.word);
        if (isKind && isType)
            rows.push_back(&row);
    }
    return rows;
}

} // namespace

void unknownAction(const CheckedFiles& files, Report& report)
{
    if (!files.actions)
        return;
    const auto& types = files.actions->actions->types();
    for (const auto& [attribute, action] : namedActions(files))
        if (std::ranges::find(types, action->text, &ActionValues::word) == types.end())
            report.atText(*action,
                          files.actions->document->fileName() + " has no action " + action->text,
                          "As it stands its factors are 1, psi21 and psi22 0");
}

void actionWithoutSet(const CheckedFiles& files, Report& report)
{
    if (!files.actions)
        return;
    for (const auto& [attribute, action] : namedActions(files)) {
        const ActionValues* type =
            files.actions->actions->find(XMLUtil::get()->getActionTypeIDToString(action->text));
        if (!type)
            continue;
        std::string missing;
        for (const StructureRow* row : offered(*attribute))
            if (!type->find(Mode::EC, row->value))
                missing += (missing.empty() ? "" : ", ") + std::string(row->word);
        if (!missing.empty() && type->annexOf(Mode::EC))
            report.atText(*action,
                          std::string(attribute->get("NAME")) + " is offered for " + missing +
                              ", where " + action->text + " has no factors",
                          "As it stands its factors are 1 there, psi21 and psi22 0");
    }
}

void unknownTag(const CheckedFiles& files, Report& report)
{
    if (!files.attributes || !files.rules)
        return;
    const auto attributes = attributesOf(*files.attributes);
    std::set<std::string_view> told;
    for (const Element* entry : participantsOf(*files.rules)) {
        const std::string_view name = entry->get("NAME");
        if (!name.empty() && !attributes.contains(name) && told.insert(name).second)
            report.atValue(*entry, "NAME",
                           files.attributes->document->fileName() + " has no attribute " +
                               std::string(name),
                           "As it stands no load case can carry it");
    }
}

void unusedTag(const CheckedFiles& files, Report& report)
{
    if (!files.attributes || !files.rules)
        return;
    std::set<std::string_view> used;
    for (const Element* entry : participantsOf(*files.rules))
        used.insert(entry->get("NAME"));
    for (const Element* attribute : files.attributes->attributes->children)
        if (const std::string_view name = attribute->get("NAME");
            !name.empty() && !used.contains(name))
            report.atValue(*attribute, "NAME",
                           "no rule of " + files.rules->document->fileName() + " names " +
                               std::string(name),
                           "As it stands load cases with it take part in no combination");
}

void operatorDiffers(const CheckedFiles& files, Report& report)
{
    if (!files.attributes || !files.rules)
        return;
    const auto attributes = attributesOf(*files.attributes);
    for (const Element* entry : participantsOf(*files.rules)) {
        const auto found = attributes.find(entry->get("NAME"));
        const Element* own = found == attributes.end() ? nullptr : found->second->child("OPERATOR");
        if (own && !own->text.empty() && !entry->get("OPERATOR").empty() &&
            own->text != entry->get("OPERATOR"))
            report.atValue(*entry, "OPERATOR",
                           std::string(entry->get("NAME")) + " is " +
                               std::string(entry->get("OPERATOR")) + " here, and " + own->text +
                               " in " + lineOf(*own),
                           "the rule goes by its own, all else by that of the attribute");
    }
}

} // namespace command::rules
