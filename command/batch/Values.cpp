#include <command/batch/Statement.h>

#include <algorithm>
#include <ostream>

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/flat.h>
#include <zelstandard/vocabulary/OperatorTexts.h>

#include <command/batch/Enumerations.h>
#include <command/batch/Settings.h>
#include <command/vocabulary/Failure.h>

namespace command
{

using namespace Standard;

namespace
{

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
        const double value = call.number(call.count());
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

/// "put SETTING VALUE", "put path PATH", "put FACTOR ACTION|tag:TAG VALUE", "put TABLE CODE
/// [COLUMN] VALUE".
void put(const Call& call)
{
    for (const SettingRow& row : settings)
        if (call[1] == row.name)
            return row.set(row.hasWords ? valueOf<int>(row.name, call[2])
                                        : static_cast<int>(call.number(2)));
    if (call[1] == "path")
        return ZelStandard::get()->setAlternativeDBPath(call[2]);
    if (const FactorRow* factor = factorOf(call[1])) {
        const auto i = static_cast<std::size_t>(factor->value);
        if (call.isTag(2))
            (call.attribute(2).*factorSetters<StateAttribute>[i])(call.number(3));
        else
            (call.action(2).*factorSetters<ActionType>[i])(call.number(3));
        return;
    }
    if (!putMaterial(call))
        throw Failure("the library sets no \"" + call[1] + "\"");
}

// Asking.

std::string textOf(bool value) { return value ? "true" : "false"; }
std::string textOf(int value) { return std::to_string(value); }
std::string textOf(std::size_t value) { return std::to_string(value); }
std::string textOf(double value) { return numberText(value); }

/// What the first operand answers, an action or an attribute.
template <class Ask> std::string ask(const Call& call, Ask question)
{
    return call.isTag(1) ? textOf(question(call.attribute(1))) : textOf(question(call.action(1)));
}

std::string description(const Call& call)
{
    return ZelStandard::get()->getStandardDescription(
        valueOf<Classification>("classification", call[1]),
        valueOf<DesignMaterial>("material", call[2]), valueOf<Mode>("mode", call[3]));
}

std::string count(const Call& call)
{
    return textOf(call[1] == "actions" ? call.data().actions().getActionTypes().size()
                                       : call.data().attributes().getAttributes().size());
}

std::string operatorNames(const Call& call)
{
    const auto value = valueOf<Operator>("operator", call[1]);
    return getOperatorName(value) + ", " + getOperatorReportName(value);
}

struct GetRow {
    const char* name;
    std::string (*get)(const Call& call);
};

// clang-format off
const GetRow getters[] = {
    {"path",              [](const Call&)   { return ZelStandard::get()->getDataBaseDir(); }},
    {"code",              [](const Call&)   { return textOf(ZelStandard::get()->getCODE()); }},
    {"text",              [](const Call& c) { return ZelStandard::get()->getStandardText(valueOf<Mode>("mode", c[1])); }},
    {"description",       description},
    {"template",          [](const Call& c) { return wordFor("template", c.data().rules().getCurrentTemplateID()); }},
    {"count",             count},
    {"gamma_sup_reduced", [](const Call& c) { return ask(c, [](const auto& of) { return of.getGammaSupReduced(); }); }},
    {"gamma_inf_reduced", [](const Call& c) { return ask(c, [](const auto& of) { return of.getGammaInfReduced(); }); }},
    {"active",            [](const Call& c) { return ask(c, [](const auto& of) { return of.isActive(); }); }},
    {"secondary",         [](const Call& c) { return textOf(c.action(1).isSecondary()); }},
    {"hasvalues",         [](const Call& c) { return textOf(c.action(1).hasValues(valueOf<Mode>("mode", c[2]))); }},
    {"symbol",            [](const Call& c) { return '"' + getOperatorSymbol(valueOf<Operator>("operator", c[1])) + '"'; }},
    {"operator",          [](const Call& c) { return textOf(static_cast<int>(getOperatorToName(c[1]))); }},
    {"operatorname",      operatorNames},
    {"word",              [](const Call& c) { return enumerationOf(c[1]).word(static_cast<int>(c.number(2))); }},
    {"value",             [](const Call& c) { return textOf(enumerationOf(c[1]).value(c.count() < 2 ? "" : c[2])); }},
};
// clang-format on

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
    const Statement inner{outer.from(1), {}, false};
    if (inner.words.empty())
        throw Failure("get what?");
    const Call call(inner, outer.context());
    const std::string& what = inner.words.front();
    for (const SettingRow& row : settings)
        if (what == row.name) {
            call.out() << wordOf(row) << '\n';
            return;
        }
    for (const GetRow& row : getters)
        if (what == row.name) {
            call.out() << row.get(call) << '\n';
            return;
        }
    if (const FactorRow* factor = factorOf(what)) {
        const auto i = static_cast<std::size_t>(factor->value);
        call.out() << ask(call, [i]<class Owner>(const Owner& of) {
            return (of.*factorGetters<Owner>[i])();
        }) << '\n';
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

/// "flat FILE": whether a catalogue is loaded then. "flat ACTION CODE STRUCTURE": its factors.
void flat(const Call& call)
{
    if (call.count() == 1) {
        call.out() << std::to_string(ZelStandardInitialiseFile(call[1].c_str())) << '\n';
        return;
    }
    double values[ZELSTANDARD_FACTORS];
    const int found = ZelStandardGetCombValues(call[1].c_str(), call[2].c_str(), call[3].c_str(),
                                               values, ZELSTANDARD_FACTORS);
    call.out() << std::to_string(found);
    for (const double value : values)
        call.out() << (found ? ' ' + numberText(value) : "");
    call.out() << '\n';
}

constexpr StatementRow statements[] = {
    {"put",    "SETTING|FACTOR ACTION|TABLE CODE ... VALUE",              put       },
    {"get",    "WORD ...: one line",                                      get       },
    {"give",   "ACTION [CODE STRUCTURE]: found or created",               give      },
    {"copyec", "ACTION CODE",                                             copyFromEc},
    {"flat",   "FILE, or ACTION CODE STRUCTURE: the two functions for C", flat      },
};

} // namespace

std::span<const StatementRow> valueStatements() { return statements; }

} // namespace command
