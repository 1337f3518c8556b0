#include <memory>

#include <CLI/CLI.hpp>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <command/names/Names.h>
#include <command/verbs/Verbs.h>
#include <command/vocabulary/Failure.h>

namespace command
{

namespace
{

struct Asked {
    std::string kind;
    std::string words;
};

/// The words of one enumeration, as the data files spell them.
struct WordTable {
    const char* kind;
    void (*list)(const char* kind, Table& table);
};

template <const auto& rows> void listWords(const char* kind, Table& table)
{
    for (const auto& row : rows)
        table.rows.push_back({kind, row.word, Cell(static_cast<int>(row.value), 0)});
}

void listClassifications(const char* kind, Table& table)
{
    for (const int value : {1, 2})
        table.rows.push_back(
            {kind, Standard::XMLUtil::get()->getStringToClassification(Classification{value}),
             Cell(value, 0)});
}

void listTokens(const char* kind, Table& table)
{
    for (const Known& known : listOf("attributes"))
        table.rows.push_back({kind, known.word, Cell(known.number, 0)});
}

constexpr WordTable wordTables[] = {
    {"code",                listWords<Standard::designCodes>               },
    {"classification",      listClassifications                            },
    {"bridge type",         listWords<Standard::bridgeTypeWords>           },
    {"building type",       listWords<Standard::buildingTypeWords>         },
    {"design material",     listWords<Standard::designMaterialWords>       },
    {"design situation",    listWords<Standard::designSituationWords>      },
    {"ductility class",     listWords<Standard::ductilityClassWords>       },
    {"action",              listWords<Standard::actionTypeIdWords>         },
    {"action group",        listWords<Standard::actionGroupTypeWords>      },
    {"load duration",       listWords<Standard::loadDurationWords>         },
    {"state attribute",     listTokens                                     },
    {"attribute type",      listWords<Standard::attributeTypeWords>        },
    {"attribute load type", listWords<Standard::attributeLoadTypeWords>    },
    {"operator",            listWords<Standard::operatorWords>             },
    {"combination group",   listWords<Standard::combinationGroupWords>     },
    {"rule",                listWords<Standard::instructionTypeWords>      },
    {"rule template",       listWords<Standard::superpositionTemplateWords>},
};

Answer listAllWords(const std::string& wanted)
{
    Answer answer;
    Section& section = answer.section("The words of the data files");
    section.table.emplace(Table{
        {{"kind", "kind"},      {"word", "word"}, {"number", "number"}},
        {                    }
    });
    std::vector<std::string> names;
    for (const WordTable& words : wordTables) {
        names.emplace_back(words.kind);
        if (wanted.empty() || folded(wanted) == folded(words.kind) ||
            folded(wanted) == folded(words.kind) + "s")
            words.list(words.kind, *section.table);
    }
    if (section.table->rows.empty()) {
        std::string message = "no words of the kind \"" + wanted + "\". Kinds:";
        for (const std::string& name : names)
            message += (name == names.front() ? " " : ", ") + name;
        throw Failure(message);
    }
    return answer;
}

Answer answerList(const Asked& asked)
{
    if (asked.kind == "words")
        return listAllWords(asked.words);
    Answer answer;
    Section& section = answer.section();
    section.facts = {
        {"kind", asked.kind}
    };
    Table table{
        {{"word", "word"},  {"number", "number"}, {"name", "name"}, {"synonyms", "also"}},
        {        }
    };
    bool hasSynonyms = false;
    for (const Known& known : listOf(asked.kind)) {
        std::string synonyms;
        for (const std::string& synonym : known.synonyms)
            synonyms += (synonyms.empty() ? "" : ", ") + synonym;
        hasSynonyms = hasSynonyms || !synonyms.empty();
        table.rows.push_back({known.word, Cell(known.number, 0), known.name, synonyms});
    }
    table.columns[3].hidden = !hasSynonyms;
    table.columns[3].droppable = true;
    section.table = std::move(table);
    return answer;
}

Answer answerFind(const std::string& text)
{
    Answer answer;
    Section& section = answer.section();
    section.table.emplace(Table{
        {{"kind", "kind"},      {"word", "word"}, {"number", "number"}, {"name", "name"}},
        {            }
    });
    const std::string wanted = folded(text);
    for (const std::string& kind : kinds())
        for (const Known& known : listOf(kind)) {
            std::vector<std::string> names = known.synonyms;
            names.insert(names.end(), {known.word, known.name, known.otherName});
            for (const std::string& name : names)
                if (!wanted.empty() && folded(name).find(wanted) != std::string::npos) {
                    section.table->rows.push_back(
                        {kind, known.word, Cell(known.number, 0), known.name});
                    break;
                }
        }
    if (section.table->rows.empty())
        throw Failure("nothing has \"" + text + "\" in its name\nAll: zelstandard list words");
    return answer;
}

} // namespace

Question declareList(CLI::App& app)
{
    auto asked = std::make_shared<Asked>();
    std::vector<std::string> all = kinds();
    all.emplace_back("words");
    app.add_option("KIND", asked->kind, "What to list")->required()->check(CLI::IsMember(all));
    app.add_option("WORDS", asked->words, "Of the words those of one kind");
    return [asked](const Context&) { return answerList(*asked); };
}

Question declareFind(CLI::App& app)
{
    auto text = std::make_shared<std::string>();
    app.add_option("TEXT", *text, "Part of a word, of a name in either language, or of a synonym")
        ->required();
    return [text](const Context&) { return answerFind(*text); };
}

} // namespace command
