#include <command/names/Names.h>

#include <algorithm>
#include <array>
#include <numeric>
#include <utility>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/attributes/StateAttributeBase.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/instructions/StateInstruction.h>
#include <zelstandard/platform/ZelText.h>
#include <zelsuite/zelsuite.h>

#include <command/names/Synonyms.h>
#include <command/vocabulary/Failure.h>

namespace command
{

using Standard::DesignMaterial;
using Standard::DesignSituation;
using Standard::InstructionType;
using Standard::StateAttributeToken;

namespace
{

/// A thing with its names in both languages.
struct Entry {
    int value;
    std::string word;
    std::array<std::string, 2> names; ///< English, German; empty for none
    std::vector<std::string> synonyms;
};
using Entries = std::vector<Entry>;

/// Makes a language the one in force for a while.
class Language
{
public:
    explicit Language(const char* language) : before_(zelsuite::getLanguage())
    {
        zelsuite::setLanguage(language);
    }
    ~Language() { zelsuite::setLanguage(before_); }
    Language(const Language&) = delete;
    Language& operator=(const Language&) = delete;

private:
    std::string before_;
};

std::size_t languageInForce() { return zelsuite::getLanguage() == "de" ? 1 : 0; }

/// @param nameIn gives the name of an entry in the language in force
template <class NameIn> void addNames(Entries& entries, NameIn nameIn)
{
    for (const std::size_t i : {0, 1}) {
        const Language language(i == 0 ? "en" : "de");
        for (Entry& entry : entries)
            if (std::string name = nameIn(entry.value); name != "-")
                entry.names[i] = std::move(name);
    }
}

template <class Value, std::size_t count>
void addSynonyms(Entries& entries, const Synonym<Value> (&synonyms)[count])
{
    for (const auto& [value, text] : synonyms)
        for (Entry& entry : entries)
            if (entry.value == static_cast<int>(value))
                entry.synonyms.emplace_back(text);
}

template <class Row, std::size_t count> Entries entriesOf(const Row (&rows)[count])
{
    Entries entries;
    for (const Row& row : rows)
        entries.push_back({static_cast<int>(row.value), row.word, {}, {}});
    return entries;
}

Entries makeActions()
{
    Entries entries = entriesOf(Standard::actionTypeIdWords);
    std::erase_if(entries, [](const Entry& e) { return e.value == 0; });
    addNames(entries,
             [](int value) { return Standard::ActionType(ActionTypeId{value}).getName(); });
    addSynonyms(entries, actionSynonyms);
    return entries;
}

Entries makeCodes()
{
    Entries entries;
    for (const Standard::DesignCode& code : Standard::designCodes)
        if (code.value != Mode::NO_CODE)
            entries.push_back({static_cast<int>(code.value), code.word, {}, {}});
    addNames(entries, [](int value) {
        for (const Standard::DesignCode& code : Standard::designCodes)
            if (static_cast<int>(code.value) == value)
                return ZelTextResource::get()->loadString(code.textId);
        return std::string();
    });
    addSynonyms(entries, codeSynonyms);
    return entries;
}

/// The number of a structure is that of its bridge type, 0 for a building.
Entries makeStructures()
{
    Entries entries;
    for (const StructureRow& row : structures) {
        Entry entry{
            static_cast<int>(row.value.bridgeType), row.word, {row.english,     row.german},
              {               }
        };
        for (const auto& [value, text] : structureSynonyms)
            if (value == row.value)
                entry.synonyms.emplace_back(text);
        entries.push_back(std::move(entry));
    }
    return entries;
}

Entries makeFactors()
{
    Entries entries;
    for (const FactorRow& row : factors)
        entries.push_back(
            {static_cast<int>(row.value), row.key, {{row.title, row.title}}, {row.element}});
    entries.back().synonyms.emplace_back("crack reduction");
    return entries;
}

Entries makeMaterialTables()
{
    Entries entries;
    for (const MaterialRow& row : materialTables)
        entries.push_back({
            static_cast<int>(&row - materialTables), row.table, {row.english,       row.german},
                {                 }
        });
    return entries;
}

Entries makeTokens()
{
    Entries entries;
    for (int value = 1; value <= static_cast<int>(StateAttributeToken::CRANEWAY); ++value)
        entries.push_back({value,
                           Standard::StateAttributeBase::getPersistenceStringFromToken(
                               StateAttributeToken{value}),
                           {},
                           {}});
    addNames(entries, [](int value) {
        return Standard::StateAttributeBase(StateAttributeToken{value}).getName();
    });
    return entries;
}

Entries makeRules()
{
    Entries entries = entriesOf(Standard::instructionTypeWords);
    std::erase_if(entries, [](const Entry& e) { return e.value < 0; });
    addNames(entries, [](int value) {
        return Standard::StateInstruction(InstructionType{value}).getName();
    });
    return entries;
}

/// One kind of things.
struct Kind {
    const char* name;   ///< in the plural, for "list"
    const char* single; ///< "action"
    Entries (*make)();
    Entries entries{};

    const Entries& all()
    {
        if (entries.empty())
            entries = make();
        return entries;
    }
};

enum KindIndex {
    Codes,
    Actions,
    Structures,
    Factors,
    Rules,
    Attributes,
    Tables,
    Materials,
    Situations
};

std::vector<Kind>& allKinds()
{
    static std::vector<Kind> all = {
        {"codes",      "code",            makeCodes                                               },
        {"actions",    "action",          makeActions                                             },
        {"structures", "structure",       makeStructures                                          },
        {"factors",    "factor",          makeFactors                                             },
        {"rules",      "rule",            makeRules                                               },
        {"attributes", "state attribute", makeTokens                                              },
        {"tables",     "material table",  makeMaterialTables                                      },
        {"materials",  "material",        [] { return entriesOf(Standard::designMaterialWords); } },
        {"situations", "situation",       [] { return entriesOf(Standard::designSituationWords); }},
    };
    return all;
}

Kind& kindAt(KindIndex index) { return allKinds()[static_cast<std::size_t>(index)]; }

std::size_t distance(const std::string& left, const std::string& right)
{
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), std::size_t{0});
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = std::exchange(row[0], i + 1);
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t replaced = diagonal + (left[i] == right[j] ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

/// How far a folded candidate is from a folded text; what begins alike is near.
std::size_t farness(const std::string& text, const std::string& candidate)
{
    const auto differs = std::ranges::mismatch(text, candidate).in1;
    const auto common = static_cast<std::size_t>(differs - text.begin());
    const std::size_t rest = text.size() - common;
    if (common == text.size() && common >= 2)
        return 1;
    return std::min(distance(text, candidate), common >= 4 ? rest + 1 : std::string::npos);
}

bool isNear(std::size_t distance, const std::string& text)
{
    return distance <= (text.size() < 4 ? 1 : std::max<std::size_t>(2, text.size() / 3));
}

/// All names of an entry, its word first.
std::vector<std::string> namesOf(const Entry& entry)
{
    std::vector<std::string> result = {entry.word};
    for (const std::string& name : entry.names)
        if (!name.empty())
            result.push_back(name);
    result.insert(result.end(), entry.synonyms.begin(), entry.synonyms.end());
    return result;
}

/// "SNOW (Schneelasten)": the word, and the name that is near when it is another one.
std::string nearText(const Entry& entry, const std::string& text, std::size_t& best)
{
    std::string nearestName;
    best = std::string::npos;
    for (const std::string& name : namesOf(entry))
        if (const std::size_t far = farness(text, folded(name)); far < best) {
            best = far;
            nearestName = name;
        }
    return nearestName == entry.word ? entry.word : entry.word + " (" + nearestName + ")";
}

[[noreturn]] void failUnknown(Kind& kind, const std::string& text)
{
    const std::string wanted = folded(text);
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const Entry& entry : kind.all()) {
        std::size_t far = 0;
        std::string shown = nearText(entry, wanted, far);
        if (isNear(far, wanted))
            near.emplace_back(far, std::move(shown));
    }
    std::ranges::stable_sort(near, {}, &std::pair<std::size_t, std::string>::first);
    std::string message = std::string("no ") + kind.single + " \"" + text + "\".";
    for (std::size_t i = 0; i < std::min<std::size_t>(near.size(), 3); ++i)
        message += (i == 0 ? " Near: " : ", ") + near[i].second;
    throw Failure(message + "\nAll: zelstandard list " + kind.name);
}

[[noreturn]] void failAmbiguous(const Kind& kind, const std::string& text,
                                const std::vector<const Entry*>& found)
{
    std::string message = "\"" + text + "\" means several " + kind.name + ":";
    for (const Entry* entry : found) {
        const std::string& name = entry->names[languageInForce()];
        message += (entry == found.front() ? " " : ", ") + entry->word +
                   (name.empty() ? "" : " (" + name + ")");
    }
    throw Failure(message + "\nAll: zelstandard list " + kind.name);
}

/// The entries whose word is the text, else those with any other name that is.
std::vector<const Entry*> matching(Kind& kind, const std::string& text)
{
    const std::string wanted = folded(text);
    std::vector<const Entry*> byWord;
    std::vector<const Entry*> byName;
    for (const Entry& entry : kind.all()) {
        if (folded(entry.word) == wanted)
            byWord.push_back(&entry);
        for (const std::string& name : namesOf(entry))
            if (folded(name) == wanted && (byName.empty() || byName.back() != &entry))
                byName.push_back(&entry);
    }
    if (wanted.empty())
        return {};
    return byWord.empty() ? byName : byWord;
}

int valueNamed(KindIndex index, const std::string& text)
{
    Kind& kind = kindAt(index);
    const auto found = matching(kind, text);
    if (found.empty())
        failUnknown(kind, text);
    if (found.size() > 1)
        failAmbiguous(kind, text, found);
    return found.front()->value;
}

std::string nameOfValue(KindIndex index, int value)
{
    for (const Entry& entry : kindAt(index).all())
        if (entry.value == value)
            return entry.names[languageInForce()];
    return {};
}

/// The words of several texts, each a list parted by commas.
std::vector<std::string> wordsOf(const std::vector<std::string>& texts)
{
    std::vector<std::string> words;
    for (const std::string& text : texts)
        for (std::size_t at = 0; at <= text.size();) {
            const std::size_t end = std::min(text.find(',', at), text.size());
            words.push_back(text.substr(at, end - at));
            at = end + 1;
        }
    return words;
}

template <class Value> void addOnce(std::vector<Value>& values, Value value)
{
    if (std::ranges::find(values, value) == values.end())
        values.push_back(value);
}

std::string withoutTag(const std::string& text)
{
    return folded(text.substr(0, 4)) == "tag" && text.size() > 3 && text[3] == ':' ? text.substr(4)
                                                                                   : text;
}

} // namespace

std::string folded(const std::string& text)
{
    static constexpr std::pair<std::string_view, const char*> letters[] = {
        {"ä", "ae"},
        {"ö", "oe"},
        {"ü", "ue"},
        {"Ä", "ae"},
        {"Ö", "oe"},
        {"Ü", "ue"},
        {"ß", "ss"},
    };
    std::string result;
    for (std::size_t at = 0; at < text.size(); ++at) {
        const char c = text[at];
        const auto* letter = std::ranges::find(letters, std::string_view(text).substr(at, 2),
                                               &std::pair<std::string_view, const char*>::first);
        if (letter != std::end(letters)) {
            result += letter->second;
            ++at;
        } else if (c >= 'A' && c <= 'Z') {
            result += static_cast<char>(c - 'A' + 'a');
        } else if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') ||
                   (static_cast<unsigned char>(c) & 0x80U) != 0) {
            result += c;
        }
    }
    return result;
}

ActionTypeId actionNamed(const std::string& text)
{
    return ActionTypeId{valueNamed(Actions, text)};
}

Mode codeNamed(const std::string& text) { return Mode{valueNamed(Codes, text)}; }

Structure structureNamed(const std::string& text)
{
    const int type = valueNamed(Structures, text);
    return type == 0 ? building : bridge(BridgeType{type});
}

Factor factorNamed(const std::string& text)
{
    return Factor{static_cast<std::size_t>(valueNamed(Factors, text))};
}

const MaterialRow& materialTableNamed(const std::string& text)
{
    return materialTables[valueNamed(Tables, text)];
}

DesignMaterial materialNamed(const std::string& text)
{
    return DesignMaterial{valueNamed(Materials, text)};
}

DesignSituation situationNamed(const std::string& text)
{
    return DesignSituation{valueNamed(Situations, text)};
}

InstructionType ruleNamed(const std::string& text)
{
    return InstructionType{valueNamed(Rules, text)};
}

StateAttributeToken tokenNamed(const std::string& text)
{
    return StateAttributeToken{valueNamed(Attributes, withoutTag(text))};
}

std::vector<Mode> codesNamed(const std::vector<std::string>& texts)
{
    std::vector<Mode> codes;
    for (const std::string& word : wordsOf(texts)) {
        if (folded(word) != "all")
            addOnce(codes, codeNamed(word));
        else
            for (const Mode code : allCodes())
                addOnce(codes, code);
    }
    return codes;
}

std::vector<Structure> structuresNamed(const std::vector<std::string>& texts)
{
    std::vector<Structure> result;
    for (const std::string& word : wordsOf(texts)) {
        if (folded(word) != "all")
            addOnce(result, structureNamed(word));
        else
            for (const StructureRow& row : structures)
                addOnce(result, row.value);
    }
    return result;
}

bool isAction(const std::string& text) { return !matching(kindAt(Actions), text).empty(); }

bool isMaterialTable(const std::string& text) { return !matching(kindAt(Tables), text).empty(); }

std::string nameOf(ActionTypeId action) { return nameOfValue(Actions, static_cast<int>(action)); }

std::string nameOf(Mode code) { return nameOfValue(Codes, static_cast<int>(code)); }

std::string nameOf(Structure structure)
{
    return nameOfValue(Structures, static_cast<int>(structure.bridgeType));
}

std::string nameOf(const MaterialRow& row)
{
    return languageInForce() == 1 ? row.german : row.english;
}

std::string nameOf(StateAttributeToken token)
{
    return nameOfValue(Attributes, static_cast<int>(token));
}

std::string nameOf(InstructionType rule) { return nameOfValue(Rules, static_cast<int>(rule)); }

const std::vector<std::string>& kinds()
{
    static const std::vector<std::string> names = [] {
        std::vector<std::string> result;
        for (const Kind& kind : allKinds())
            result.emplace_back(kind.name);
        return result;
    }();
    return names;
}

std::vector<Known> listOf(const std::string& kind)
{
    const auto found = std::ranges::find(allKinds(), kind, &Kind::name);
    std::vector<Known> result;
    for (const Entry& entry : found->all())
        result.push_back({entry.word, entry.value, entry.names[languageInForce()], entry.synonyms,
                          entry.names[1 - languageInForce()]});
    return result;
}

std::vector<std::string> nearest(const std::string& text,
                                 const std::vector<std::string>& candidates)
{
    const std::string wanted = folded(text);
    std::vector<std::pair<std::size_t, std::string>> near;
    for (const std::string& candidate : candidates)
        if (const std::size_t far = farness(wanted, folded(candidate)); isNear(far, wanted))
            near.emplace_back(far, candidate);
    std::ranges::stable_sort(near, {}, &std::pair<std::size_t, std::string>::first);
    std::vector<std::string> result;
    result.reserve(near.size());
    for (auto& [far, candidate] : near)
        result.push_back(std::move(candidate));
    return result;
}

} // namespace command
