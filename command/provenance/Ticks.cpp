#include <command/provenance/Ticks.h>

#include <algorithm>
#include <charconv>
#include <chrono>
#include <optional>
#include <sstream>

namespace command
{

namespace
{

using Wording = std::vector<std::string>;

Wording wordsOf(const std::string& text)
{
    Wording words;
    for (std::size_t at = text.find_first_not_of(' '); at < text.size();) {
        const std::size_t end = std::min(text.find(' ', at), text.size());
        words.push_back(text.substr(at, end - at));
        at = text.find_first_not_of(' ', end);
    }
    return words;
}

std::string joined(const Wording& words)
{
    std::string text;
    for (const std::string& word : words)
        text += (text.empty() ? "" : " ") + word;
    return text;
}

/// "1.5" is "1.50"; other words are compared as they stand.
bool isSame(const std::string& left, const std::string& right)
{
    double a = 0;
    double b = 0;
    return readNumber(left, a) && readNumber(right, b) ? a == b : left == right;
}

bool isSame(const Wording& left, const Wording& right)
{
    return std::ranges::equal(left, right,
                              [](const auto& a, const auto& b) { return isSame(a, b); });
}

bool isAnnexOfAction(const Element& element)
{
    return element.name == "ANNEX" && element.parent && element.parent->name == "ANNEXES";
}

bool isDate(const std::string& text)
{
    const auto number = [&](std::size_t at, std::size_t size, int& value) {
        const char* end = text.data() + at + size;
        return std::from_chars(text.data() + at, end, value).ptr == end;
    };
    int year = 0;
    int month = 0;
    int day = 0;
    return text.size() == 10 && text[4] == '-' && text[7] == '-' && number(0, 4, year) &&
           number(5, 2, month) && number(8, 2, day) &&
           std::chrono::year_month_day(std::chrono::year(year),
                                       std::chrono::month(static_cast<unsigned>(month)),
                                       std::chrono::day(static_cast<unsigned>(day)))
               .ok();
}

/// The part before ": ", when it is "initials YYYY-MM-DD, edition YEAR".
std::optional<std::string> whoOf(const std::string& text)
{
    const std::size_t colon = text.find(": ");
    const std::string who = text.substr(0, colon);
    const std::size_t comma = who.find(", edition ");
    if (colon == std::string::npos || comma == std::string::npos || comma + 10 == who.size() ||
        colon + 2 >= text.size() || text.find_first_of(":|", colon + 1) != std::string::npos ||
        who.find('|') != std::string::npos)
        return std::nullopt;
    const std::size_t blank = who.rfind(' ', comma - 1);
    if (blank == std::string::npos || blank == 0 || who.find(',') != comma ||
        !isDate(who.substr(blank + 1, comma - blank - 1)))
        return std::nullopt;
    return who;
}

/// Structures written together: "RAILWAY1-3 1.50 0.00".
Wording structuresOf(const Wording& words)
{
    Wording names;
    for (const std::string& word : words) {
        if (word.empty() ||
            !((word[0] >= 'A' && word[0] <= 'Z') || (word[0] >= 'a' && word[0] <= 'z')))
            break;
        if (word == "RAILWAY1-3")
            names.insert(names.end(), {"RAILWAY1", "RAILWAY2", "RAILWAY3"});
        else
            names.push_back(word);
    }
    return names;
}

} // namespace

Ticks::Ticks(const ActionFile& actions, const MaterialFile& materials)
{
    for (const ActionValues& action : actions.types())
        addAction(action);
    addMaterials(materials);
    judge(actions.document());
    judge(materials.document());
}

const TickPlace* Ticks::place(const Element* element, const std::string& structure) const
{
    const auto found = std::ranges::find_if(places_, [&](const TickPlace& place) {
        return place.element == element && place.structure == structure;
    });
    return found == places_.end() ? nullptr : &*found;
}

const Tick* Ticks::find(const Element* element, const std::string& structure) const
{
    const auto found = std::ranges::find_if(ticks_, [&](const Tick& tick) {
        return tick.element == element && tick.structure == structure;
    });
    return found == ticks_.end() ? nullptr : &*found;
}

void Ticks::addPlace(const Element& element, const std::string& structure,
                     std::vector<Wording> wordings)
{
    if (std::ranges::any_of(wordings, [](const Wording& words) { return !words.empty(); }))
        places_.push_back({&element, structure, std::move(wordings)});
}

void Ticks::addAction(const ActionValues& action)
{
    for (const Element* annex : action.annexes) {
        for (const Element* set : annex->children) {
            Wording all;
            Wording own;
            for (const Element* value : set->children) {
                const auto* row = std::ranges::find(factors, value->name, &FactorRow::element);
                if (row == std::end(factors))
                    continue;
                all.push_back(value->text);
                const bool follows = row->leader != row->value && !value->attribute("SOURCE") &&
                                     !value->attribute("STATUS");
                if (!follows)
                    own.push_back(value->text);
            }
            addPlace(*set, {}, {all, own});
        }
        const std::string_view code = annex->get("NAME");
        for (const StructureRow& structure : structures)
            for (const Mode mode : allCodes()) {
                const FactorSet* set = wordOf(mode) == code && mode != Mode::EC
                                           ? action.find(mode, structure.value)
                                           : nullptr;
                if (!set)
                    continue;
                Wording taken;
                for (const Value& value : set->values)
                    if (value.element && !value.isFollower)
                        taken.push_back(!value.place || value.place == annex ? value.element->text
                                                                             : "-");
                if (std::ranges::any_of(taken, [](const std::string& word) { return word != "-"; }))
                    addPlace(*annex, structure.word, {taken});
            }
    }
}

void Ticks::addMaterials(const MaterialFile& materials)
{
    const Element* seen = nullptr;
    for (const MaterialRow& table : materialTables) {
        const Element* element = materials.elementOf(table);
        if (!element || element == seen) // the stress block is one element for three rows
            continue;
        seen = element;
        for (const Element* annex : element->children) {
            Wording own;
            Wording all;
            for (const MaterialRow& row : materialTables)
                if (materials.elementOf(row) == element)
                    for (std::size_t column = 0; column < columnsOf(row).size(); ++column) {
                        const char* name = row.control ? row.table : columnsOf(row)[column];
                        const Element* given = annex->child(name);
                        const Element* first = element->children.front()->child(name);
                        if (given)
                            own.push_back(given->text);
                        if (given || first)
                            all.push_back((given ? given : first)->text);
                    }
            addPlace(*annex, {}, {all, own.empty() ? all : own});
        }
    }
}

void Ticks::judge(const Document& document)
{
    for (const Element& element : document.elements()) {
        if (!element.attribute("CHECKED"))
            continue;
        const std::string text(element.get("CHECKED"));
        const std::optional<std::string> who = whoOf(text);
        if (!who) {
            ticks_.push_back({Tick::State::Malformed, &element, {}, {}, text, {}});
            continue;
        }
        const std::string values = text.substr(text.find(": ") + 2);
        if (!isAnnexOfAction(element)) {
            judge(element, values, {{}, &element, {}, *who, {}, {}});
            continue;
        }
        std::istringstream parts(values);
        for (std::string part; std::getline(parts, part, ';');) {
            const Wording words = wordsOf(part);
            const Wording names = structuresOf(words);
            // Behind the names, of which "RAILWAY1-3" is one word.
            std::size_t count = 0;
            while (count < words.size() && !structuresOf({words[count]}).empty())
                ++count;
            const std::string read =
                joined(Wording(words.begin() + static_cast<std::ptrdiff_t>(count), words.end()));
            if (names.empty())
                judge(element, read, {{}, &element, {}, *who, {}, {}});
            for (const std::string& name : names)
                judge(element, read, {{}, &element, name, *who, {}, {}});
        }
    }
}

void Ticks::judge(const Element& element, const std::string& text, Tick tick)
{
    tick.read = text;
    const TickPlace* here = place(&element, tick.structure);
    const bool isStructure =
        std::ranges::find(structures, tick.structure, [](const StructureRow& row) {
            return std::string(row.word);
        }) != std::end(structures);
    if (here)
        tick.now = joined(here->wordings.back());
    if (!here && !isStructure)
        tick.state = Tick::State::Nowhere;
    else if (find(&element, tick.structure))
        tick.state = Tick::State::Twice;
    else if (here && std::ranges::any_of(here->wordings, [&](const Wording& words) {
                 return isSame(wordsOf(text), words);
             }))
        tick.state = Tick::State::Holds;
    else
        tick.state = Tick::State::Stale;
    ticks_.push_back(std::move(tick));
}

} // namespace command
