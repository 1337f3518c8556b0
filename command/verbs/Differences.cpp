#include <command/verbs/Differences.h>

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <utility>

#include <command/names/Names.h>

namespace command
{

namespace
{

using Texts = std::vector<std::string>;

std::string joined(const Texts& texts, const char* separator = ", ")
{
    std::string result;
    for (const std::string& text : texts)
        result += (&text == &texts.front() ? "" : separator) + text;
    return result;
}

void addOnce(Texts& texts, const std::string& text)
{
    if (std::ranges::find(texts, text) == texts.end())
        texts.push_back(text);
}

/// Old and new number; nothing for a set that there is not.
using Change = std::pair<std::optional<double>, std::optional<double>>;
/// Of each factor; nothing for one that does not differ.
using Changes = std::array<std::optional<Change>, factorCount>;

const std::optional<Change>& at(const Changes& changes, Factor factor)
{
    return changes[static_cast<std::size_t>(factor)];
}

struct Spot {
    Mode code{};
    Structure structure;
    auto operator<=>(const Spot&) const = default;
};
using Scope = std::set<Spot>;

/// The name for a list: "railway bridge (one track)".
std::string nameInList(Structure structure)
{
    std::string name = nameOf(structure);
    const std::size_t comma = name.find(", ");
    return comma == std::string::npos ? name
                                      : name.substr(0, comma) + " (" + name.substr(comma + 2) + ")";
}

/// "all bridges", "building, road bridge"
std::string textOf(const std::set<Structure>& some)
{
    Texts texts;
    const auto bridgeCount = some.size() - some.count(building);
    if (some.size() == std::size(structures))
        return "all structures";
    if (some.count(building) != 0)
        texts.push_back(nameOf(building));
    if (bridgeCount == std::size(structures) - 1)
        texts.emplace_back("all bridges");
    else
        for (const Structure structure : some)
            if (!structure.isBuilding())
                texts.push_back(nameInList(structure));
    return joined(texts);
}

/// "EC, BS: building; CSN: road bridge"
std::string textOf(const Scope& scope, bool namesCodes)
{
    std::map<Mode, std::set<Structure>> byCode;
    for (const auto& [code, structure] : scope)
        byCode[code].insert(structure);
    if (!namesCodes)
        return textOf(byCode.begin()->second);
    std::vector<std::pair<std::set<Structure>, Texts>> groups;
    for (const auto& [code, some] : byCode) {
        auto group = std::ranges::find(groups, some, &std::pair<std::set<Structure>, Texts>::first);
        if (group == groups.end())
            group = groups.insert(groups.end(), {some, {}});
        group->second.push_back(wordOf(code));
    }
    Texts texts;
    for (const auto& [some, codes] : groups)
        texts.push_back((codes.size() == allCodes().size() ? "all codes" : joined(codes)) + ": " +
                        textOf(some));
    return joined(texts, "; ");
}

std::string textOf(const std::optional<double>& number, int decimals)
{
    return number ? numberText(*number, decimals) : "none";
}

std::string textOf(const Change& change, int decimals)
{
    return textOf(change.first, decimals) + " -> " + textOf(change.second, decimals);
}

/// Why the value of a set became another one without being named there.
struct Followers {
    std::set<Structure> ofDefault; ///< of the code that has the DEFAULT
    std::set<Mode> ofEc;
};

/// One action with a difference, and where.
struct Difference {
    std::string action;
    Changes changes;
    Scope scope;
    Followers followers;
};

class Comparison
{
public:
    /// @param namesCodes several codes are compared, each with itself
    explicit Comparison(bool namesCodes) : namesCodes_(namesCodes) {}

    void compare(const std::string& action, const FactorSet* from, const FactorSet* to, Spot spot)
    {
        if (!from && !to)
            return;
        actions_.insert(action);
        values_ += factorCount;
        Changes changes;
        for (const FactorRow& row : factors) {
            const auto number = [&](const FactorSet* set) {
                return set ? std::optional((*set)[row.value].number) : std::nullopt;
            };
            const Change change(number(from), number(to));
            if (change.first != change.second)
                changes[static_cast<std::size_t>(row.value)] = change;
            else if (originOf((*from)[row.value]) != originOf((*to)[row.value]))
                ++otherOrigins_;
        }
        const auto count =
            std::ranges::count_if(changes, [](const auto& c) { return c.has_value(); });
        if (count == 0)
            return;
        differing_ += static_cast<std::size_t>(count);
        Difference& difference = differenceOf(action, changes);
        difference.scope.insert(spot);
        addFollower(difference, to ? *to : *from, spot);
    }

    [[nodiscard]] bool isEmpty() const { return differences_.empty(); }

    void add(Answer& answer, const std::string& title, bool isMachineRead)
    {
        std::set<std::string> differing;
        for (const Difference& difference : differences_)
            differing.insert(difference.action);
        Section& head = answer.section(
            title + ": " + std::to_string(differing_) + " of " + std::to_string(values_) +
            " values differ" +
            (differing.empty() ? ""
                               : ", in " + std::to_string(differing.size()) + " of " +
                                     std::to_string(actions_.size()) + " action types"));
        if (isMachineRead)
            head.table = longTable();
        else
            addTables(answer);
        if (namesCodes_ && otherOrigins_ != 0)
            answer.note((otherOrigins_ == 1 ? "1 value has"
                                            : std::to_string(otherOrigins_) + " values have") +
                        std::string(" the same number and another source or status."));
    }

private:
    static std::string originOf(const Value& value)
    {
        return value.origin.source + "\n" + value.origin.status;
    }

    Difference& differenceOf(const std::string& action, const Changes& changes)
    {
        for (Difference& known : differences_)
            if (known.action == action && known.changes == changes)
                return known;
        differences_.push_back({action, changes, {}, {}});
        return differences_.back();
    }

    /// By the first factor that differs.
    static void addFollower(Difference& difference, const FactorSet& set, Spot spot)
    {
        for (const FactorRow& row : factors) {
            const Value& value = set[row.value];
            if (!at(difference.changes, row.value) || !value.element)
                continue;
            if (value.isCopy)
                difference.followers.ofEc.insert(spot.code);
            else if (value.element->parent->get("NAME") == "DEFAULT")
                difference.followers.ofDefault.insert(spot.structure);
            return;
        }
    }

    // For programs: one row a value.

    [[nodiscard]] Table longTable() const
    {
        Table table;
        for (const char* key : {"code", "structure", "action", "factor", "from", "to"})
            table.columns.push_back({key, key});
        const auto cell = [](const std::optional<double>& number) {
            return number ? Cell(*number) : Cell("-");
        };
        for (const Difference& difference : differences_)
            for (const auto& [code, structure] : difference.scope)
                for (const FactorRow& row : factors)
                    if (const auto& change = at(difference.changes, row.value))
                        table.rows.push_back({wordOf(code), wordOf(structure), difference.action,
                                              row.key, cell(change->first), cell(change->second)});
        return table;
    }

    // For people: a table for each scope, a row for each kind of change.

    void addTables(Answer& answer) const
    {
        std::vector<Scope> scopes;
        for (const Difference& difference : differences_)
            if (std::ranges::find(scopes, difference.scope) == scopes.end())
                scopes.push_back(difference.scope);
        for (const Scope& scope : scopes) {
            std::vector<const Difference*> members;
            for (const Difference& difference : differences_)
                if (difference.scope == scope)
                    members.push_back(&difference);
            const bool isOnly = scopes.size() == 1 && !namesCodes_;
            Section& section = isOnly ? answer.sections.back() : answer.section();
            if (!isOnly)
                section.title.push_back(textOf(scope, namesCodes_));
            section.table = tableOf(members);
            section.lines = linesOf(members);
        }
    }

    /// A factor that changes as the one that it repeats is not shown.
    static bool isShown(const FactorRow& row, const std::vector<const Difference*>& members)
    {
        return std::ranges::any_of(members, [&](const Difference* member) {
            const auto& change = at(member->changes, row.value);
            return change && (row.leader == row.value || change != at(member->changes, row.leader));
        });
    }

    static Table tableOf(const std::vector<const Difference*>& members)
    {
        std::vector<const FactorRow*> shown;
        Table table;
        table.columns.push_back({"actions", ""});
        for (const FactorRow& row : factors)
            if (isShown(row, members)) {
                shown.push_back(&row);
                table.columns.push_back({row.key, row.title});
            }
        std::vector<std::pair<Changes, Texts>> groups;
        for (const Difference* member : members) {
            auto group =
                std::ranges::find(groups, member->changes, &std::pair<Changes, Texts>::first);
            if (group == groups.end())
                group = groups.insert(groups.end(), {member->changes, {}});
            group->second.push_back(member->action);
        }
        for (const auto& [changes, actions] : groups) {
            std::vector<Cell> cells;
            for (const FactorRow* row : shown) {
                const auto& change = at(changes, row->value);
                cells.emplace_back(change ? textOf(*change, row->decimals) : "");
            }
            addRows(table, actions, cells);
        }
        return table;
    }

    /// As many lines as the names of the actions need beside the changes.
    static void addRows(Table& table, const Texts& actions, std::vector<Cell> cells)
    {
        constexpr std::size_t pageWidth = 100;
        constexpr std::size_t changeWidth = 15;
        constexpr std::size_t leastWidth = 15;
        const std::size_t taken = changeWidth * cells.size();
        const std::size_t width = taken + leastWidth < pageWidth ? pageWidth - taken : leastWidth;
        std::string names;
        const auto finish = [&] {
            std::vector<Cell> row = {names};
            row.insert(row.end(), cells.begin(), cells.end());
            table.rows.push_back(std::move(row));
            names.clear();
            cells.assign(cells.size(), "");
        };
        for (const std::string& action : actions) {
            if (!names.empty() && names.size() + 2 + action.size() > width) {
                names += ",";
                finish();
            }
            names += (names.empty() ? "" : ", ") + action;
        }
        finish();
    }

    [[nodiscard]] Texts linesOf(const std::vector<const Difference*>& members) const
    {
        Texts lines;
        if (const std::string follow = followText(members); !follow.empty())
            lines.push_back(follow);
        if (!namesCodes_)
            return lines;
        for (const Difference* member : members) {
            const auto& [ofDefault, ofEc] = member->followers;
            if (ofDefault.size() > 1)
                addOnce(lines, countText(ofDefault) + " follow because of DEFAULT.");
            Texts codes;
            for (const Mode code : ofEc)
                codes.push_back(wordOf(code));
            if (!codes.empty())
                addOnce(lines,
                        joined(codes) + (codes.size() == 1 ? " takes" : " take") + " it from EC.");
        }
        return lines;
    }

    /// "building and 5 bridges"
    static std::string countText(const std::set<Structure>& some)
    {
        const bool hasBuilding = some.count(building) != 0;
        const std::string bridges =
            std::to_string(some.size() - (hasBuilding ? 1 : 0)) + " bridges";
        return hasBuilding ? "building and " + bridges : bridges;
    }

    /// "psi11 follows psi1; psi21 and psi22 follow psi2. No gamma differs."
    static std::string followText(const std::vector<const Difference*>& members)
    {
        const auto changes = [&](Factor factor) {
            return std::ranges::any_of(
                members, [&](const Difference* m) { return at(m->changes, factor).has_value(); });
        };
        const auto follows = [&](Factor factor) {
            return changes(factor) && !isShown(rowOf(factor), members);
        };
        Texts texts;
        if (follows(Factor::Psi11))
            texts.emplace_back("psi11 follows psi1");
        if (follows(Factor::Psi21) && follows(Factor::Psi22))
            texts.emplace_back("psi21 and psi22 follow psi2");
        std::string text = texts.empty() ? "" : joined(texts, "; ") + ".";
        if (!changes(Factor::GammaSup) && !changes(Factor::GammaInf))
            text += (text.empty() ? "" : " ") + std::string("No gamma differs.");
        return text;
    }

    bool namesCodes_;
    std::vector<Difference> differences_;
    std::set<std::string> actions_;
    std::size_t values_ = 0;
    std::size_t differing_ = 0;
    std::size_t otherOrigins_ = 0;
};

/// What a file says apart from values: of each thing its fields by name.
using Fields = std::map<std::string, std::string>;
using Things = std::map<std::string, Fields>;

/// The text of an element, or the names of its children.
std::string contentOf(const Element& element)
{
    Texts names;
    for (const Element* child : element.children)
        names.emplace_back(child->name);
    return element.children.empty() ? element.text : joined(names, " ");
}

Fields childrenOf(const Element& element)
{
    Fields fields;
    for (const Element* child : element.children)
        fields.try_emplace(std::string(child->name), contentOf(*child));
    return fields;
}

Things attributesOf(const Document& document)
{
    Things things;
    if (const Element* list = document.root()->find("STATEATTRIBUTES"))
        for (const Element* attribute : list->children)
            things[std::string(attribute->get("NAME"))].merge(childrenOf(*attribute));
    return things;
}

Things settingsOf(const Document& document)
{
    const Element* settings = document.root()->find("SETTINGS");
    return settings ? Things{{"settings", childrenOf(*settings)}} : Things();
}

/// The first mention of a tag decides; the blocks above it are known by their names.
Things rulesOf(const Document& document)
{
    Things things;
    std::map<std::string, std::vector<const Element*>, std::less<>> blocks;
    const Element* list = document.root()->find("STATEINSTRUCTIONS");
    const auto addTag = [](Fields& tags, const Element& tag) {
        tags.try_emplace(std::string(tag.get("NAME")), tag.get("OPERATOR"));
    };
    for (const Element* rule : list ? list->children : std::vector<const Element*>()) {
        if (rule->name == "DEFAULT_BLOCKS") {
            for (const Element* block : rule->children)
                for (const Element* tag : block->children)
                    blocks[std::string(block->get("NAME"))].push_back(tag);
            continue;
        }
        Fields& tags =
            things[std::string(rule->get("TYPE")) + " " + std::string(rule->get("TEMPLATE"))];
        const Element* entries = rule->find("STATEATTRIBUTES");
        for (const Element* entry : entries ? entries->children : std::vector<const Element*>()) {
            if (entry->name != "DEFAULT_BLOCKS") {
                addTag(tags, *entry);
                continue;
            }
            for (const Element* reference : entry->children)
                for (const Element* tag : blocks[std::string(reference->name)])
                    addTag(tags, *tag);
        }
    }
    return things;
}

/// One row a kind of change: things that change alike stand together.
bool addDifferences(Answer& answer, const char* title, const Things& from, const Things& to)
{
    using Kind = std::array<std::string, 3>; // field, old text, new text
    std::vector<std::pair<Kind, Texts>> changes;
    const auto add = [&](const std::string& thing, const Kind& kind) {
        auto known = std::ranges::find(changes, kind, &std::pair<Kind, Texts>::first);
        if (known == changes.end())
            known = changes.insert(changes.end(), {kind, {}});
        known->second.push_back(thing);
    };
    Things all = from;
    all.insert(to.begin(), to.end());
    for (const auto& [thing, unused] : all) {
        const auto old = from.find(thing);
        const auto now = to.find(thing);
        if (old == from.end() || now == to.end()) {
            add(thing,
                {"", old == from.end() ? "none" : "there", now == to.end() ? "none" : "there"});
            continue;
        }
        Fields fields = old->second;
        fields.insert(now->second.begin(), now->second.end());
        for (const auto& [field, also] : fields) {
            const auto text = [&](const Fields& of) {
                const auto found = of.find(field);
                return found == of.end() ? std::string("none") : found->second;
            };
            if (text(old->second) != text(now->second))
                add(thing, {field, text(old->second), text(now->second)});
        }
    }
    if (changes.empty())
        return false;
    Section& section = answer.section(title);
    section.table.emplace();
    section.table->columns = {
        {"what",  ""     },
        {"field", "field"},
        {"from",  "from" },
        {"to",    "to"   }
    };
    for (const auto& [kind, things] : changes)
        section.table->rows.push_back({joined(things), kind[0], kind[1], kind[2]});
    return true;
}

const FactorSet* find(const ActionValues* type, Mode code, Structure structure)
{
    return type ? type->find(code, structure) : nullptr;
}

/// The words of the types of both files, those of the first file first.
std::vector<ActionTypeId> typesOf(const ActionFile& left, const ActionFile& right)
{
    std::vector<ActionTypeId> ids;
    for (const ActionFile* file : {&left, &right})
        for (const ActionValues& type : file->types())
            if (std::ranges::find(ids, type.id) == ids.end())
                ids.push_back(type.id);
    return ids;
}

} // namespace

bool addDifferences(Answer& answer, const ActionFile& file, Mode from, Mode to,
                    const std::vector<Structure>& among, bool isMachineRead)
{
    Comparison comparison(false);
    for (const ActionValues& type : file.types())
        for (const Structure structure : among)
            comparison.compare(type.word, type.find(from, structure), type.find(to, structure),
                               {to, structure});
    comparison.add(answer,
                   wordOf(from) + " -> " + wordOf(to) + ", " +
                       textOf(std::set(among.begin(), among.end())),
                   isMachineRead);
    return !comparison.isEmpty();
}

bool addDifferences(Answer& answer, const ActionFile& from, const ActionFile& to,
                    const std::vector<Mode>& codes, const std::vector<Structure>& among,
                    bool isMachineRead)
{
    Comparison comparison(true);
    for (const ActionTypeId id : typesOf(from, to))
        for (const Mode code : codes)
            for (const Structure structure : among)
                comparison.compare(wordOf(id), find(from.find(id), code, structure),
                                   find(to.find(id), code, structure), {code, structure});
    comparison.add(answer, "Factors", isMachineRead);
    return !comparison.isEmpty();
}

bool addDifferences(Answer& answer, const ActionFile& from, const ActionFile& to)
{
    std::vector<Structure> all;
    for (const StructureRow& row : structures)
        all.push_back(row.value);
    return addDifferences(answer, from, to, {allCodes().begin(), allCodes().end()}, all, false);
}

bool addAttributeDifferences(Answer& answer, const Document& from, const Document& to)
{
    return addDifferences(answer, "State attributes", attributesOf(from), attributesOf(to));
}

bool addRuleDifferences(Answer& answer, const Document& from, const Document& to)
{
    const bool differs = addDifferences(answer, "Settings", settingsOf(from), settingsOf(to));
    return addDifferences(answer, "Superposition rules", rulesOf(from), rulesOf(to)) || differs;
}

bool addDifferences(Answer& answer, const MaterialFile& from, const MaterialFile& to,
                    const std::vector<Mode>& codes)
{
    Table table;
    for (const char* key : {"codes", "table", "column", "from", "to"})
        table.columns.push_back({key, key == std::string("codes") ? "" : key});
    for (const MaterialRow& row : materialTables)
        for (std::size_t column = 0; column < columnsOf(row).size(); ++column) {
            std::map<std::pair<double, double>, Texts> changes;
            for (const Mode code : codes) {
                const std::pair change(from.find(row, code, column).number,
                                       to.find(row, code, column).number);
                if (change.first != change.second)
                    changes[change].push_back(wordOf(code));
            }
            for (const auto& [change, words] : changes)
                table.rows.push_back(
                    {words.size() == allCodes().size() ? "all codes" : joined(words), row.table,
                     columnsOf(row)[column], Cell(change.first), Cell(change.second)});
        }
    const std::size_t count = table.rows.size();
    if (count == 0)
        return false;
    answer.section("Materials").table = std::move(table);
    return true;
}

} // namespace command
