#include <command/verbs/Library.h>

#include <algorithm>
#include <charconv>
#include <clocale>
#include <fstream>
#include <functional>
#include <locale>
#include <ostream>
#include <set>
#include <sstream>

#include <zelstandard/actions/ActionGroupManager.h>
#include <zelstandard/attributes/StateAttributeValidator.h>
#include <zelstandard/context/IO.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/vocabulary/OperatorTexts.h>
#include <zelstandard/vocabulary/SignificantInstant.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <command/provenance/SafeFile.h>
#include <command/verbs/Selection.h>
#include <command/vocabulary/Failure.h>

namespace command
{

using namespace Standard;

namespace
{

std::string textOf(double number) { return numberText(number, 0); }
std::string textOf(bool value) { return value ? "true" : "false"; }
std::string textOf(int value) { return std::to_string(value); }

bool isInteger(const std::string& text, int& value)
{
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    return !text.empty() && read.ec == std::errc{} && read.ptr == end;
}

double numberOf(const std::string& text)
{
    double value = 0;
    if (!readNumber(text, value))
        throw Failure("\"" + text + "\" is no number");
    return value;
}

/// The words of one enumeration, both ways, as the library converts them.
struct Enumeration {
    const char* name;
    std::function<int(const std::string&)> value;
    std::function<std::string(int)> word;
};

template <class Value>
Enumeration enumeration(const char* name, Value (XMLUtil::*value)(const std::string&),
                        std::string (XMLUtil::*word)(Value))
{
    return {name,
            [value](const std::string& text) {
                return static_cast<int>((XMLUtil::get()->*value)(text));
            },
            [word](int number) { return (XMLUtil::get()->*word)(static_cast<Value>(number)); }};
}

Enumeration instants()
{
    return {"instant",
            [](const std::string& name) { return static_cast<int>(ReadSignificantInstant(name)); },
            [](int value) { return WriteSignificantInstant(SignificantInstant{value}); }};
}

const std::vector<Enumeration>& enumerations()
{
    static const std::vector<Enumeration> all = {
        enumeration("mode", &XMLUtil::getModeToString, &XMLUtil::getStringToMode),
        enumeration("classification", &XMLUtil::getClassificationToString,
                    &XMLUtil::getStringToClassification),
        enumeration("bridge", &XMLUtil::getBridgeTypeToString, &XMLUtil::getStringToBridgeType),
        enumeration("building", &XMLUtil::getBuildingTypeToString,
                    &XMLUtil::getStringToBuildingType),
        enumeration("material", &XMLUtil::getDgnMaterialToString, &XMLUtil::getStringToDgnMaterial),
        enumeration("situation", &XMLUtil::getDgnSituationToString,
                    &XMLUtil::getStringToDgnSituation),
        enumeration("ductility", &XMLUtil::getDuctilityClassToString,
                    &XMLUtil::getStringToDuctilityClass),
        enumeration("duration", &XMLUtil::getLoadDurationToString,
                    &XMLUtil::getStringToLoadDuration),
        enumeration("operator", &XMLUtil::getOperatorToString, &XMLUtil::getStringToOperator),
        enumeration("template", &XMLUtil::getSupTemplateToString, &XMLUtil::getStringToSupTemplate),
        enumeration("group", &XMLUtil::getActionGroupIDToString, &XMLUtil::getStringToActionGroup),
        enumeration("action", &XMLUtil::getActionTypeIDToString, &XMLUtil::getStringToActionType),
        enumeration("loadtype", &XMLUtil::getAttributeLoadTypeToString,
                    &XMLUtil::getStringToAttributeLoadType),
        enumeration("type", &XMLUtil::getAttributeTypeToString, &XMLUtil::getStringToAttributeType),
        enumeration("rule", &XMLUtil::getInstructionToString, &XMLUtil::getStringToInstruction),
        enumeration("combination", &XMLUtil::getComboGroupToString,
                    &XMLUtil::getStringToComboGroupType),
        enumeration("tag", &XMLUtil::getStateAttrTokenToString,
                    &XMLUtil::getStringToStateAttrToken),
        instants(),
    };
    return all;
}

const Enumeration& enumerationOf(const std::string& name)
{
    const auto found = std::ranges::find(enumerations(), name, &Enumeration::name);
    if (found == enumerations().end())
        throw Failure("no enumeration \"" + name + "\"");
    return *found;
}

/// A number as it stands, else what the library makes of the word.
template <class Value> Value valueOf(const char* kind, const std::string& text)
{
    int number = 0;
    return static_cast<Value>(isInteger(text, number) ? number : enumerationOf(kind).value(text));
}

std::string wordFor(const char* kind, int value) { return enumerationOf(kind).word(value); }
template <class Value> std::string wordFor(const char* kind, Value value)
{
    return wordFor(kind, static_cast<int>(value));
}

/// The operands of a statement, with its context.
struct Call {
    const Statement& statement;
    const Context& context;

    [[nodiscard]] std::size_t count() const { return statement.words.size() - 1; }
    /// The operand of that number, from 1; throws Failure when it is missing.
    [[nodiscard]] const std::string& operator[](std::size_t index) const
    {
        if (index >= statement.words.size())
            throw Failure(statement.words.front() + " needs more words");
        return statement.words[index];
    }
    [[nodiscard]] std::string optional(std::size_t index, const std::string& otherwise) const
    {
        return index < statement.words.size() ? statement.words[index] : otherwise;
    }
    [[nodiscard]] Data& data() const { return context.data(); }
    [[nodiscard]] std::ostream& out() const { return context.out; }

    [[nodiscard]] ActionType& action(std::size_t index) const
    {
        const auto id = valueOf<ActionTypeId>("action", (*this)[index]);
        ActionType* type = data().actions().findActionType(id);
        if (!type)
            throw Failure("the catalogue has no action \"" + (*this)[index] + "\"");
        return *type;
    }

    [[nodiscard]] bool isTag(std::size_t index) const { return (*this)[index].starts_with("tag:"); }
    [[nodiscard]] StateAttribute& attribute(std::size_t index) const
    {
        const auto token = valueOf<StateAttributeToken>("tag", (*this)[index].substr(4));
        StateAttribute* found = data().attributes().findStateAttributeToToken(token);
        if (!found)
            throw Failure("the catalogue has no " + (*this)[index]);
        return *found;
    }
};

// Reading and writing. Of each kind of document how the library does it.

struct DocumentKind {
    const char* name;
    void (*load)(const Call& call, const std::string& path);
    void (*read)(const Call& call, const ZelXmlTree& tree);
    void (*save)(const Call& call, const std::string& path);
    void (*write)(const Call& call, ZelXmlTree& tree);
};

const DocumentKind documentKinds[] = {
    {"actions",                                                                  [](const Call& c, const std::string& path) { c.data().loadActions(path); },
     [](const Call& c,                                                                                            const ZelXmlTree& tree) { c.data().loadActions(tree, c.statement.text); },
     [](const Call& c,                                                                                                  const std::string& path) { c.data().actions().output(path); },
     [](const Call& c, ZelXmlTree& tree) { c.data().actions().output(tree); }},
    {"attributes",                    [](const Call& c,                                    const std::string& path) { c.data().loadAttributes(path); },
     [](const Call& c, const ZelXmlTree& tree) { c.data().loadAttributes(tree, c.statement.text); },
     [](const Call& c,                                                                                                  const std::string& path) { c.data().attributes().output(path); },
     [](const Call& c, ZelXmlTree& tree) { c.data().attributes().output(tree); }},
    {"settings",          [](const Call&,                                                                             const std::string& path) { ZelStandard::get()->input(path); },
     [](const Call&,                               const ZelXmlTree& tree) { IO::read(tree.getRoot(), ZelStandard::get()); },
     [](const Call&, const std::string& path) { ZelStandard::get()->output(path); },
     [](const Call&, ZelXmlTree& tree) { IO::write(tree, ZelStandard::get()); }},
    {"coefficients", [](const Call&,                                                                               const std::string& path) { Coefficients::get()->input(path); },
     [](const Call&,                                                                                              const ZelXmlTree& tree) { Coefficients::get()->input(tree.getRoot()); },
     [](const Call&,                                      const std::string& path) { Coefficients::get()->output(path); },
     [](const Call&, ZelXmlTree& tree) { Coefficients::get()->output(tree); }},
    {"control",            [](const Call&,                                                                               const std::string& path) { Control::input(path); },
     [](const Call&,                                                                                              const ZelXmlTree& tree) { Control::input(tree); },
     [](const Call&,                                                                                                    const std::string& path) { Control::output(path); },
     [](const Call&, ZelXmlTree& tree) { Control::output(tree); }},
    {"rules",
     [](const Call& c,                                                         const std::string& path) {
         std::ifstream file(path);
         c.data().emptyRules().read(file);
     }, [](const Call& c,                                                                                              const ZelXmlTree& tree) { c.data().emptyRules().read(tree); },                                              nullptr,
     nullptr                                                                                      },
};

const DocumentKind& kindOf(const std::string& name)
{
    const auto* found = std::ranges::find(
        documentKinds, name, [](const DocumentKind& k) { return std::string(k.name); });
    if (found == std::end(documentKinds))
        throw Failure("no kind of document \"" + name +
                      "\"; there are actions, attributes, settings, coefficients, control, rules");
    return *found;
}

void buildTree(ZelXmlTree& tree, const std::string& text)
{
    std::istringstream stream(text);
    tree.buildOfStream(stream);
}

/// The kind of document that a file is, by its elements.
const DocumentKind& kindOfFile(const std::string& path)
{
    const auto document = Document::read(path);
    const Element* root = document->orFail().root();
    if (root->find("ACTIONTYPES"))
        return kindOf("actions");
    // Rules have elements STATEATTRIBUTES too.
    if (!root->find("STATEINSTRUCTIONS") && root->find("STATEATTRIBUTES"))
        return kindOf("attributes");
    return kindOf("settings");
}

/// "load KIND FILE", "load KIND <<END", "load FILE".
void load(const Call& call)
{
    if (call.statement.hasText) {
        ZelXmlTree tree;
        buildTree(tree, call.statement.text);
        kindOf(call[1]).read(call, tree);
    } else if (call.count() == 1) {
        const DocumentKind& kind = kindOfFile(call[1]);
        if (kind.name == std::string("settings"))
            call.data().useSettings(call[1]);
        else
            kind.load(call, call[1]);
    } else {
        kindOf(call[1]).load(call, call[2]);
    }
}

/// "save KIND FILE"; "save FILE" saves the actions.
void save(const Call& call)
{
    const DocumentKind& kind = kindOf(call.count() == 1 ? "actions" : call[1]);
    if (!kind.save)
        throw Failure(std::string("the library has no writer for ") + kind.name);
    kind.save(call, call[call.count() == 1 ? 1 : 2]);
}

/// "write KIND [into FILE]": a new document, or into what the file holds.
void write(const Call& call)
{
    const DocumentKind& kind = kindOf(call[1]);
    if (!kind.write)
        throw Failure(std::string("the library has no writer for ") + kind.name);
    ZelXmlTree tree;
    const bool isInto = call.count() > 1;
    if (isInto || call.statement.hasText)
        buildTree(tree, isInto ? readFile(call[3]) : call.statement.text);
    kind.write(call, tree);
    std::ostringstream text;
    tree.putToStream(text, true);
    if (isInto)
        replaceFile(call[3], text.str());
    else
        call.out() << text.str();
}

// The state of the catalogues, one line a fact.

void dumpActions(const Call& call)
{
    for (const ActionType* type : call.data().actions().getActionTypes()) {
        const std::string name = wordOf(type->getId());
        call.out() << name << " group " << wordFor("group", type->getActionGroupId())
                   << " duration " << wordFor("duration", type->getLoadDurationClass()) << '\n';
        for (int code = 0; code <= 8; ++code)
            for (int bridgeType = -1; bridgeType <= 6; ++bridgeType) {
                const Structure structure =
                    bridgeType < 0 ? building : bridge(BridgeType{bridgeType});
                const SafetyFactors* set =
                    type->getFactors(Mode{code}, structure.classification, structure.bridgeType);
                if (!set)
                    continue;
                std::string where = wordOf(structure);
                if (where == "-")
                    where = "bridge" + std::to_string(bridgeType);
                call.out() << name << ' ' << wordOf(Mode{code}) << ' ' << where;
                for (const FactorRow& factor : factors)
                    call.out() << ' ' << textOf((set->*factor.get)());
                call.out() << '\n';
            }
    }
}

template <class Has> std::string members(const char* kind, int first, int last, bool all, Has has)
{
    std::string list;
    for (int value = first; value <= last; ++value)
        if (has(value)) {
            const std::string word = wordFor(kind, value);
            list += (list.empty() ? "" : ",") + (word == "-" ? std::to_string(value) : word);
        }
    return all ? "all" : list;
}

void dumpAttributes(const Call& call)
{
    for (const StateAttribute* a : call.data().attributes().getAttributes()) {
        const ActionType* type = a->getActionType();
        call.out() << wordFor("tag", a->getToken()) << " action "
                   << (type ? wordOf(type->getId()) : "none") << " operator "
                   << wordFor("operator", a->getOperator()) << " type "
                   << wordFor("type", a->getType()) << " load "
                   << wordFor("loadtype", a->getLoadType()) << " classifications "
                   << members("classification", 1, 2, a->isValidForAllClassifications(),
                              [&](int v) { return a->hasClassification(Classification{v}); })
                   << " standards "
                   << members("mode", 0, 8, a->isValidForAllStandards(),
                              [&](int v) { return a->hasStandard(Mode{v}); })
                   << " bridges "
                   << members("bridge", 0, 6, a->isValidForAllBridgeTypes(),
                              [&](int v) { return a->hasBridgeType(BridgeType{v}); })
                   << " excl " << a->getExclGroup() << " comb " << a->getCombGroup() << '\n';
    }
}

void dumpSettings(const Call& call)
{
    const ZelStandard& s = *ZelStandard::get();
    call.out() << "mode " << wordFor("mode", s.getMode()) << "\nclassification "
               << wordFor("classification", s.getClassification()) << "\nbridge "
               << wordFor("bridge", s.getBridgeType()) << "\nbuilding "
               << wordFor("building", s.getBuildingType()) << "\nmaterial "
               << wordFor("material", s.getDesignMaterial()) << "\nsituation "
               << wordFor("situation", s.getSituation()) << "\nductility "
               << wordFor("ductility", s.getDuctilityClass()) << "\nservice " << s.getServiceClass()
               << '\n';
}

void dumpRules(const Call& call)
{
    for (int id = 0; id < static_cast<int>(StateInstructionManager::NumberOfSuperpositionTemplates);
         ++id)
        for (const StateInstruction* rule :
             call.data().rules().getStateInstructions(SuperpositionTemplate{id})) {
            const std::string name =
                wordFor("template", id) + " " + wordFor("rule", rule->getType());
            call.out() << name << '\n';
            for (const StateAttributeBase* entry : rule->getAttributes())
                call.out() << name << ' ' << wordFor("tag", entry->getToken()) << ' '
                           << wordFor("operator", entry->getOperator()) << ' '
                           << wordFor("type", entry->getType()) << ' '
                           << wordFor("loadtype", entry->getLoadType()) << '\n';
        }
}

void dumpCoefficients(const Call& call)
{
    for (const MaterialRow& table : materialTables)
        for (const Mode code : Coefficients::get()->getSupportedModes())
            for (std::size_t column = 0; !table.control && column < columnsOf(table).size();
                 ++column)
                call.out() << table.table << ' ' << wordOf(code) << ' ' << columnsOf(table)[column]
                           << ' ' << textOf(command::valueOf(table, code, column)) << '\n';
}

void dumpControl(const Call& call)
{
    for (const Mode code : {Mode::EC, Mode::DIN_1988})
        call.out() << wordOf(code) << " gamma " << textOf(Control::getGamma(code))
                   << " gammafactor " << textOf(Control::getGammaFactor(code)) << " strutfactor "
                   << textOf(Control::getStrutFactor(code)) << " eta "
                   << textOf(Control::getCompressionEta(code)) << " lambda "
                   << textOf(Control::getCompressionLambda(code)) << " internal "
                   << textOf(Control::getInternalFactor(code)) << '\n';
}

/// "dump words [WORD ...]": of each enumeration what an unknown word means; then value, word, and
/// which others of all words, and of the given ones, mean the same.
void dumpWords(const Call& call)
{
    constexpr int first = -2;
    constexpr int last = 140;
    std::set<std::string> words(call.statement.words.begin() + 2, call.statement.words.end());
    for (const Enumeration& e : enumerations())
        for (int value = first; value <= last; ++value)
            words.insert(e.word(value));
    words.erase("-");
    for (const Enumeration& e : enumerations()) {
        const int unknown = e.value("no such word");
        call.out() << e.name << " unknown " << textOf(unknown) << '\n';
        for (int value = first; value <= last; ++value) {
            const std::string word = e.word(value);
            std::string line = word == "-" || e.value(word) != value ? "" : " " + word;
            for (const std::string& other : words)
                if (value != unknown && other != word && e.value(other) == value)
                    line += " " + other;
            if (!line.empty())
                call.out() << e.name << ' ' << textOf(value) << line << '\n';
        }
    }
}

struct DumpRow {
    const char* name;
    void (*dump)(const Call&);
};
constexpr DumpRow dumps[] = {
    {"actions",      dumpActions                                            },
    {"attributes",   dumpAttributes                                         },
    {"settings",     dumpSettings                                           },
    {"rules",        dumpRules                                              },
    {"coefficients", dumpCoefficients                                       },
    {"control",      dumpControl                                            },
    {"active",       [](const Call& c) { dumpActive(c.data(), c.out()); }   },
    {"inactive",     [](const Call& c) { dumpInactive(c.data(), c.out()); } },
    {"templates",    [](const Call& c) { dumpTemplates(c.data(), c.out()); }},
    {"words",        dumpWords                                              },
};

void dump(const Call& call)
{
    for (const auto& [name, run] : dumps)
        if (call[1] == name)
            return run(call);
    throw Failure("nothing to dump is called \"" + call[1] + "\"");
}

// Setting.

struct SetRow {
    const char* name;
    void (*set)(const std::string& value);
};
const SetRow setters[] = {
    {"mode",           [](const std::string& v) { ZelStandard::get()->setMode(valueOf<Mode>("mode", v)); }},
    {"classification",
     [](const std::string& v) {
         ZelStandard::get()->setClassification(valueOf<Classification>("classification", v));
     }                                                                                                    },
    {"bridge",
     [](const std::string& v) {
         ZelStandard::get()->setBridgeType(valueOf<BridgeType>("bridge", v));
     }                                                                                                    },
    {"building",
     [](const std::string& v) {
         ZelStandard::get()->setBuildingType(valueOf<BuildingType>("building", v));
     }                                                                                                    },
    {"material",
     [](const std::string& v) {
         ZelStandard::get()->setDesignMaterial(valueOf<DesignMaterial>("material", v));
     }                                                                                                    },
    {"situation",
     [](const std::string& v) {
         ZelStandard::get()->setSituation(valueOf<DesignSituation>("situation", v));
     }                                                                                                    },
    {"ductility",
     [](const std::string& v) {
         ZelStandard::get()->setDuctilityClass(valueOf<DuctilityClass>("ductility", v));
     }                                                                                                    },
    {"service",
     [](const std::string& v) {
         ZelStandard::get()->setServiceClass(static_cast<int>(numberOf(v)));
     }                                                                                                    },
    {"path",           [](const std::string& v) { ZelStandard::get()->setAlternativeDBPath(v); }          },
};

/// Setters of factors in the order of the factors, of actions and of attributes.
template <class Owner> using FactorSetter = void (Owner::*)(double);
template <class Owner>
constexpr FactorSetter<Owner> factorSetters[] = {
    &Owner::setGammaSup, &Owner::setGammaInf, &Owner::setPsi0,
    &Owner::setPsi1,     &Owner::setPsi2,     &Owner::setPsi11,
    &Owner::setPsi21,    &Owner::setPsi22,    &Owner::setCrackRed,
};
template <class Owner> using FactorGetter = double (Owner::*)() const;
template <class Owner>
constexpr FactorGetter<Owner> factorGetters[] = {
    &Owner::getGammaSup, &Owner::getGammaInf, &Owner::getPsi0,
    &Owner::getPsi1,     &Owner::getPsi2,     &Owner::getPsi11,
    &Owner::getPsi21,    &Owner::getPsi22,    &Owner::getCrackRed,
};

const FactorRow* factorOf(const std::string& key)
{
    const auto* found =
        std::ranges::find(factors, key, [](const FactorRow& row) { return std::string(row.key); });
    return found == std::end(factors) ? nullptr : found;
}

/// The value of a material table for the code, situation or classification that follow it.
bool putMaterial(const Call& call)
{
    struct Row {
        const char* table;
        void (Coefficients::*gamma)(Mode, DesignSituation, double);
        void (Coefficients::*alpha)(Mode, Classification, double);
        void (*control)(Mode, double);
    };
    static constexpr Row rows[] = {
        {"GAMMA_S",     &Coefficients::setGammaS,  nullptr,                   nullptr                      },
        {"GAMMA_C",     &Coefficients::setGammaC,  nullptr,                   nullptr                      },
        {"GAMMA_A",     &Coefficients::setGammaA,  nullptr,                   nullptr                      },
        {"GAMMA_T",     &Coefficients::setGammaT,  nullptr,                   nullptr                      },
        {"GAMMA_F",     &Coefficients::setGammaF,  nullptr,                   nullptr                      },
        {"GAMMA_R",     &Coefficients::setGammaR,  nullptr,                   nullptr                      },
        {"GAMMA_RV",    &Coefficients::setGammaRV, nullptr,                   nullptr                      },
        {"GAMMA_RH",    &Coefficients::setGammaRH, nullptr,                   nullptr                      },
        {"GAMMA_RE",    &Coefficients::setGammaRE, nullptr,                   nullptr                      },
        {"ALPHA_CC",    nullptr,                   &Coefficients::setAlphaCC, nullptr                      },
        {"ALPHA_CT",    nullptr,                   &Coefficients::setAlphaCT, nullptr                      },
        {"STRUTFACTOR", nullptr,                   nullptr,                   Control::setStrutFactor      },
        {"ETA",         nullptr,                   nullptr,                   Control::setCompressionEta   },
        {"LAMBDA",      nullptr,                   nullptr,                   Control::setCompressionLambda},
        {"GAMMA",       nullptr,                   nullptr,                   Control::setGamma            },
        {"GAMMAFACTOR", nullptr,                   nullptr,                   Control::setGammaFactor      },
    };
    for (const Row& row : rows) {
        if (call[1] != row.table)
            continue;
        const auto code = valueOf<Mode>("mode", call[2]);
        const double value = numberOf(call[call.count()]);
        if (row.gamma)
            (Coefficients::get()->*row.gamma)(code, valueOf<DesignSituation>("situation", call[3]),
                                              value);
        else if (row.alpha)
            (Coefficients::get()->*row.alpha)(
                code, valueOf<Classification>("classification", call[3]), value);
        else
            row.control(code, value);
        return true;
    }
    return false;
}

/// "put SETTING VALUE", "put FACTOR ACTION|tag:TAG VALUE", "put TABLE CODE [COLUMN] VALUE".
void put(const Call& call)
{
    for (const SetRow& row : setters)
        if (call[1] == row.name)
            return row.set(call[2]);
    if (const FactorRow* factor = factorOf(call[1])) {
        const auto i = static_cast<std::size_t>(factor->value);
        if (call.isTag(2))
            (call.attribute(2).*factorSetters<StateAttribute>[i])(numberOf(call[3]));
        else
            (call.action(2).*factorSetters<ActionType>[i])(numberOf(call[3]));
        return;
    }
    if (!putMaterial(call))
        throw Failure("the library sets no \"" + call[1] + "\"");
}

// Asking.

struct GetRow {
    const char* name;
    std::string (*get)(const Call& call);
};

const GetRow getters[] = {
    {"mode",                [](const Call&) { return wordFor("mode", ZelStandard::get()->getMode()); }        },
    {"classification",
     [](const Call&) {
         return wordFor("classification", ZelStandard::get()->getClassification());
     }                                                                                                        },
    {"bridge",              [](const Call&) { return wordFor("bridge", ZelStandard::get()->getBridgeType()); }},
    {"building",
     [](const Call&) { return wordFor("building", ZelStandard::get()->getBuildingType()); }                   },
    {"material",
     [](const Call&) { return wordFor("material", ZelStandard::get()->getDesignMaterial()); }                 },
    {"situation",
     [](const Call&) { return wordFor("situation", ZelStandard::get()->getSituation()); }                     },
    {"ductility",
     [](const Call&) { return wordFor("ductility", ZelStandard::get()->getDuctilityClass()); }                },
    {"service",             [](const Call&) { return textOf(ZelStandard::get()->getServiceClass()); }         },
    {"path",                [](const Call&) { return ZelStandard::get()->getDataBaseDir(); }                  },
    {"code",                [](const Call&) { return textOf(ZelStandard::get()->getCODE()); }                 },
    {"nutz",
     [](const Call& c) {
         return textOf(ZelStandard::get()->getNUTZ(c.optional(1, "") == "true"));
     }                                                                                                        },
    {"text",
     [](const Call& c) {
         return ZelStandard::get()->getStandardText(valueOf<Mode>("mode", c[1]));
     }                                                                                                        },
    {"description",
     [](const Call& c) {
         return ZelStandard::get()->getStandardDescription(
             valueOf<Classification>("classification", c[1]),
             valueOf<DesignMaterial>("material", c[2]), valueOf<Mode>("mode", c[3]));
     }                                                                                                        },
    {"isbuilding",
     [](const Call&) { return textOf(ZelStandard::get()->isBuildingClassification()); }                       },
    {"isbridge",            [](const Call&) { return textOf(ZelStandard::get()->isBridgeClassification()); }  },
    {"isconcrete",          [](const Call&) { return textOf(ZelStandard::get()->isConcrete()); }              },
    {"issteel",             [](const Call&) { return textOf(ZelStandard::get()->isSteel()); }                 },
    {"iscomposite",         [](const Call&) { return textOf(ZelStandard::get()->isComposite()); }             },
    {"iscompositesteel",
     [](const Call&) { return textOf(ZelStandard::get()->isCompositeSteel()); }                               },
    {"iscompositeconcrete",
     [](const Call&) { return textOf(ZelStandard::get()->isCompositeConcrete()); }                            },
    {"ispersistent",
     [](const Call&) { return textOf(ZelStandard::get()->isPersistentSituation()); }                          },
    {"isaccidental",
     [](const Call&) { return textOf(ZelStandard::get()->isAccidentalSituation()); }                          },
    {"isseismic",
     [](const Call&) { return textOf(ZelStandard::get()->isAccidentalEarthquakeSituation()); }                },
    {"israilway",           [](const Call&) { return textOf(ZelStandard::get()->isRailwayBridge()); }         },
    {"isfootbridge",        [](const Call&) { return textOf(ZelStandard::get()->isFootbridge()); }            },
    {"template",
     [](const Call& c) { return wordFor("template", c.data().rules().getCurrentTemplateID()); }               },
    {"count",
     [](const Call& c) {
         return textOf(static_cast<int>(c[1] == "actions"
                                            ? c.data().actions().getActionTypes().size()
                                            : c.data().attributes().getAttributes().size()));
     }                                                                                                        },
    {"gamma_sup_reduced",
     [](const Call& c) {
         return textOf(c.isTag(1) ? c.attribute(1).getGammaSupReduced()
                                  : c.action(1).getGammaSupReduced());
     }                                                                                                        },
    {"gamma_inf_reduced",
     [](const Call& c) {
         return textOf(c.isTag(1) ? c.attribute(1).getGammaInfReduced()
                                  : c.action(1).getGammaInfReduced());
     }                                                                                                        },
    {"active",
     [](const Call& c) {
         return textOf(c.isTag(1) ? c.attribute(1).isActive() : c.action(1).isActive());
     }                                                                                                        },
    {"validated",
     [](const Call& c) {
         return textOf(StateAttributeValidator::isAttributeActive(&c.attribute(1)));
     }                                                                                                        },
    {"secondary",           [](const Call& c) { return textOf(c.action(1).isSecondary()); }                   },
    {"hasvalues",
     [](const Call& c) { return textOf(c.action(1).hasValues(valueOf<Mode>("mode", c[2]))); }                 },
    {"name",
     [](const Call& c) { return c.isTag(1) ? c.attribute(1).getName() : c.action(1).getName(); }              },
    {"reportname",
     [](const Call& c) {
         return c.isTag(1) ? c.attribute(1).getReportName() : c.action(1).getReportName();
     }                                                                                                        },
    {"fullname",
     [](const Call& c) {
         return c.isTag(1) ? c.attribute(1).getDescription() : c.action(1).getDescription();
     }                                                                                                        },
    {"bits",
     [](const Call& c) {
         const StateAttribute& a = c.attribute(1);
         return textOf(a.getStandardBitField()) + " " + textOf(a.getClassificationBitField()) +
                " " + textOf(a.getBridgeTypeBitField());
     }                                                                                                        },
    {"symbol",
     [](const Call& c) {
         return "\"" + getOperatorSymbol(valueOf<Operator>("operator", c[1])) + "\"";
     }                                                                                                        },
    {"operator",            [](const Call& c) { return textOf(static_cast<int>(getOperatorToName(c[1]))); }   },
    {"operatorname",
     [](const Call& c) {
         const auto value = valueOf<Operator>("operator", c[1]);
         return getOperatorName(value) + ", " + getOperatorReportName(value);
     }                                                                                                        },
    {"word",
     [](const Call& c) { return enumerationOf(c[1]).word(static_cast<int>(numberOf(c[2]))); }                 },
    {"value",               [](const Call& c) { return textOf(enumerationOf(c[1]).value(c.optional(2, ""))); }},
};

/// The values of EC, and those of each code that differs.
void getTable(const Call& call, const MaterialRow& table)
{
    const auto valuesOf = [&](Mode code) {
        std::string text;
        for (std::size_t column = 0; column < columnsOf(table).size(); ++column)
            text += " " + textOf(command::valueOf(table, code, column));
        return text;
    };
    const std::string ec = valuesOf(Mode::EC);
    call.out() << "EC" << ec;
    for (const Mode code : Coefficients::get()->getSupportedModes())
        if (const std::string own = valuesOf(code); own != ec)
            call.out() << "; " << wordOf(code) << own;
    call.out() << '\n';
}

/// "get WORD ...": one line.
void get(const Call& outer)
{
    const Statement inner{
        {outer.statement.words.begin() + 1, outer.statement.words.end()},
        {                                 },
        false
    };
    if (inner.words.empty())
        throw Failure("get what?");
    const Call call{inner, outer.context};
    const std::string& what = inner.words.front();
    for (const GetRow& row : getters)
        if (what == row.name) {
            call.out() << row.get(call) << '\n';
            return;
        }
    if (const FactorRow* factor = factorOf(what)) {
        const auto i = static_cast<std::size_t>(factor->value);
        const double value = call.isTag(1) ? (call.attribute(1).*factorGetters<StateAttribute>[i])()
                                           : (call.action(1).*factorGetters<ActionType>[i])();
        call.out() << textOf(value) << '\n';
        return;
    }
    for (const MaterialRow& table : materialTables)
        if (what == table.table) {
            if (!table.control && call.count() == 0)
                return getTable(call, table);
            std::size_t column = 0;
            if (table.gamma)
                column = valueOf<std::size_t>("situation", call[2]);
            else if (table.alpha)
                column = valueOf<std::size_t>("classification", call[2]) - 1;
            call.out() << textOf(command::valueOf(table, valueOf<Mode>("mode", call[1]), column))
                       << '\n';
            return;
        }
    throw Failure("the library answers no \"" + what + "\"");
}

// Catalogues.

/// "give ACTION": found or created. "give ACTION CODE STRUCTURE": its set.
void give(const Call& call)
{
    ActionType* type =
        call.data().actions().giveActionType(valueOf<ActionTypeId>("action", call[1]));
    if (!type)
        throw Failure("the catalogue creates no \"" + call[1] + "\"");
    if (call.count() < 3)
        return;
    const bool isBuilding = call[3] == "BUILDING";
    type->giveFactors(valueOf<Mode>("mode", call[2]),
                      isBuilding ? Classification::BUILDING : Classification::BRIDGE,
                      isBuilding ? BridgeType{} : valueOf<BridgeType>("bridge", call[3]));
}

void copyFromEc(const Call& call) { call.action(1).copyFromEC(valueOf<Mode>("mode", call[2])); }

void kill(const Call& call)
{
    call.data().forget();
    ZelStandard::kill();
}

// The process around the library.

/// A decimal comma, for C++ libraries that know no locales by name.
struct DecimalComma : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

/// "locale NAME": one with a decimal comma, for C and C++; "locale german": by the name that the
/// system has for it.
void setLocale(const Call& call)
{
    std::vector<std::string> names = {call[1]};
    if (call[1] == "german")
        names = {"de_DE.UTF-8",         "de_DE.utf8",     "de_DE",
                 "German_Germany.1252", "German_Germany", "de-DE"};
    std::locale::global(std::locale(std::locale::classic(), new DecimalComma));
    for (const std::string& name : names)
        if (std::setlocale(LC_ALL, name.c_str()) && *std::localeconv()->decimal_point == ',')
            return;
    throw Failure("the system has no locale \"" + call[1] + "\" with a decimal comma");
}

void writeFile(const Call& call) { replaceFile(call[1], call.statement.text); }

void showFile(const Call& call) { call.out() << readFile(call[1]); }

void copy(const Call& call) { replaceFile(call[2], readFile(call[1])); }

std::string laidOut(const std::string& path)
{
    ZelXmlTree tree;
    buildTree(tree, readFile(path));
    std::ostringstream text;
    tree.putToStream(text, true);
    return text.str();
}

/// "same FILE FILE": whether two documents are the same but for their layout.
void same(const Call& call)
{
    std::istringstream left(laidOut(call[1]));
    std::istringstream right(laidOut(call[2]));
    std::string leftLine;
    std::string rightLine;
    bool isLeft = true;
    bool isRight = true;
    while (isLeft && isRight && leftLine == rightLine) {
        isLeft = static_cast<bool>(std::getline(left, leftLine));
        isRight = static_cast<bool>(std::getline(right, rightLine));
    }
    if (isLeft || isRight)
        call.out() << "- " << leftLine << "\n+ " << rightLine << '\n';
    else
        call.out() << "same\n";
}

void echo(const Call& call)
{
    for (std::size_t i = 1; i <= call.count(); ++i)
        call.out() << (i == 1 ? "" : " ") << call[i];
    call.out() << '\n';
}

struct StatementRow {
    const char* name;
    const char* usage;
    void (*run)(const Call&);
};

constexpr StatementRow statements[] = {
    {"load",       "[KIND] FILE, or KIND <<END and the document", load      },
    {"save",       "[KIND] FILE",                                 save      },
    {"write",      "KIND [into FILE], or KIND <<END",             write     },
    {"dump",       "KIND: one line a fact",                       dump      },
    {"put",        "SETTING|FACTOR ACTION|TABLE CODE ... VALUE",  put       },
    {"get",        "WORD ...: one line",                          get       },
    {"give",       "ACTION [CODE STRUCTURE]: found or created",   give      },
    {"copyec",     "ACTION CODE",                                 copyFromEc},
    {"kill",       "the settings object",                         kill      },
    {"locale",     "NAME: one with a decimal comma",              setLocale },
    {"write-file", "FILE <<END and its text",                     writeFile },
    {"show",       "FILE",                                        showFile  },
    {"copy",       "FILE TO",                                     copy      },
    {"same",       "FILE FILE: two documents but for layout",     same      },
    {"echo",       "TEXT",                                        echo      },
};

} // namespace

bool runLibraryStatement(const Statement& statement, const Context& context)
{
    const auto* found =
        std::ranges::find(statements, statement.words.front(),
                          [](const StatementRow& row) { return std::string(row.name); });
    if (found == std::end(statements))
        return false;
    found->run({statement, context});
    return true;
}

std::string libraryStatements()
{
    std::string text = "Lines of a batch: verbs, and\n"
                       "  code CODE, for STRUCTURE, material WORD, situation WORD, language en|de, "
                       "format FORMAT\n";
    for (const StatementRow& row : statements)
        text += std::string("  ") + row.name + " " + row.usage + "\n";
    return text + "  prove: the derivation of every value against the library\n"
                  "KIND: actions, attributes, settings, coefficients, control, rules; to dump "
                  "there are also\n"
                  "active, inactive, templates";
}

} // namespace command
