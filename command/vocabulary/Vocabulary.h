#pragma once

#include <array>
#include <compare>
#include <span>
#include <string>

#include <zelstandard/actions/SafetyFactors.h>
#include <zelstandard/material/Coefficients.h>
#include <zelstandard/material/Control.h>
#include <zelstandard/vocabulary/Enumerations.h>

/// @file
/// What the command asks about: structures, factors, tables of materials. Constant, for any thread.

namespace command
{

using Standard::ActionTypeId;
using Standard::BridgeType;
using Standard::Classification;
using Standard::Mode;

/// What factors are kept for: a building, or a bridge of one type. A building has bridge type 0.
struct Structure {
    Classification classification = Classification::BUILDING;
    BridgeType bridgeType{};

    auto operator<=>(const Structure&) const = default;
    [[nodiscard]] bool isBuilding() const { return classification == Classification::BUILDING; }
};

inline constexpr Structure building{};
constexpr Structure bridge(BridgeType type) { return {Classification::BRIDGE, type}; }

/// A structure as files spell it and as people read it.
struct StructureRow {
    Structure value;
    const char* word;
    const char* english;
    const char* german;
};
inline constexpr StructureRow structures[] = {
    {building,                        "BUILDING",    "building",                      "Hochbau"           },
    {bridge(BridgeType::ROADWAY),     "ROADWAY",     "road bridge",                   "Straßenbrücke"   },
    {bridge(BridgeType::RAILWAY1),    "RAILWAY1",    "railway bridge, one track",
     "Eisenbahnbrücke, ein Gleis"                                                                        },
    {bridge(BridgeType::RAILWAY2),    "RAILWAY2",    "railway bridge, two tracks",
     "Eisenbahnbrücke, zwei Gleise"                                                                      },
    {bridge(BridgeType::RAILWAY3),    "RAILWAY3",    "railway bridge, three or more",
     "Eisenbahnbrücke, drei und mehr"                                                                    },
    {bridge(BridgeType::FOOTBRIDGE1), "FOOTBRIDGE1", "footbridge",                    "Fußgängerbrücke"},
};

/// The word of a structure as the data files spell it; "-" for one that no file can name.
std::string wordOf(Structure structure);
std::string wordOf(Mode code);
std::string wordOf(ActionTypeId action);

/// The codes EC to DIN-EN, in the order of their values.
std::span<const Mode> allCodes();

/// The factors of a set, in the order in which SafetyFactors declares them.
enum class Factor : std::size_t {
    GammaSup,
    GammaInf,
    Psi0,
    Psi1,
    Psi2,
    Psi11,
    Psi21,
    Psi22,
    CrackRed
};
inline constexpr std::size_t factorCount = 9;

struct FactorRow {
    Factor value;
    const char* element; ///< in an action type file
    const char* key;     ///< on the command line, in JSON and in CSV
    const char* title;   ///< in a table
    int decimals;
    Factor leader;   ///< the factor whose value it repeats as a rule; itself for none
    double fallback; ///< what the getters give without a set
    double (Standard::SafetyFactors::*get)() const;
};
using Standard::SafetyFactors;
inline constexpr FactorRow factors[] = {
    {Factor::GammaSup, "GAMMA_SUP", "gamma_sup", "gamma sup", 2, Factor::GammaSup, 1.0,
     &SafetyFactors::getGammaSup                                                                                },
    {Factor::GammaInf, "GAMMA_INF", "gamma_inf", "gamma inf", 2, Factor::GammaInf, 1.0,
     &SafetyFactors::getGammaInf                                                                                },
    {Factor::Psi0,     "PSI0",      "psi0",      "psi0",      2, Factor::Psi0,     1.0, &SafetyFactors::getPsi0 },
    {Factor::Psi1,     "PSI1",      "psi1",      "psi1",      2, Factor::Psi1,     1.0, &SafetyFactors::getPsi1 },
    {Factor::Psi2,     "PSI2",      "psi2",      "psi2",      2, Factor::Psi2,     1.0, &SafetyFactors::getPsi2 },
    {Factor::Psi11,    "PSI11",     "psi11",     "psi11",     2, Factor::Psi1,     1.0, &SafetyFactors::getPsi11},
    {Factor::Psi21,    "PSI21",     "psi21",     "psi21",     2, Factor::Psi2,     0.0, &SafetyFactors::getPsi21},
    {Factor::Psi22,    "PSI22",     "psi22",     "psi22",     2, Factor::Psi2,     0.0, &SafetyFactors::getPsi22},
    {Factor::CrackRed, "CrackRed",  "crack_red", "crack red", 3, Factor::CrackRed, 1.0,
     &SafetyFactors::getCrackRed                                                                                },
};
constexpr const FactorRow& rowOf(Factor factor)
{
    return factors[static_cast<std::size_t>(factor)];
}

/// A table of the settings document: partial factors by design situation, long-term coefficients by
/// classification, and the control values of the stress block.
struct MaterialRow {
    const char* table; ///< element name, and the word on the command line
    const char* english;
    const char* german;
    double (Standard::Coefficients::*gamma)(Mode, Standard::DesignSituation) const;
    double (Standard::Coefficients::*alpha)(Mode, Classification) const;
    double (*control)(Mode);
};
using Standard::Coefficients;
using Standard::Control;
inline constexpr MaterialRow materialTables[] = {
    {"GAMMA_S",     "reinforcing steel",             "Betonstahl",                     &Coefficients::getGammaS,  nullptr, nullptr},
    {"GAMMA_C",     "concrete",                      "Beton",                          &Coefficients::getGammaC,  nullptr, nullptr},
    {"GAMMA_A",     "structural steel",              "Baustahl",                       &Coefficients::getGammaA,  nullptr, nullptr},
    {"GAMMA_T",     "timber",                        "Holz",                           &Coefficients::getGammaT,  nullptr, nullptr},
    {"GAMMA_F",     "fatigue load",                  "Ermüdungslast",                 &Coefficients::getGammaF,  nullptr, nullptr},
    {"GAMMA_R",     "non-linear analysis",           "nichtlineare Berechnung",        &Coefficients::getGammaR,  nullptr,
     nullptr                                                                                                                      },
    {"GAMMA_RV",    "bearing resistance of ground",  "Grundbruchwiderstand",           &Coefficients::getGammaRV,
     nullptr,                                                                                                              nullptr},
    {"GAMMA_RH",    "sliding resistance of ground",  "Gleitwiderstand",                &Coefficients::getGammaRH,
     nullptr,                                                                                                              nullptr},
    {"GAMMA_RE",    "earth resistance",              "Erdwiderstand",                  &Coefficients::getGammaRE, nullptr, nullptr},
    {"ALPHA_CC",    "concrete, long-term, pressure", "Beton, Dauerstand, Druck",       nullptr,
     &Coefficients::getAlphaCC,                                                                                            nullptr},
    {"ALPHA_CT",    "concrete, long-term, tension",  "Beton, Dauerstand, Zug",         nullptr,
     &Coefficients::getAlphaCT,                                                                                            nullptr},
    {"STRUTFACTOR", "strength of struts over fcd",   "Strebenfestigkeit zu fcd",       nullptr,                   nullptr,
     &Control::getStrutFactor                                                                                                     },
    {"ETA",         "strength of the stress block",  "Festigkeit des Spannungsblocks", nullptr,                   nullptr,
     &Control::getCompressionEta                                                                                                  },
    {"LAMBDA",      "depth of the stress block",     "Höhe des Spannungsblocks",      nullptr,                   nullptr,
     &Control::getCompressionLambda                                                                                               },
};

/// The columns of a table: design situations, classifications, or "-" for a control value.
std::span<const char* const> columnsOf(const MaterialRow& row);
/// The value that the library holds.
double valueOf(const MaterialRow& row, Mode code, std::size_t column);

} // namespace command
