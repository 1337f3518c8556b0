#include <algorithm>

#include <command/check/Rules.h>
#include <command/provenance/Ticks.h>

namespace command::rules
{

namespace
{

bool isBlankText(std::string_view text)
{
    return text.find_first_not_of(" \t\r\n") == std::string_view::npos;
}

/// "standard, table or clause, row"
bool isSource(std::string_view text)
{
    if (std::ranges::count(text, ',') != 2)
        return false;
    const std::size_t first = text.find(',');
    const std::size_t second = text.find(',', first + 1);
    return !isBlankText(text.substr(0, first)) &&
           !isBlankText(text.substr(first + 1, second - first - 1)) &&
           !isBlankText(text.substr(second + 1));
}

/// The pairs of attributes that say where something comes from.
constexpr std::pair<std::string_view, std::string_view> pairs[] = {
    {"SOURCE",          "STATUS"         },
    {"GAMMA_SOURCE",    "GAMMA_STATUS"   },
    {"BUILDING_SOURCE", "BUILDING_STATUS"},
};

bool has(const Element& element, std::string_view attribute)
{
    return !element.get(attribute).empty();
}

/// Whether the pair of the value itself, or that of the element around it, gives both.
void checkValue(Report& report, const Element& value)
{
    const Element& set = *value.parent;
    const bool isOwn = has(value, "SOURCE") || has(value, "STATUS");
    const bool isGamma = !isOwn && factorOf(value) && value.name.starts_with("GAMMA") &&
                         (has(set, "GAMMA_SOURCE") || has(set, "GAMMA_STATUS"));
    const FactorRow* factor = factorOf(value);
    const bool isMaterial = !factor;
    const auto& [source, status] = pairs[isGamma ? 1 : 0];
    const auto given = [&](std::string_view key) {
        return isOwn ? has(value, key) || (isMaterial && has(set, key)) : has(set, key);
    };
    // psi11, psi21 and psi22 have those of what they repeat.
    if (factor && factor->leader != factor->value && !isOwn &&
        set.child(rowOf(factor->leader).element))
        return;
    const std::string missing = given(source) ? given(status) ? "" : std::string(status)
                                : given(status)
                                    ? std::string(source)
                                    : std::string(source) + " and no " + std::string(status);
    if (!missing.empty())
        report.atTag(value, describe(value) + " has no " + missing,
                     "other values of the file say where they come from");
}

void checkTicks(const CheckedFiles& files, Report& report, bool isStale)
{
    const auto tell = [&](const Ticks& ticks) {
        for (const Tick& tick : ticks.all()) {
            const std::string where = tick.structure.empty() ? "" : " of " + tick.structure;
            if ((tick.state == Tick::State::Stale) != isStale || tick.state == Tick::State::Holds)
                continue;
            if (isStale)
                report.atValue(*tick.element, "CHECKED",
                               tick.who + " has read " + tick.read + where + ", and now there is " +
                                   (tick.now.empty() ? "nothing" : tick.now),
                               "read the standard again, and tick what stands here, or delete the "
                               "tick");
            else if (tick.state == Tick::State::Malformed)
                report.atValue(*tick.element, "CHECKED",
                               "a tick is not \"initials YYYY-MM-DD, edition YEAR: values\"");
            else if (tick.state == Tick::State::Twice)
                report.atValue(*tick.element, "CHECKED", tick.structure + " is ticked twice");
            else
                report.atValue(*tick.element, "CHECKED",
                               "\"" + tick.read + "\"" + where + " ticks nothing here",
                               "data/SOURCES.md says what to write");
        }
    };
    const auto none = Document::parse("", "<SMOD/>");
    const ActionFile noActions(none);
    const MaterialFile noMaterials(none);
    for (const auto& file : files.files)
        if (file->actions || file->materials)
            tell(Ticks(file->actions ? *file->actions : noActions,
                       file->materials ? *file->materials : noMaterials));
}

} // namespace

void missingSource(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!file->hasSources())
            continue;
        for (const Site& site : file->sites) {
            const Element& element = *site.element;
            if (site.form->isNumber() && (!file->isOffice || has(element, "SOURCE")))
                checkValue(report, element);
            if (has(element, "BUILDING_VALUES"))
                for (const auto& key : {pairs[2].first, pairs[2].second})
                    if (!has(element, key))
                        report.atTag(element, describe(element) + " has BUILDING_VALUES and no " +
                                                  std::string(key));
        }
    }
}

void malformedSource(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files)
        for (const Element& element : file->document->elements())
            for (const auto& [source, status] : pairs) {
                if (!has(element, source))
                    continue;
                const std::string text(element.get(source));
                if (!isSource(text))
                    report.atValue(element, source,
                                   "\"" + text + "\" is not \"standard, table or clause, row\"",
                                   "two commas, and none within a part");
                else if (text.starts_with("Data set") && has(element, status) &&
                         element.get(status) != "CONVENTION" && element.get(status) != "OFFICE")
                    report.atValue(element, status,
                                   "a choice of the data set has the status " +
                                       std::string(element.get(status)),
                                   "write CONVENTION");
            }
}

void unknownStatus(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files)
        for (const Element& element : file->document->elements())
            for (const auto& [source, status] : pairs)
                if (has(element, status) && !statuses().has(element.get(status)))
                    report.atValue(element, status,
                                   "\"" + std::string(element.get(status)) + "\" is no status",
                                   "known: CONFIRMED-2S, CONFIRMED-1S+T, CONFIRMED-T, SAFER, "
                                   "INHERITED, CONVENTION, OFFICE");
}

void inheritedDiffers(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files) {
        if (!file->actions)
            continue;
        for (const ActionValues& type : file->actions->types())
            for (const auto& [key, set] : type.sets) {
                const auto [code, isBuilding, bridgeType] = key;
                const auto ec = type.sets.find({Mode::EC, isBuilding, bridgeType});
                if (code == Mode::EC || ec == type.sets.end())
                    continue;
                for (const FactorRow& row : factors) {
                    const Value& value = set[row.value];
                    const Value& taken = ec->second[row.value];
                    if (value.place && value.element && value.origin.status == "INHERITED" &&
                        value.number != taken.number)
                        report.atText(
                            *value.element,
                            std::string(row.title) + " of " + type.word + ", " + wordOf(code) +
                                " is marked as that of EC, which is " + numberText(taken.number, 2),
                            "write " + numberText(taken.number, 2) + ", or another status");
                }
            }
    }
}

void buildingValues(const CheckedFiles& files, Report& report)
{
    for (const auto& file : files.files)
        for (const Site& site : file->sites) {
            const Element& value = *site.element;
            if (!factorOf(value))
                continue;
            const Element& set = *value.parent;
            const std::string confirmed =
                " " + std::string(set.parent->get("BUILDING_VALUES")) + " ";
            const bool isBuilding = set.get("NAME") == "BUILDING" || set.get("NAME") == "DEFAULT";
            if (isBuilding &&
                confirmed.find(" " + std::string(value.name) + " ") != std::string::npos)
                report.atTag(value,
                             describe(value) + " is given, and confirmed as that of EC by "
                                               "BUILDING_VALUES",
                             "delete one of the two");
        }
}

void malformedTick(const CheckedFiles& files, Report& report) { checkTicks(files, report, false); }

void staleTick(const CheckedFiles& files, Report& report) { checkTicks(files, report, true); }

void acceptance(const CheckedFiles& files, Report& report)
{
    // A rule that compares files finds nothing when they are not all there.
    const bool isWhole = files.actions && files.attributes && files.rules;
    for (const auto& file : files.files)
        for (const Element& element : file->document->elements()) {
            if (!element.attribute("ACCEPTED"))
                continue;
            const auto parts = acceptancesOf(element);
            if (parts.empty())
                report.atValue(element, "ACCEPTED", "an ACCEPTED names no rule",
                               "write \"rule: reason\"");
            for (const auto& [name, reason] : parts) {
                if (!findRule(name))
                    report.atValue(element, "ACCEPTED", "\"" + name + "\" is no rule of the check",
                                   "all: zelstandard check --explain");
                else if (reason.empty())
                    report.atValue(element, "ACCEPTED",
                                   "an ACCEPTED of " + name + " gives no reason",
                                   "write \"" + name + ": reason\"");
                else if (isWhole && !name.starts_with("save-") && !report.hasUsed(element, name))
                    report.atValue(element, "ACCEPTED",
                                   "the check finds nothing here that " + name + " would accept",
                                   "delete it");
            }
        }
}

} // namespace command::rules
