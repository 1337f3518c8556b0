#include <algorithm>
#include <array>
#include <memory>

#include <CLI/CLI.hpp>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <command/names/Names.h>
#include <command/provenance/SafeFile.h>
#include <command/provenance/TextEdits.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

using Standard::XMLUtil;

/// One of the eight settings.
struct SettingRow {
    const char* key;     ///< on the command line
    const char* element; ///< in the settings document
    std::string (*inForce)();
    std::string (*wordNamed)(const std::string& text); ///< the file's word; throws Failure
};

/// The only word of a list that the text is.
template <std::size_t count>
std::string oneOf(const std::string& text, const std::array<const char*, count>& words)
{
    std::string message = "no value \"" + text + "\". All:";
    for (const char* word : words) {
        if (folded(word) == folded(text))
            return word;
        message += std::string(word == words.front() ? " " : ", ") + word;
    }
    throw Failure(message);
}

template <class Rows> auto wordsOf(const Rows& rows)
{
    std::array<const char*, std::tuple_size_v<decltype(std::to_array(rows))>> words{};
    std::ranges::transform(rows, words.begin(), [](const auto& row) { return row.word; });
    return words;
}

ZelStandard& standard() { return *ZelStandard::get(); }

std::string bridgeNamed(const std::string& text)
{
    const Structure structure = structureNamed(text);
    if (structure.isBuilding())
        throw Failure("\"" + text + "\" is no bridge\nAll: zelstandard list structures");
    return wordOf(structure);
}

// clang-format off
constexpr SettingRow settings[] = {
    {"code",           "STANDARD_MODE",            [] { return wordOf(standard().getMode()); },
     [](const std::string& text) { return wordOf(codeNamed(text)); }},
    {"classification", "CLASSIFICATION_MODE",      [] { return XMLUtil::get()->getStringToClassification(standard().getClassification()); },
     [](const std::string& text) { return oneOf(text, std::array{"BUILDING", "BRIDGE"}); }},
    {"bridge",         "BRIDGETYPE",               [] { return XMLUtil::get()->getStringToBridgeType(standard().getBridgeType()); },
     bridgeNamed},
    {"building",       "BUILDINGTYPE",             [] { return XMLUtil::get()->getStringToBuildingType(standard().getBuildingType()); },
     [](const std::string& text) { return oneOf(text, wordsOf(Standard::buildingTypeWords)); }},
    {"material",       "DESIGNMATERIAL",           [] { return XMLUtil::get()->getStringToDgnMaterial(standard().getDesignMaterial()); },
     [](const std::string& text) { return XMLUtil::get()->getStringToDgnMaterial(materialNamed(text)); }},
    {"situation",      "SITUATION",                [] { return XMLUtil::get()->getStringToDgnSituation(standard().getSituation()); },
     [](const std::string& text) { return XMLUtil::get()->getStringToDgnSituation(situationNamed(text)); }},
    {"ductility",      "DUCTILITY_CLASSIFICATION", [] { return XMLUtil::get()->getStringToDuctilityClass(standard().getDuctilityClass()); },
     [](const std::string& text) { return oneOf(text, wordsOf(Standard::ductilityClassWords)); }},
    {"service",        "SERVICE_CLASS",            [] { return std::to_string(standard().getServiceClass()); },
     [](const std::string& text) { return oneOf(text, std::array{"1", "2", "3"}); }},
};
// clang-format on

const SettingRow& settingNamed(const std::string& text)
{
    for (const SettingRow& row : settings)
        if (folded(row.key) == folded(text) || folded(row.element) == folded(text))
            return row;
    std::string message = "no setting \"" + text + "\". All:";
    for (const SettingRow& row : settings)
        message += (&row == settings ? " " : ", ") + std::string(row.key);
    throw Failure(message);
}

Answer answerShow(const Context& context)
{
    Answer answer;
    Section& section = answer.section("Settings at start: " + context.data().settingsPath());
    section.table.emplace(Table{
        {{"setting", "setting"},   {"value", "value"}, {"file", "in the file"}, {"line", "line"}},
        {               }
    });
    const Element* element = context.data().settingsDocument().root()->find("SETTINGS");
    bool differs = false;
    for (const SettingRow& row : settings) {
        const Element* child = element ? element->child(row.element) : nullptr;
        const std::string value = row.inForce();
        differs = differs || !child || child->text != value;
        section.table->rows.push_back(
            {row.key, value, child ? child->text : "missing",
             child ? Cell(static_cast<double>(child->position().line), 0) : Cell("-")});
    }
    section.table->columns[2].hidden = !differs;
    if (!element)
        answer.note("The file has no SETTINGS: the library keeps its own values.");
    answer.more = "zelstandard settings set code BS";
    return answer;
}

Answer answerSet(const std::vector<std::string>& words, const Context& context)
{
    if (words.size() != 3)
        throw Failure(
            "settings set needs a setting and a value\nExample: zelstandard settings set code BS");
    const SettingRow& row = settingNamed(words[1]);
    const std::string value = row.wordNamed(words[2]);
    const Document& document = context.data().settingsDocument();
    if (document.isEnciphered() || !document.isUtf8())
        throw Failure("\"" + document.path() + "\" is no plain file in UTF-8");
    const Element* element = document.root()->find("SETTINGS");
    const Element* child = element ? element->child(row.element) : nullptr;
    TextEdits edits(document);
    const std::string before = child ? child->text : "missing";
    const std::string name = row.element;
    if (child && !child->isEmptyTag())
        edits.replace(child->contentBegin, child->contentEnd, value);
    else if (child)
        edits.replace(child->end - 2, child->end, ">" + value + "</" + name + ">");
    else if (element)
        edits.append(*element, "<" + name + ">" + value + "</" + name + ">");
    else
        throw Failure("\"" + document.path() + "\" has no SETTINGS to change");
    const std::string path = context.data().settingsPath();
    replaceFile(path, edits.apply());
    context.data().useSettings(path); // the document is gone then
    Answer answer;
    Section& section = answer.section(std::string(row.key) + ": " + before + " -> " + value);
    section.facts = {
        {"setting", row.key},
        {"before",  before },
        {"value",   value  }
    };
    section.lines.push_back("In " + path + "; all else in it is as it was.");
    answer.more = "zelstandard settings show";
    return answer;
}

} // namespace

Question declareSettings(CLI::App& app)
{
    auto words = std::make_shared<std::vector<std::string>>();
    app.add_option("WORDS", *words, "show, or set SETTING VALUE")->expected(0, 3);
    return [words](const Context& context) {
        if (words->empty() || *words == std::vector<std::string>{"show"})
            return answerShow(context);
        if (words->front() == "set")
            return answerSet(*words, context);
        throw Failure(words->front() == "show"
                          ? "settings show shows all of them; it takes no more words"
                          : "settings knows show and set, not \"" + words->front() + "\"");
    };
}

} // namespace command
