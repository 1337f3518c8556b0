#include <command/check/Forms.h>

#include <algorithm>

#include <zelstandard/vocabulary/Enumerations.h>

#include <command/vocabulary/Vocabulary.h>

namespace command
{

namespace
{

using Content = Form::Content;

/// The words of a table, each once; "-" is no word to be written.
template <class Row, std::size_t count>
WordKind wordsOf(const char* name, const Row (&rows)[count], std::vector<std::string> more = {})
{
    WordKind kind{name, std::move(more)};
    for (const Row& row : rows)
        if (std::string_view(row.word) != "-" && !kind.has(row.word))
            kind.words.emplace_back(row.word);
    return kind;
}

const WordKind codes = wordsOf("design code", Standard::designCodes);
const WordKind classifications{
    "classification", {"BUILDING", "BRIDGE"}
};
const WordKind bridgeTypes = wordsOf("bridge type", Standard::bridgeTypeWords);
const WordKind structureWords =
    wordsOf("structure", Standard::bridgeTypeWords, {"BUILDING", "DEFAULT"});
const WordKind buildingTypes = wordsOf("building type", Standard::buildingTypeWords);
const WordKind materials = wordsOf("design material", Standard::designMaterialWords);
const WordKind situations = wordsOf("design situation", Standard::designSituationWords);
const WordKind ductilities = wordsOf("ductility class", Standard::ductilityClassWords);
const WordKind durations = wordsOf("load duration", Standard::loadDurationWords);
const WordKind groups = wordsOf("action group", Standard::actionGroupTypeWords);
const WordKind actions = wordsOf("action type", Standard::actionTypeIdWords);
const WordKind tags = wordsOf("state attribute", Standard::stateAttributeTokens);
const WordKind operators = wordsOf("operator", Standard::operatorWords);
const WordKind attributeTypes = wordsOf("attribute type", Standard::attributeTypeWords);
const WordKind loadTypes = wordsOf("load type", Standard::attributeLoadTypeWords);
const WordKind combinationGroups =
    wordsOf("combination group", Standard::combinationGroupWords, {"0"});
const WordKind rules = wordsOf("rule", Standard::instructionTypeWords);
const WordKind templates = wordsOf("template", Standard::superpositionTemplateWords);
const WordKind factorWords = [] {
    WordKind kind{"factor", {}};
    for (const FactorRow& row : factors)
        kind.words.emplace_back(row.element);
    return kind;
}();
const WordKind statusWords{
    "status",
    {"CONFIRMED-2S", "CONFIRMED-1S+T", "CONFIRMED-T", "SAFER", "INHERITED", "CONVENTION",
      "OFFICE"}
};

using Attributes = std::vector<AttributeForm>;

/// What says where a value comes from.
Attributes origin(Attributes attributes = {})
{
    for (const char* name : {"SOURCE", "STATUS", "NOTE", "ACCEPTED"})
        attributes.push_back({name});
    return attributes;
}

/// The same of an element that holds several values.
Attributes review(Attributes attributes)
{
    attributes = origin(std::move(attributes));
    attributes.push_back({"CHECKED"});
    return attributes;
}

AttributeForm required(std::string_view name, const WordKind* words, std::string_view fallback)
{
    return {name, words, fallback, true};
}

Form number(std::string_view name, Content content)
{
    return {.name = name, .content = content, .attributes = origin()};
}

Form word(std::string_view name, const WordKind& words, std::string_view fallback)
{
    return {.name = name,
            .content = Content::Word,
            .words = &words,
            .fallback = fallback,
            .isRequired = true,
            .attributes = {{"ACCEPTED"}}};
}

Form integer(std::string_view name, std::string_view fallback)
{
    return {.name = name,
            .content = Content::Integer,
            .fallback = fallback,
            .isRequired = true,
            .attributes = {{"ACCEPTED"}}};
}

std::vector<const Form*> allOf(const std::vector<Form>& forms)
{
    std::vector<const Form*> all;
    all.reserve(forms.size());
    for (const Form& form : forms)
        all.push_back(&form);
    return all;
}

// ==== Action types

const std::vector<Form> valueForms = [] {
    std::vector<Form> forms;
    for (const FactorRow& row : factors)
        forms.push_back(
            number(row.element, row.value <= Factor::GammaInf ? Content::Factor : Content::Share));
    return forms;
}();
const Form setForm{.name = "CLASSIFICATION",
                   .attributes = review(
                       {required("NAME", &structureWords, "no bridge: nobody asks for its values"),
                        {"GAMMA_SOURCE"},
                        {"GAMMA_STATUS"}}),
                   .children = allOf(valueForms)};
const Form annexForm{
    .name = "ANNEX",
    .takesAnyName = true,
    .attributes = {required("NAME",                         &codes, "no code: nobody asks for its values"),
                   {"BUILDING_VALUES"},
                   {"BUILDING_SOURCE"},
                   {"BUILDING_STATUS"},
                   {"NOTE"},
                   {"CHECKED"},
                   {"ACCEPTED"}},
    .children = {&setForm}
};
const Form annexesForm{.name = "ANNEXES",
                       .fallback = "a type without values",
                       .isRequired = true,
                       .takesAnyName = true,
                       .attributes = {{"ACCEPTED"}},
                       .children = {&annexForm}};
const Form groupForm = word("ACTIONGROUP", groups, "no group");
const Form durationForm = [] {
    Form form = word("LOADDURATION", durations, "PERMANENT");
    form.missing = "MEDIUMTERM";
    return form;
}();
const Form actionForm{
    .name = "ACTIONTYPE",
    .attributes = {required("NAME", &actions, "NONE"), {"NOTE"}, {"ACCEPTED"}},
    .children = {&groupForm,   &durationForm,           &annexesForm        }
};
const Form actionsForm{.name = "ACTIONTYPES",
                       .takesAnyName = true,
                       .attributes = {{"ACCEPTED"}},
                       .children = {&actionForm}};

// ==== State attributes

Form listOf(std::string_view name, const std::vector<Form>& members)
{
    return {.name = name,
            .fallback = "valid everywhere",
            .isRequired = true,
            .attributes = {{"ACCEPTED"}},
            .children = allOf(members)};
}

std::vector<Form> emptyElements(const std::vector<const char*>& names)
{
    std::vector<Form> forms;
    forms.reserve(names.size());
    for (const char* name : names)
        forms.push_back({.name = name});
    return forms;
}

const std::vector<Form> standardForms = emptyElements({"DIN_2008", "EC", "OENORM", "CSN"});
const std::vector<Form> bridgeForms =
    emptyElements({"RAILWAY1", "RAILWAY2", "RAILWAY3", "ROADWAY", "FOOTBRIDGE1"});
const std::vector<Form> attributeForms = [] {
    std::vector<Form> forms = {
        word("ACTIONTYPE", actions, "none: its factors are 1, psi21 and psi22 0"),
        word("OPERATOR", operators, "no operator"),
        word("TYPE", attributeTypes, "DEFAULT"),
        word("LOAD_TYPE", loadTypes, "UNDEFINED"),
        word("CLASSIFICATION", classifications, "valid everywhere"),
        listOf("STANDARD", standardForms),
        listOf("BRIDGETYPE", bridgeForms),
        integer("EXCLGROUP", "0: no group"),
        word("COMBGROUP", combinationGroups, "0: no group"),
    };
    forms[4].mayBeEmpty = true;
    return forms;
}();
const Form attributeForm{
    .name = "STATEATTRIBUTE",
    .attributes = {required("NAME", &tags, "the undefined tag"), {"NOTE"}, {"ACCEPTED"}},
    .children = allOf(attributeForms)
};
const Form attributesForm{
    .name = "STATEATTRIBUTES",
    .takesAnyName = true,
    .attributes = {{"VERSION"}, {"ACCEPTED"}},
    .children = {&attributeForm          }
};

// ==== Settings document

const std::vector<Form> settingForms = {
    word("STANDARD_MODE", codes, "no code"),
    word("CLASSIFICATION_MODE", classifications, "BUILDING"),
    word("BRIDGETYPE", bridgeTypes, "no bridge; factors are then those of ROADWAY"),
    word("BUILDINGTYPE", buildingTypes, "none"),
    word("DESIGNMATERIAL", materials, "none"),
    word("SITUATION", situations, "PERSISTENT"),
    word("DUCTILITY_CLASSIFICATION", ductilities, "DCL"),
    integer("SERVICE_CLASS", "1"),
};
const Form settingsForm{
    .name = "SETTINGS", .attributes = {{"ACCEPTED"}}, .children = allOf(settingForms)};

struct TableForms {
    std::vector<Form> values;
    Form annex;
    Form table;
};

/// A table of coefficients: annexes with values.
void fill(TableForms& forms, const char* name, const std::vector<const char*>& columns,
          Content content, std::string_view fallback)
{
    for (const char* column : columns)
        forms.values.push_back(number(column, content));
    forms.annex = {.name = "ANNEX",
                   .attributes = review({required("NAME", &codes, fallback)}),
                   .children = allOf(forms.values)};
    forms.table = {.name = name,
                   .takesAnyName = true,
                   .attributes = {{"ACCEPTED"}},
                   .children = {&forms.annex}};
}

constexpr std::string_view nobody = "no code: nobody asks for its values";

const std::vector<TableForms> tableForms = [] {
    std::vector<TableForms> tables(std::size(materialTables));
    std::size_t i = 0;
    for (const MaterialRow& row : materialTables) {
        const auto columns = columnsOf(row);
        if (!row.control)
            fill(tables[i++], row.table, {columns.begin(), columns.end()},
                 row.gamma ? Content::Factor : Content::Share, nobody);
    }
    tables.resize(i);
    return tables;
}();
const TableForms& stressBlockForms()
{
    static TableForms forms;
    if (forms.values.empty())
        fill(forms, "STRESSBLOCK", {"STRUTFACTOR", "ETA", "LAMBDA"}, Content::Share,
             "one of the codes that share a record");
    return forms;
}
const Form coefficientsForm = [] {
    Form form{
        .name = "COEFFICIENTS", .attributes = {{"VERSION"}, {"ACCEPTED"}}
    };
    for (const TableForms& table : tableForms)
        form.children.push_back(&table.table);
    return form;
}();

const Form participantForm{
    .name = "STATEATTRIBUTE",
    .attributes = {required("NAME", &tags, "the undefined tag"),
                   required("OPERATOR", &operators, "no operator"),
                   {"ACCEPTED"}}
};
const Form blockForm{
    .name = "BLOCK",
    .takesAnyName = true,
    .attributes = {required("NAME",                                    nullptr, "a block without a name: nothing can pull it in"),
                   {"ACCEPTED"}},
    .children = {&participantForm}
};
const Form blocksForm{.name = "DEFAULT_BLOCKS",
                      .takesAnyName = true,
                      .attributes = {{"ACCEPTED"}},
                      .children = {&blockForm}};
const Form referencesForm{
    .name = "DEFAULT_BLOCKS", .content = Content::Any, .attributes = {{"ACCEPTED"}}};
const Form participantsForm{
    .name = "STATEATTRIBUTES",
    .fallback = "a rule without attributes",
    .isRequired = true,
    .takesAnyName = true,
    .attributes = {{"ACCEPTED"}    },
    .children = { &participantForm, &referencesForm}
};
const Form ruleForm{
    .name = "STATEINSTRUCTION",
    .attributes = {required("TYPE", &rules, "NONE"),
                   required("TEMPLATE", &templates, "DIN-BUILDING"),
                   {"NOTE"},
                   {"ACCEPTED"}},
    .children = {&participantsForm       }
};
const Form rulesForm{
    .name = "STATEINSTRUCTIONS",
    .takesAnyName = true,
    .attributes = {{"ACCEPTED"}},
    .children = { &ruleForm, &blocksForm}
};

} // namespace

bool WordKind::has(std::string_view word) const
{
    return std::ranges::find(words, word) != words.end();
}

const Form* Form::child(std::string_view key) const
{
    const auto found = std::ranges::find(children, key, &Form::name);
    return found == children.end() ? nullptr : *found;
}

const AttributeForm* Form::attribute(std::string_view key) const
{
    const auto found = std::ranges::find(attributes, key, &AttributeForm::name);
    return found == attributes.end() ? nullptr : &*found;
}

const Form& documentForm()
{
    static const Form form{
        .name = "SMOD",
        .attributes = {{"VERSION"},               {"ACCEPTED"}},
        .children = { &actionsForm, &attributesForm, &settingsForm, &coefficientsForm,
                       &stressBlockForms().table, &rulesForm}
    };
    return form;
}

const WordKind& factorNames() { return factorWords; }
const WordKind& statuses() { return statusWords; }
const WordKind& codeWords() { return codes; }

} // namespace command
