#include <command/report/SourcesPage.h>

#include <algorithm>
#include <map>
#include <set>
#include <span>
#include <utility>

namespace command
{

namespace
{

using Texts = std::vector<std::string>;
using TickKey = std::pair<const Element*, std::string>; ///< the place of a tick

constexpr const char* statuses[] = {"CONFIRMED-2S", "CONFIRMED-1S+T", "CONFIRMED-T", "SAFER",
                                    "INHERITED",    "CONVENTION",     "OFFICE"};

constexpr const char* header = R"(# Sources of the shipped values

Made by `zelstandard sources` from `ActionTypes.xml` and `Profiles/Standard.xml`; do not edit. It lists what
each code decides itself; all else is taken as EC. An empty cell is taken as EC too; psi11 repeats psi1, and
psi21 and psi22 repeat psi2, where nothing else is said. Crack reduction is 1. Only numbers are taken from
the standards.

To tick a row, with the standard in hand: paste its `CHECKED` into the start tag of the element that is named
(the set or DEFAULT of that name; ANNEX: the start tag of the annex), put in your initials, the date and the
edition, and make this page anew. A value that changes afterwards makes the tick stale. What a code takes as EC
is ticked on its ANNEX, with the text of the last column of the row under EC, "-" in the place of a value that
the annex gives itself; several such parts are parted by ";".

| Status | Meaning |
| --- | --- |
| CONFIRMED-2S | at least two independent public sources agree |
| CONFIRMED-1S+T | one public source agrees, and the standard's own table is known |
| CONFIRMED-T | from the standard's own table as known, without a copy at hand: compare it once with the standard |
| SAFER | believed national value without a copy at hand, shipped because EC's would be on the unsafe side |
| INHERITED | the recommended value of EC; the national value is not confirmed |
| CONVENTION | a choice of this data set, not a value of a standard |
| OFFICE | an office's own value |

DIN-1988 is not meant for the limit-state design of steel. The stress block of EC holds for every code but
DIN-1988, which has none.
)";

std::string joined(const Texts& texts, const char* separator)
{
    std::string result;
    for (const std::string& text : texts)
        result += (&text == &texts.front() ? "" : separator) + text;
    return result;
}

void replaceAll(std::string& text, const std::string& from, const std::string& to)
{
    for (std::size_t at = 0; (at = text.find(from, at)) != std::string::npos; at += to.size())
        text.replace(at, from.size(), to);
}

std::string namesOf(const Texts& structureWords)
{
    std::string names = joined(structureWords, " ");
    replaceAll(names, "RAILWAY1 RAILWAY2 RAILWAY3", "RAILWAY1-3");
    return names;
}

void addOnce(Texts& texts, const std::string& text)
{
    if (std::ranges::find(texts, text) == texts.end())
        texts.push_back(text);
}

std::string tableOf(const Texts& head, const std::vector<Texts>& rows)
{
    if (rows.empty())
        return "";
    std::string text = "\n| " + joined(head, " | ") + " |\n|";
    for (std::size_t i = 0; i < head.size(); ++i)
        text += " --- |";
    for (const Texts& row : rows)
        text += "\n| " + joined(row, " | ") + " |";
    return text + "\n";
}

bool isAnnexOfAction(const Element& element)
{
    return element.name == "ANNEX" && element.parent && element.parent->name == "ANNEXES";
}

/// A column of a row: factor or material column, and its value.
struct Entry {
    std::string name;
    const Value* value;
};
using Entries = std::vector<Entry>;

/// Values of one key stand in one row, keys in the order in which they come first.
template <class Key, class Item> class Groups
{
public:
    std::vector<Item>& operator[](const Key& key)
    {
        for (auto& [known, items] : groups_)
            if (known == key)
                return items;
        return groups_.emplace_back(key, std::vector<Item>()).second;
    }
    [[nodiscard]] const auto& all() const { return groups_; }

private:
    std::vector<std::pair<Key, std::vector<Item>>> groups_;
};

/// Sources and statuses, each with its factors where there are several.
std::string originText(const Entries& entries)
{
    Groups<std::string, std::string> groups;
    std::set<std::string> notes;
    for (const auto& [name, value] : entries) {
        groups[value->origin.source + " (" + value->origin.status + ")"].push_back(name);
        if (!value->origin.note.empty())
            notes.insert(value->origin.note);
    }
    Texts texts;
    for (const auto& [origin, names] : groups.all())
        texts.push_back(origin + (groups.all().size() > 1 ? ": " + joined(names, " ") : ""));
    std::string text = joined(texts, "; ");
    for (const std::string& note : notes)
        text += ". Note: " + note;
    return text;
}

/// What a tick there repeats.
std::string textOf(const TickPlace& place)
{
    return (place.structure.empty() ? "" : place.structure + " ") +
           joined(place.wordings.back(), " ");
}

class Page
{
public:
    explicit Page(const SourcesOf& data) : data_(data) {}

    std::string text()
    {
        std::string text = header + counts();
        for (const Mode code : allCodes())
            text += actions(code);
        text += "\n## Conventions of this data set\n" +
                tableOf({"Code", "gamma sup", "gamma inf", "psi0", "psi1", "psi2", "psi11",
                         "Choice", "Actions", "Tick"},
                        conventionRows());
        text += "\n## Materials\n";
        for (const Mode code : allCodes())
            text += materials(code);
        return text;
    }

private:
    // Counts.

    std::string counts()
    {
        std::map<std::pair<std::string, std::string>, int> count;
        for (const ActionValues& type : data_.actions.types())
            for (const auto& [key, set] : type.sets)
                for (const Value& value : set.values)
                    if (value.element)
                        ++count[{wordOf(std::get<0>(key)), value.origin.status}];
        for (const MaterialRow& table : materialTables)
            for (const Element* annex : annexesOf(table))
                for (const auto& [name, value] : entriesOf(table, *annex))
                    ++count[{std::string(annex->get("NAME")), value->origin.status}];
        Texts head = {"Values of"};
        head.insert(head.end(), std::begin(statuses), std::end(statuses));
        std::vector<Texts> rows;
        for (const Mode code : allCodes()) {
            Texts& row = rows.emplace_back(Texts{wordOf(code)});
            for (const char* status : statuses)
                row.push_back(std::to_string(count[{wordOf(code), status}]));
        }
        return "\n## Counts\n\nValues by status:\n" + tableOf(head, rows) +
               "\nActions whose factors differ from those of EC:\n" + differences();
    }

    std::string differences() const
    {
        Texts head = {"Code"};
        for (const StructureRow& structure : structures)
            head.emplace_back(structure.word);
        std::vector<Texts> rows;
        for (const Mode code : allCodes().subspan(1)) {
            Texts& row = rows.emplace_back(Texts{wordOf(code)});
            for (const StructureRow& structure : structures)
                row.push_back(std::to_string(
                    std::ranges::count_if(data_.actions.types(), [&](const ActionValues& type) {
                        return differsFromEc(type, code, structure.value);
                    })));
        }
        return tableOf(head, rows);
    }

    static bool differsFromEc(const ActionValues& type, Mode code, Structure structure)
    {
        const FactorSet* own = type.find(code, structure);
        const FactorSet* eurocode = type.find(Mode::EC, structure);
        return own && eurocode && std::ranges::any_of(factors, [&](const FactorRow& row) {
                   return (*own)[row.value].number != (*eurocode)[row.value].number;
               });
    }

    // Ticks.

    /// Ticked when all places are; else what to paste, places that repeat the same in one line.
    [[nodiscard]] std::string tickText(const std::vector<TickKey>& keys) const
    {
        Groups<std::pair<std::string, std::string>, std::string> groups;
        for (const auto& [element, structure] : keys) {
            const TickPlace* place = data_.ticks.place(element, structure);
            const Tick* tick = data_.ticks.find(element, structure);
            std::string state;
            if (tick)
                state = tick->state == Tick::State::Holds
                            ? "ticked: " + tick->who
                            : "STALE: " + tick->who + " read " + tick->read + ". ";
            const bool isSet = element->name == "CLASSIFICATION";
            addOnce(groups[{state, place ? textOf(*place) : ""}],
                    isSet ? std::string(element->get("NAME")) : "ANNEX");
        }
        Texts lines;
        for (const auto& [key, names] : groups.all()) {
            const auto& [state, now] = key;
            const std::string paste =
                state.starts_with("ticked")
                    ? ""
                    : "`CHECKED=\"XX YYYY-MM-DD, edition YYYY: " + now + "\"`";
            std::string line = namesOf(names);
            lines.push_back(line.append(": ").append(state).append(paste));
        }
        return joined(lines, "<br>");
    }

    // Actions.

    /// Structures whose own values are equal.
    struct Row {
        Texts structures;
        Entries own; ///< of the first of them
        std::vector<TickKey> places;

        [[nodiscard]] Entries leaders() const
        {
            Entries result;
            std::ranges::copy_if(own, std::back_inserter(result),
                                 [](const Entry& entry) { return !entry.value->isFollower; });
            return result;
        }
    };

    static Entries ownEntries(const FactorSet& set)
    {
        Entries entries;
        for (const FactorRow& row : factors)
            if (const Value& value = set[row.value]; value.element && value.place)
                entries.push_back({row.element, &value});
        return entries;
    }

    static std::string keyOf(const Entries& entries)
    {
        std::string key;
        for (const auto& [name, value] : entries)
            if (!value->isFollower)
                key += name + '\1' + std::to_string(value->number) + '\1' + value->origin.source +
                       '\1' + value->origin.status + '\1' + value->origin.note + '\2';
        return key;
    }

    std::vector<Row> rowsOf(const ActionValues& type, Mode code) const
    {
        Groups<std::string, std::pair<std::string, Entries>> groups;
        for (const StructureRow& structure : structures)
            if (const FactorSet* set = type.find(code, structure.value))
                if (const Entries own = ownEntries(*set); !own.empty())
                    groups[keyOf(own)].emplace_back(structure.word, own);
        std::vector<Row> rows;
        for (const auto& [key, members] : groups.all()) {
            Row& row = rows.emplace_back();
            row.own = members.front().second;
            const auto addPlace = [&](const Element* element, const std::string& structure) {
                const TickKey place(element, structure);
                if (std::ranges::find(row.places, place) == row.places.end())
                    row.places.push_back(place);
            };
            for (const auto& [structure, own] : members) {
                row.structures.push_back(structure);
                for (const Entry& entry : own)
                    addPlace(entry.value->place,
                             isAnnexOfAction(*entry.value->place) ? structure : "");
            }
            const Element* annex = type.annexOf(code);
            for (const std::string& structure : row.structures)
                if (annex && data_.ticks.find(annex, structure))
                    addPlace(annex, structure);
        }
        return rows;
    }

    std::string actions(Mode code)
    {
        const bool isEurocode = code == Mode::EC;
        std::vector<Texts> rows;
        std::string notes;
        for (const ActionValues& type : data_.actions.types()) {
            for (const Row& row : rowsOf(type, code))
                addRow(rows, type, row, code);
            const Element* annex = type.annexOf(code);
            if (annex && !annex->get("NOTE").empty())
                notes += "- " + type.word + ": " + std::string(annex->get("NOTE")) + ".\n";
        }
        Texts head = {"Action", "Structures", "gamma sup", "gamma inf",         "psi0",
                      "psi1",   "psi2",       "psi11",     "Source and status", "Tick"};
        if (isEurocode)
            head.emplace_back("To tick as EC");
        return "\n## " + wordOf(code) + "\n\n" + (isEurocode ? "" : takenAsEc(code)) + notes +
               tableOf(head, rows);
    }

    void addRow(std::vector<Texts>& rows, const ActionValues& type, const Row& row, Mode code)
    {
        static constexpr std::size_t shownCount = 6; // psi11 is the last with a column
        const Entries leaders = row.leaders();
        Texts shown(shownCount);
        std::string extra;
        Texts numbers;
        for (const auto& [name, value] : leaders) {
            const auto* factor = std::ranges::find(factors, name, &FactorRow::element);
            const auto column = static_cast<std::size_t>(factor->value);
            if (column < shownCount)
                shown[column] = value->element->text;
            else
                extra += " " + name + " " + value->element->text;
            numbers.push_back(value->element->text);
        }
        const std::string ticks = tickText(row.places);
        const std::string where = namesOf(row.structures);
        if (extra.empty() && std::ranges::all_of(row.own, [](const Entry& entry) {
                return entry.value->origin.status == "CONVENTION";
            })) {
            addConvention(code, shown, leaders, ticks, type.word + " (" + where + ")");
            return;
        }
        Texts cells = {type.word, where};
        cells.insert(cells.end(), shown.begin(), shown.end());
        cells.push_back(originText(leaders) + extra);
        cells.push_back(ticks);
        if (code == Mode::EC)
            cells.push_back("`" + where + " " + joined(numbers, " ") + "`");
        rows.push_back(std::move(cells));
    }

    void addConvention(Mode code, const Texts& shown, const Entries& leaders,
                       const std::string& ticks, const std::string& action)
    {
        static const std::string start = "Data set, convention, ";
        Texts choices;
        for (const Entry& entry : leaders) {
            const std::string& source = entry.value->origin.source;
            addOnce(choices, source.starts_with(start) ? source.substr(start.size()) : source);
        }
        Texts key = {wordOf(code)};
        key.insert(key.end(), shown.begin(), shown.end());
        key.push_back(joined(choices, "; "));
        key.push_back(ticks);
        conventions_[key].push_back(action);
    }

    std::vector<Texts> conventionRows() const
    {
        std::vector<Texts> rows;
        for (const auto& [key, actions] : conventions_.all()) {
            Texts& row = rows.emplace_back(key.begin(), key.end() - 1);
            row.push_back(joined(actions, "; "));
            row.push_back(key.back());
        }
        return rows;
    }

    /// The actions with structures of which the code decides nothing, "G1; U (RAILWAY1-3)", and the
    /// ticks on these.
    std::string takenAsEc(Mode code) const
    {
        Texts texts;
        std::string ticks;
        for (const ActionValues& type : data_.actions.types()) {
            Texts taken;
            std::size_t there = 0;
            for (const StructureRow& structure : structures)
                if (const FactorSet* set = type.find(code, structure.value)) {
                    ++there;
                    if (ownEntries(*set).empty())
                        taken.emplace_back(structure.word);
                }
            if (taken.empty())
                continue;
            std::string bridges = namesOf(taken);
            replaceAll(bridges, "ROADWAY RAILWAY1-3 FOOTBRIDGE1", "bridges");
            texts.push_back(type.word + (taken.size() == there ? "" : " (" + bridges + ")"));
            const Element* annex = type.annexOf(code);
            for (const std::string& structure : taken)
                if (annex && data_.ticks.find(annex, structure))
                    ticks += "- " + type.word + " as EC: " +
                             tickText({
                                 {annex, structure}
                    }) +
                             "\n";
        }
        return "Taken as EC: " + (texts.empty() ? "nothing" : joined(texts, "; ")) + ".\n" + ticks;
    }

    // Materials.

    [[nodiscard]] std::vector<const Element*> annexesOf(const MaterialRow& table) const
    {
        const Element* element = data_.materials.elementOf(table);
        return element ? element->children : std::vector<const Element*>();
    }

    [[nodiscard]] Entries entriesOf(const MaterialRow& table, const Element& annex) const
    {
        Entries entries;
        const auto code = std::ranges::find(allCodes(), annex.get("NAME"),
                                            [](Mode mode) { return wordOf(mode); });
        if (code == allCodes().end())
            return entries;
        const auto columns = columnsOf(table);
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (const Value& value = data_.materials.find(table, *code, i); value.element)
                entries.push_back({table.control ? table.table : columns[i], &value});
        return entries;
    }

    /// The tables of one element: those of the stress block stand in one.
    [[nodiscard]] std::vector<std::pair<std::string, std::vector<const MaterialRow*>>>
    materialRows() const
    {
        Groups<std::string, const MaterialRow*> groups;
        for (const MaterialRow& table : materialTables)
            groups[table.control ? "STRESSBLOCK" : table.table].push_back(&table);
        return groups.all();
    }

    std::string materials(Mode code) const
    {
        std::vector<Texts> rows;
        Texts taken;
        for (const auto& [name, tables] : materialRows())
            for (const Element* annex : annexesOf(*tables.front())) {
                if (annex->get("NAME") != wordOf(code))
                    continue;
                Entries own;
                for (const MaterialRow* table : tables)
                    for (const Entry& entry : entriesOf(*table, *annex))
                        if (entry.value->place)
                            own.push_back(entry);
                const std::string tick = tickText({
                    {annex, ""}
                });
                if (!own.empty())
                    rows.push_back({name, numbersOf(own), originText(own), tick});
                else if (data_.ticks.find(annex, ""))
                    rows.push_back({name, "taken as EC", "", tick});
                else
                    taken.push_back(name);
            }
        return "\n### " + wordOf(code) + "\n" +
               (taken.empty() ? "" : "\nTaken as EC: " + joined(taken, ", ") + ".\n") +
               tableOf({"Table", "Values", "Source and status", "Tick"}, rows);
    }

    static std::string numbersOf(const Entries& entries)
    {
        Texts texts;
        for (const auto& [name, value] : entries)
            texts.push_back(name + " " + value->element->text);
        return joined(texts, ", ");
    }

    const SourcesOf& data_;
    Groups<Texts, std::string> conventions_;
};

} // namespace

std::string sourcesPage(const SourcesOf& data) { return Page(data).text(); }

namespace
{

std::string faultOf(const Tick& tick)
{
    if (tick.state == Tick::State::Nowhere)
        return "\"" + tick.read + "\" ticks nothing here; SOURCES.md says what to write";
    if (tick.state == Tick::State::Twice)
        return tick.structure + " is ticked twice";
    return "a tick is \"initials YYYY-MM-DD, edition YEAR: values\"";
}

} // namespace

std::vector<SourceFault> sourceFaults(const SourcesOf& data)
{
    std::vector<SourceFault> faults;
    std::set<const Element*> told;
    const auto look = [&](const Value& value) {
        if (value.element && (value.origin.source.empty() || value.origin.status.empty()) &&
            told.insert(value.element).second)
            faults.push_back(
                {value.element, std::string(value.element->name) + " has no " +
                                    (value.origin.source.empty() ? "source" : "status")});
    };
    for (const ActionValues& type : data.actions.types())
        for (const auto& [key, set] : type.sets)
            std::ranges::for_each(set.values, look);
    for (const MaterialRow& table : materialTables)
        for (const Mode code : allCodes())
            for (std::size_t i = 0; i < columnsOf(table).size(); ++i)
                look(data.materials.find(table, code, i));
    for (const Tick& tick : data.ticks.all())
        if (tick.state == Tick::State::Nowhere || tick.state == Tick::State::Twice ||
            tick.state == Tick::State::Malformed)
            faults.push_back({tick.element, faultOf(tick)});
    return faults;
}

} // namespace command
