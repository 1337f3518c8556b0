#include <command/batch/Statement.h>

#include <functional>
#include <map>
#include <ostream>
#include <set>

#include <zelstandard/attributes/StateAttributeValidator.h>
#include <zelstandard/context/ZelStandard.h>

#include <command/batch/Enumerations.h>
#include <command/batch/Settings.h>
#include <command/vocabulary/Failure.h>

namespace command
{

using namespace Standard;

namespace
{

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
                    call.out() << ' ' << numberText((set->*factor.get)());
                call.out() << '\n';
            }
    }
}

std::string wordOrNumber(const char* enumeration, int value)
{
    const std::string word = wordFor(enumeration, value);
    return word == "-" ? std::to_string(value) : word;
}

/// The values that it holds, by their words; or "all".
template <class Has>
std::string members(const char* enumeration, int first, int last, bool all, Has has)
{
    std::string list;
    for (int value = first; value <= last; ++value)
        if (has(value))
            list += (list.empty() ? "" : ",") + wordOrNumber(enumeration, value);
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
    for (const SettingRow& row : settings)
        call.out() << row.name << ' ' << wordOf(row) << '\n';
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
                           << ' ' << numberText(command::valueOf(table, code, column)) << '\n';
}

void dumpControl(const Call& call)
{
    for (const Mode code : {Mode::EC, Mode::DIN_1988})
        call.out() << wordOf(code) << " gamma " << numberText(Control::getGamma(code))
                   << " gammafactor " << numberText(Control::getGammaFactor(code))
                   << " strutfactor " << numberText(Control::getStrutFactor(code)) << " eta "
                   << numberText(Control::getCompressionEta(code)) << " lambda "
                   << numberText(Control::getCompressionLambda(code)) << " internal "
                   << (Control::getInternalFactor(code) ? "true" : "false") << '\n';
}

/// "dump words [WORD ...]": of each enumeration what an unknown word means; then each value that
/// does not have just one word of its own, its word, and which others of all words, and of the
/// given ones, mean the same. The instants, of which no schema tells the words, all.
void dumpWords(const Call& call)
{
    constexpr int first = -2;
    constexpr int last = 140;
    std::set<std::string> words;
    for (const std::string& word : call.from(2))
        words.insert(word);
    for (const Enumeration& e : enumerations())
        for (int value = first; value <= last; ++value)
            words.insert(e.word(value));
    words.erase("-");
    for (const Enumeration& e : enumerations()) {
        const int unknown = e.value("no such word");
        call.out() << e.name << " unknown " << numberText(unknown) << '\n';
        for (int value = first; value <= last; ++value) {
            const std::string word = e.word(value);
            std::string line = word == "-" || e.value(word) != value ? "" : " " + word;
            for (const std::string& other : words)
                if (value != unknown && other != word && e.value(other) == value)
                    line += " " + other;
            const bool isPlain = line == " " + word && e.name != std::string_view("instant");
            if (!line.empty() && !isPlain)
                call.out() << e.name << ' ' << numberText(value) << line << '\n';
        }
    }
}

/// The words of the tags for which it holds, a blank before each.
std::string tagsThat(Data& data, const std::function<bool(bool isActive, bool isValidated)>& holds)
{
    std::string list;
    for (const StateAttribute* attribute : data.attributes().getAttributes())
        if (holds(attribute->isActive(), StateAttributeValidator::isAttributeActive(attribute)))
            list += " " + wordFor("tag", attribute->getToken());
    return list;
}

/// "active TEMPLATE TAG ...": the rules in force and the tags that the attribute or the validator
/// calls active.
void dumpActive(const Call& call)
{
    call.out() << "active " << wordFor("template", call.data().rules().getCurrentTemplateID())
               << tagsThat(call.data(), std::logical_or<bool>()) << '\n';
}

/// The tags that both call inactive, and those that only one of them does.
void dumpInactive(const Call& call)
{
    call.out() << "inactive" << tagsThat(call.data(), [](bool a, bool b) { return !a && !b; })
               << '\n';
    if (const std::string tags = tagsThat(call.data(), std::less<bool>()); !tags.empty())
        call.out() << "inactive for the attribute alone" << tags << '\n';
    if (const std::string tags = tagsThat(call.data(), std::greater<bool>()); !tags.empty())
        call.out() << "inactive for the validator alone" << tags << '\n';
}

/// "CLASSIFICATION CODE: TEMPLATE MATERIAL ..., ...": the rules of all settings, those of values
/// without a word too.
void dumpTemplates(const Call& call)
{
    for (int kind = 0; kind <= 3; ++kind)
        for (int mode = -1; mode <= 9; ++mode) {
            std::map<std::string, std::string> materials;
            for (int material = -1; material <= 6; ++material) {
                const auto chosen = call.data().rules().getTemplateID(
                    Mode{mode}, Classification{kind}, DesignMaterial{material});
                materials[wordFor("template", chosen)] += " " + wordOrNumber("material", material);
            }
            call.out() << wordOrNumber("classification", kind) << ' ' << wordOrNumber("mode", mode)
                       << ':';
            for (const char* separator = " "; const auto& [word, list] : materials) {
                call.out() << separator << word << (materials.size() == 1 ? "" : list);
                separator = ", ";
            }
            call.out() << '\n';
        }
}

/// The settings as numbers, on one line.
void settingNumbers(const Call& call)
{
    for (const SettingRow& row : settings)
        call.out() << (&row == settings ? "" : " ") << std::to_string(row.get());
    call.out() << '\n';
}

/// The code and the use as numbers, and what holds.
void queries(const Call& call)
{
    const ZelStandard& s = *ZelStandard::get();
    call.out() << std::to_string(s.getCODE()) << ' ' << std::to_string(s.getNUTZ(false)) << ' '
               << std::to_string(s.getNUTZ(true));
    const std::pair<bool, const char*> all[] = {
        {isBuildingClassification(),          "building"          },
        {isBridgeClassification(),            "bridge"            },
        {isRailwayBridge(),                   "railway"           },
        {s.isFootbridge(),                    "footbridge"        },
        {s.isConcrete(),                      "concrete"          },
        {s.isSteel(),                         "steel"             },
        {isComposite(),                       "composite"         },
        {isCompositeSteel(),                  "composite-steel"   },
        {isCompositeConcrete(),               "composite-concrete"},
        {s.isPersistentSituation(),           "persistent"        },
        {s.isAccidentalSituation(),           "accidental"        },
        {s.isAccidentalEarthquakeSituation(), "seismic"           }
    };
    for (const auto& [holds, name] : all)
        call.out() << (holds ? std::string(" ") + name : "");
    call.out() << '\n';
}

/// Requirement classes with their crack width in m, requirements with their type, exposure classes
/// with their group.
void durability(const Call& call)
{
    const ZelStandard& s = *ZelStandard::get();
    for (const RequirementClass* c : s.getRequirementClasses())
        call.out() << "class " << c->getNameAndDescription() << ' ' << std::to_string(c->getNClas())
                   << ' ' << numberText(c->getCrackWidth()) << '\n';
    for (const Requirement* r : s.getRequirements())
        call.out() << "requirement " << r->getNameAndDescription() << ' '
                   << std::to_string(r->getNClas()) << ' '
                   << std::to_string(static_cast<int>(r->getBridgeRequirement())) << '\n';
    for (const ExposureClass* e : s.getExposureClasses())
        call.out() << "exposure " << e->getName() << ' ' << e->getDescription() << ' '
                   << std::to_string(e->getNumber()) << ' ' << std::to_string(e->getGroup())
                   << '\n';
}

struct DumpRow {
    const char* name;
    void (*dump)(const Call&);
};
constexpr DumpRow dumps[] = {
    {"actions",      dumpActions     },
    {"attributes",   dumpAttributes  },
    {"settings",     dumpSettings    },
    {"rules",        dumpRules       },
    {"coefficients", dumpCoefficients},
    {"control",      dumpControl     },
    {"active",       dumpActive      },
    {"inactive",     dumpInactive    },
    {"templates",    dumpTemplates   },
    {"words",        dumpWords       },
};

void dump(const Call& call)
{
    for (const auto& [name, run] : dumps)
        if (call[1] == name)
            return run(call);
    throw Failure("nothing to dump is called \"" + call[1] + "\"");
}

constexpr StatementRow statements[] = {
    {"dump",            "KIND: one line a fact",              dump          },
    {"setting-numbers", "the eight settings on one line",     settingNumbers},
    {"queries",         "what holds of the settings",         queries       },
    {"durability",      "the classes of the settings object", durability    },
};

} // namespace

std::span<const StatementRow> dumpStatements() { return statements; }

} // namespace command
