#include <algorithm>
#include <map>
#include <set>

#include <command/check/Rules.h>

namespace command::rules
{

namespace
{

using Kind = ValueStep::Kind;

std::string lineOf(const Element& element)
{
    return "line " + std::to_string(element.position().line);
}

std::string structureText(const SetKey& key)
{
    const auto [code, isBuilding, bridgeType] = key;
    const Structure structure = isBuilding ? building : bridge(bridgeType);
    const auto* row = std::ranges::find(structures, structure, &StructureRow::value);
    return row == std::end(structures) ? "an unknown structure" : row->english;
}

std::string numberOf(const Value& value) { return numberText(value.number, 2); }

template <class Visit> void forTypes(const CheckedFiles& files, Visit visit)
{
    for (const auto& file : files.files)
        if (file->actions)
            for (const ActionValues& type : file->actions->types())
                visit(type);
}

/// All types with their values; of those with the office's values laid over only what its file has
/// brought about.
template <class Visit> void forValues(const CheckedFiles& files, Visit visit)
{
    forTypes(files, [&](const ActionValues& type) { visit(type, nullptr); });
    if (files.withOffice)
        for (const ActionValues& type : files.withOffice->types())
            visit(type, files.withOffice->office());
}

/// The second and later ones of a name.
template <class Elements, class Found> void forRepeated(const Elements& elements, Found found)
{
    std::map<std::string_view, const Element*> first;
    for (const Element* element : elements) {
        const auto [at, isNew] = first.emplace(element->get("NAME"), element);
        if (!isNew)
            found(*element, *at->second);
    }
}

std::vector<const Element*> annexesOf(const Element& type)
{
    const Element* annexes = type.find("ANNEXES");
    return annexes ? annexes->children : std::vector<const Element*>();
}

/// Of each type of each file, the office's too.
template <class Visit> void forTypeElements(const CheckedFiles& files, Visit visit)
{
    for (const auto& file : files.files)
        if (file->actionTypes)
            for (const Element* type : file->actionTypes->children)
                visit(*file, *type);
}

const Element* ecOf(const Element& type)
{
    const auto annexes = annexesOf(type);
    const auto found =
        std::ranges::find(annexes, "EC", [](const Element* annex) { return annex->get("NAME"); });
    return found == annexes.end() ? nullptr : *found;
}

/// Two factors of a set of which the first may not be above the second.
void compare(const CheckedFiles& files, Report& report, Factor lower, Factor upper,
             const std::string& rule)
{
    std::set<std::pair<const Element*, const Element*>> seen;
    forValues(files, [&](const ActionValues& type, const Document* office) {
        for (const auto& [key, set] : type.sets) {
            const Value& low = set[lower];
            const Value& high = set[upper];
            // What nobody gives, and a follower that was left behind, are told by other rules.
            if (!low.element || !high.element || high.isLeftBehind || low.isLeftBehind)
                continue;
            const bool isTaken = low.isCopy && high.isCopy;
            const Element& at = low.isCopy ? *high.element : *low.element;
            if (low.number <= high.number || isTaken ||
                !seen.insert({low.element, high.element}).second)
                continue;
            if (office && low.element->document != office && high.element->document != office)
                continue;
            report.atText(at,
                          std::string(rowOf(lower).title) + " " + numberOf(low) + " is above " +
                              rowOf(upper).title + " " + numberOf(high) + " of " + type.word +
                              ", " + wordOf(std::get<0>(key)) + ", " + structureText(key),
                          rule);
        }
    });
}

} // namespace

void duplicateType(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files)
        if (file->actionTypes)
            forRepeated(file->actionTypes->children, [&](const Element& element,
                                                         const Element& first) {
                report.atValue(element, "NAME", "a second type " + std::string(element.get("NAME")),
                               "the first one counts, in " + lineOf(first));
            });
}

void duplicateAnnex(const CheckedFiles& files, Report& report)
{
    const auto check = [&](const std::vector<const Element*>& annexes, const std::string& of) {
        forRepeated(annexes, [&](const Element& element, const Element& first) {
            report.atValue(element, "NAME",
                           "a second annex " + std::string(element.get("NAME")) + " of " + of,
                           "write its values into the first one, in " + lineOf(first) +
                               ": another annex begins again as a copy of EC, or overwrites");
        });
    };
    forTypeElements(files, [&](const CheckedFile&, const Element& type) {
        check(annexesOf(type), std::string(type.get("NAME")));
    });
    for (const auto& file : files.files) {
        if (file->coefficients)
            for (const Element* table : file->coefficients->children)
                check(table->children, std::string(table->name));
        if (file->stressBlock)
            check(file->stressBlock->children, "STRESSBLOCK");
    }
}

void duplicateSet(const CheckedFiles& files, Report& report)
{
    forTypeElements(files, [&](const CheckedFile&, const Element& type) {
        for (const Element* annex : annexesOf(type))
            forRepeated(annex->children, [&](const Element& element, const Element& first) {
                const std::string name(element.get("NAME"));
                if (!name.empty())
                    report.atValue(element, "NAME", "a second " + name + " of " + describe(*annex),
                                   name == "DEFAULT"
                                       ? "it adds to the first one, in " + lineOf(first)
                                       : "it goes over the first one, in " + lineOf(first));
            });
    });
}

void annexBeforeEc(const CheckedFiles& files, Report& report)
{
    const auto check = [&](const std::vector<const Element*>& annexes, const std::string& of,
                           const char* effect) {
        const auto ec =
            std::ranges::find(annexes, "EC", [](const Element* a) { return a->get("NAME"); });
        if (ec == annexes.end())
            return;
        for (auto at = annexes.begin(); at != ec; ++at)
            report.atValue(**at, "NAME",
                           "the annex " + std::string((*at)->get("NAME")) + " of " + of +
                               " stands before EC",
                           effect);
    };
    for (const auto& file : files.files) {
        if (file->actionTypes && !file->isOffice)
            for (const Element* type : file->actionTypes->children)
                check(annexesOf(*type), std::string(type->get("NAME")),
                      "move it behind EC: as it stands it takes nothing of EC");
        if (file->coefficients)
            for (const Element* table : file->coefficients->children)
                check(table->children, std::string(table->name),
                      "move it behind EC: as it stands EC goes over its values");
    }
}

void missingAnnex(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!file->actionTypes || file->isOffice)
            continue;
        // Codes that no type of the file has are not meant to be in it.
        std::set<std::string_view> codes;
        for (const Element* type : file->actionTypes->children)
            for (const Element* annex : annexesOf(*type))
                if (codeWords().has(annex->get("NAME")))
                    codes.insert(annex->get("NAME"));
        for (const Element* type : file->actionTypes->children) {
            if (annexesOf(*type).empty())
                continue;
            std::string missing;
            for (const std::string_view code : codes)
                if (std::ranges::none_of(annexesOf(*type),
                                         [&](const Element* a) { return a->get("NAME") == code; }))
                    missing += (missing.empty() ? "" : ", ") + std::string(code);
            if (!missing.empty())
                report.atValue(*type, "NAME",
                               std::string(type->get("NAME")) + " has no annex " + missing,
                               "an empty annex takes all from EC; as it stands the action is "
                               "inactive there");
        }
    }
}

void setNotInEc(const CheckedFiles& files, Report& report)
{
    forTypeElements(files, [&](const CheckedFile& file, const Element& type) {
        const Element* ec = ecOf(type);
        if (file.isOffice) {
            ec = nullptr;
            if (files.actions)
                for (const Element* main : files.actions->actionTypes->children)
                    if (!ec && main->get("NAME") == type.get("NAME"))
                        ec = ecOf(*main);
        }
        if (!ec)
            return;
        for (const Element* annex : annexesOf(type))
            for (const Element* set : annex->children) {
                const std::string_view name = set->get("NAME");
                const bool isKnown = std::ranges::find(structures, name, &StructureRow::word) !=
                                     std::end(structures);
                const bool isInEc = std::ranges::any_of(
                    ec->children, [&](const Element* e) { return e->get("NAME") == name; });
                if ((annex->get("NAME") != "EC" || file.isOffice) && isKnown && !isInEc)
                    report.atValue(*set, "NAME",
                                   "EC has no " + std::string(name) + " of " +
                                       std::string(type.get("NAME")),
                                   "As it stands the set begins with zeros: what it does not give "
                                   "is 0");
            }
    });
}

void defaultAfterSets(const CheckedFiles& files, Report& report)
{
    forTypeElements(files, [&](const CheckedFile&, const Element& type) {
        for (const Element* annex : annexesOf(type)) {
            const bool isEc = annex->get("NAME") == "EC";
            std::map<std::string_view, const Element*> before;
            for (const Element* set : annex->children) {
                if (set->get("NAME") != "DEFAULT") {
                    before[set->get("NAME")] = set;
                    continue;
                }
                for (const auto& [name, earlier] : before) {
                    std::string affected;
                    for (const Element* value : set->children) {
                        const FactorRow* factor = factorOf(*value);
                        const bool has = earlier->child(value->name) != nullptr;
                        // Under EC a set above gets nothing of it, elsewhere loses its own.
                        if (factor && has != isEc)
                            affected += (affected.empty() ? "" : ", ") + std::string(factor->title);
                    }
                    if (affected.empty())
                        continue;
                    report.atValue(*set, "NAME",
                                   "this DEFAULT of " + describe(*annex) + " stands behind " +
                                       std::string(name) + ", in " + lineOf(*earlier),
                                   isEc ? "move it up: as it stands " + std::string(name) +
                                              " gets no " + affected
                                        : "move it up: as it stands it goes over the " + affected +
                                              " of " + std::string(name));
                }
            }
        }
    });
}

void defaultReachesBridges(const CheckedFiles& files, Report& report)
{
    forTypeElements(files, [&](const CheckedFile&, const Element& type) {
        const Element* ec = ecOf(type);
        const bool hasBridges = ec && std::ranges::any_of(ec->children, [](const Element* set) {
                                    const auto* row = std::ranges::find(
                                        structures, set->get("NAME"), &StructureRow::word);
                                    return row != std::end(structures) && !row->value.isBuilding();
                                });
        for (const Element* annex : annexesOf(type)) {
            const Element* reaching = nullptr;
            bool namesBuilding = false;
            bool namesBridge = false;
            for (const Element* set : annex->children) {
                const std::string_view name = set->get("NAME");
                if (name == "DEFAULT")
                    reaching = reaching ? reaching : set;
                else
                    (name == "BUILDING" ? namesBuilding : namesBridge) = true;
            }
            if (annex != ec && hasBridges && reaching && namesBuilding && !namesBridge)
                report.atValue(*reaching, "NAME",
                               "this DEFAULT of " + describe(*annex) +
                                   " reaches the bridges too, and the annex names only BUILDING",
                               "write the values into BUILDING");
        }
    });
}

void followerLeftBehind(const CheckedFiles& files, Report& report)
{
    // By the value that was changed and its set: the heirs of EC are told with it.
    std::set<const Element*> seen;
    forValues(files, [&](const ActionValues& type, const Document* office) {
        for (const auto& [key, set] : type.sets)
            for (const Factor leading : {Factor::Psi1, Factor::Psi2}) {
                const Value& leader = set[leading];
                const Element* changed = nullptr;
                std::string behind;
                std::string elements;
                for (const FactorRow& row : factors) {
                    const Value& value = set[row.value];
                    const bool isCopied = leader.isCopy && value.isCopy;
                    const bool isOffice =
                        leader.element && value.element &&
                        (leader.element->document == office || value.element->document == office);
                    if (row.leader != leading || !value.isLeftBehind || !leader.element ||
                        isCopied || (office && !isOffice))
                        continue;
                    changed = leader.isCopy ? value.element : leader.element;
                    behind += (behind.empty() ? "" : ", ") + std::string(row.title) + " " +
                              numberOf(value);
                    elements += (elements.empty() ? "" : " and ") + std::string(row.element);
                }
                if (changed && seen.insert(changed).second)
                    report.atText(*changed,
                                  std::string(rowOf(leading).title) + " of " + type.word + ", " +
                                      wordOf(std::get<0>(key)) + ", " + structureText(key) +
                                      " is " + numberOf(leader) + ", and what follows it stays " +
                                      behind,
                                  "give " + elements +
                                      " too; with a SOURCE of its own when it is meant to differ");
            }
    });
}

void missingValue(const CheckedFiles& files, Report& report)
{
    forTypes(files, [&](const ActionValues& type) {
        for (const auto& [key, set] : type.sets) {
            std::string missing;
            for (const FactorRow& row : factors)
                if (set[row.value].steps.back().kind == Kind::Zero)
                    missing += (missing.empty() ? "" : ", ") + std::string(row.title);
            if (!missing.empty() && !set.named.empty())
                report.atTag(*set.named.front(),
                             "nobody gives " + missing + " of " + type.word + ", " +
                                 wordOf(std::get<0>(key)) + ", " + structureText(key),
                             "As it stands it is 0");
        }
    });
}

void gammaOrder(const CheckedFiles& files, Report& report)
{
    compare(files, report, Factor::GammaInf, Factor::GammaSup,
            "a favourable action counts no more than an unfavourable one");
}

void psiOrder(const CheckedFiles& files, Report& report)
{
    compare(files, report, Factor::Psi1, Factor::Psi0,
            "the frequent value is no more than the combination value");
    compare(files, report, Factor::Psi2, Factor::Psi1,
            "the quasi-permanent value is no more than the frequent one");
}

void infrequentOrder(const CheckedFiles& files, Report& report)
{
    compare(files, report, Factor::Psi1, Factor::Psi11,
            "the infrequent value is no less than the frequent one");
}

void officeDefault(const CheckedFiles& files, Report& report)
{
    forTypeElements(files, [&](const CheckedFile& file, const Element& type) {
        if (!file.isOffice)
            return;
        for (const Element* annex : annexesOf(type))
            for (const Element* set : annex->children)
                if (set->get("NAME") == "DEFAULT")
                    report.atValue(*set, "NAME", "a DEFAULT in a file of office values",
                                   "name the structures: no verb reads the file as it stands");
    });
}

} // namespace command::rules
