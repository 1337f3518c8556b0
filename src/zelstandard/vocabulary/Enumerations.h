#pragma once

#include <zelstandard/vocabulary/StateAttributeToken.h>
#include <zelstandard/vocabulary/Word.h>

/// @file
/// The enumerations of the library, each followed by its persistence words.
///
/// The numeric values are stored in files and used as keys; they are never renumbered. Words are
/// case-sensitive. Each table of words is read by XMLUtil in the order of its rows, a later row of
/// a word replacing an earlier one; where several words share a value, writing gives the
/// alphabetically first. All is constant, for any thread.

namespace Standard
{

/// Design code in force.
enum class Mode : int {
    NO_CODE = 0,
    EC = 1,       ///< EN 1990 with the recommended values
    DIN_1988 = 2, ///< one global safety factor on the resistance side
    DIN_2008 = 3, ///< DIN 1055-100 with DIN 1045-1
    SIA = 4,      ///< SIA 260
    OENORM = 5,   ///< EN 1990 with the Austrian annex
    CSN = 6,      ///< EN 1990 with the Czech annex
    BS = 7,       ///< EN 1990 with the British annex
    DIN_EN = 8,   ///< EN 1990 with the German annex
};

/// The facts of a design code: its number for the suite's other programs (getCODE), its display
/// name, and the texts that describe it by material: for buildings of concrete, steel, timber, for
/// bridges of concrete, steel, steel girders with a concrete slab, precast girders with in-situ
/// concrete. Text 0: none.
struct DesignCode {
    Mode value;
    const char* word;
    int number;
    unsigned int textId;
    unsigned int descriptions[7];
};
inline constexpr DesignCode designCodes[] = {
    {Mode::NO_CODE,  "-",        0, 0,    {}                                        },
    {Mode::EC,       "EC",       1, 3214, {7423, 7429, 7435, 7441, 7447, 7452, 7455}},
    {Mode::DIN_1988, "DIN-1988", 0, 1375, {}                                        },
    {Mode::DIN_2008, "DIN-2008", 2, 5094, {7424, 7430, 7436, 7442, 7448, 7453, 7456}},
    {Mode::SIA,      "SIA",      0, 5098, {}                                        },
    {Mode::OENORM,   "OENORM",   3, 6470, {7426, 7432, 7438, 7444, 7450, 0, 7458}   },
    {Mode::CSN,      "CSN",      6, 6471, {7427, 7433, 7439, 7445, 7451, 0, 7459}   },
    {Mode::BS,       "BS",       4, 6472, {7428, 7434, 7440, 7446, 0, 0, 7460}      },
    {Mode::DIN_EN,   "DIN-EN",   5, 6469, {7425, 7431, 7437, 7443, 7449, 7454, 7457}},
};

/// Kind of structure. It has no table of words: only "BRIDGE" reads as BRIDGE, and every other
/// word, an unknown one too, reads as BUILDING.
enum class Classification : int {
    BUILDING = 1,
    BRIDGE = 2,
};

/// Material of the member that is designed. An unknown word reads as -1, which is no member.
enum class DesignMaterial : int {
    CONCRETE = 0,
    STEEL = 1,
    TIMBER = 2,
    ROPE = 3,
    COMPOSITE_STEEL = 4,    ///< steel girders with a concrete slab
    COMPOSITE_CONCRETE = 5, ///< precast girders with in-situ concrete
};
inline constexpr Word<DesignMaterial> designMaterialWords[] = {
    {DesignMaterial::CONCRETE,           "CONCRETE"          },
    {DesignMaterial::STEEL,              "STEEL"             },
    {DesignMaterial::TIMBER,             "TIMBER"            },
    {DesignMaterial::ROPE,               "ROPE"              },
    {DesignMaterial::COMPOSITE_STEEL,    "COMPOSITE_STEEL"   },
    {DesignMaterial::COMPOSITE_CONCRETE, "COMPOSITE_CONCRETE"},
};

/// Design situation.
enum class DesignSituation : int {
    PERSISTENT = 0, ///< persistent and transient
    ACCIDENTAL = 1,
    ACCIDENTAL_EQ = 2, ///< seismic
};
inline constexpr Word<DesignSituation> designSituationWords[] = {
    {DesignSituation::PERSISTENT,    "PERSISTENT"   },
    {DesignSituation::ACCIDENTAL,    "ACCIDENTAL"   },
    {DesignSituation::ACCIDENTAL_EQ, "ACCIDENTAL_EQ"},
};

/// Kind of bridge; 0 means none and has no word. Both words of footbridges read as FOOTBRIDGE1, and
/// FOOTBRIDGE2 has no word of its own: this is wanted, and it means that no file reaches
/// FOOTBRIDGE2, which a program can only set itself.
enum class BridgeType : int {
    ROADWAY = 1,
    RAILWAY1 = 2, ///< one track loaded at a time
    RAILWAY2 = 3, ///< two tracks loaded at a time
    RAILWAY3 = 4, ///< three or more tracks loaded at a time
    FOOTBRIDGE1 = 5,
    FOOTBRIDGE2 = 6, ///< second footbridge type
};
inline constexpr Word<BridgeType> bridgeTypeWords[] = {
    {BridgeType::ROADWAY,     "ROADWAY"    },
    {BridgeType::RAILWAY1,    "RAILWAY1"   },
    {BridgeType::RAILWAY2,    "RAILWAY2"   },
    {BridgeType::RAILWAY3,    "RAILWAY3"   },
    {BridgeType::FOOTBRIDGE1, "FOOTBRIDGE1"},
    {BridgeType::FOOTBRIDGE1, "FOOTBRIDGE2"},
};

/// Kind of building; 0 means none and has no word.
enum class BuildingType : int {
    COMMON = 1,
    ENGINEERING = 2, ///< engineering structure
};
inline constexpr Word<BuildingType> buildingTypeWords[] = {
    {BuildingType::COMMON,      "COMMON"     },
    {BuildingType::ENGINEERING, "ENGINEERING"},
};

/// Ductility class for earthquake design (EN 1998-1 5.2.1).
enum class DuctilityClass : int {
    DCL = 0, ///< low
    DCM = 1, ///< medium
    DCH = 2, ///< high
};
inline constexpr Word<DuctilityClass> ductilityClassWords[] = {
    {DuctilityClass::DCL, "DCL"},
    {DuctilityClass::DCM, "DCM"},
    {DuctilityClass::DCH, "DCH"},
};

/// Load duration class (EN 1995-1-1 2.3.1.2).
enum class LoadDuration : int {
    PERMANENT = 0,
    LONGTERM = 1,
    MEDIUMTERM = 2,
    SHORTTERM = 3,
    INSTANTANEOUS = 4,
};
inline constexpr Word<LoadDuration> loadDurationWords[] = {
    {LoadDuration::PERMANENT,     "PERMANENT"    },
    {LoadDuration::LONGTERM,      "LONGTERM"     },
    {LoadDuration::MEDIUMTERM,    "MEDIUMTERM"   },
    {LoadDuration::SHORTTERM,     "SHORTTERM"    },
    {LoadDuration::INSTANTANEOUS, "INSTANTANEOUS"},
};

/// How load cases with a state attribute are superposed. An unknown word reads as -1, which is no
/// member.
enum class Operator : int {
    AND = 0,        ///< always acts
    OR = 1,         ///< exactly one of its group acts
    AND_MINMAX = 2, ///< acts when unfavourable
    OR_MINMAX = 3,  ///< at most one of its group acts, when unfavourable
    NONE = 4,
};
inline constexpr Word<Operator> operatorWords[] = {
    {Operator::AND,        "AND"       },
    {Operator::OR,         "OR"        },
    {Operator::AND_MINMAX, "AND_MINMAX"},
    {Operator::OR_MINMAX,  "OR_MINMAX" },
    {Operator::NONE,       "NONE"      },
};

/// Set of superposition rules.
enum class SuperpositionTemplate : int {
    DIN_BUILDING = 0,
    EC_BUILDING = 1,
    DIN_BRIDGE = 2,
    EC_BRIDGE = 3,
    DIN_STEEL = 4,
    CSN_BRIDGE = 5,
};
inline constexpr Word<SuperpositionTemplate> superpositionTemplateWords[] = {
    {SuperpositionTemplate::DIN_BUILDING, "DIN-BUILDING"},
    {SuperpositionTemplate::EC_BUILDING,  "EC-BUILDING" },
    {SuperpositionTemplate::DIN_BRIDGE,   "DIN-BRIDGE"  },
    {SuperpositionTemplate::EC_BRIDGE,    "EC-BRIDGE"   },
    {SuperpositionTemplate::DIN_STEEL,    "DIN-STEEL"   },
    {SuperpositionTemplate::CSN_BRIDGE,   "CSN-BRIDGE"  },
};

/// Family of actions; ActionGroup names it Type.
enum class ActionGroupType : int {
    NONE = 0,
    G = 1, ///< permanent
    V = 2, ///< prestress
    P = 3, ///< variable
    E = 4, ///< earthquake
    T = 5, ///< temperature
    S = 6, ///< settlement
    SNOW = 7,
    WIND = 8,
    A = 9,  ///< accidental
    L = 10, ///< live load
    Z = 11, ///< restraint
};
/// The order of the texts is not that of the values.
inline constexpr NamedWord<ActionGroupType> actionGroupTypeWords[] = {
    {ActionGroupType::NONE, "NONE", 0   },
    {ActionGroupType::G,    "G",    6065},
    {ActionGroupType::V,    "V",    6066},
    {ActionGroupType::P,    "P",    6068},
    {ActionGroupType::E,    "E",    6069},
    {ActionGroupType::T,    "T",    6070},
    {ActionGroupType::S,    "S",    6073},
    {ActionGroupType::SNOW, "SNOW", 6072},
    {ActionGroupType::WIND, "WIND", 6071},
    {ActionGroupType::A,    "A",    6067},
    {ActionGroupType::L,    "L",    6074},
    {ActionGroupType::Z,    "Z",    6075},
};

/// Load type of a state attribute. The values 12 and 13 have no word.
enum class AttributeLoadType : int {
    UNDEFINED = 0,
    VEHICLE = 1,
    LANE = 2,
    CREEP = 3,
    EINGUSS = 4,
    BAUZ = 5,
    UIC = 6,
    WALK = 7,
    HOR = 8,
    LM71 = 9,
    SW0 = 10,
    SW2 = 11,
    UNLOADED = 14,
    TEMP_CONST = 15,
    TEMP_LINEAR = 16,
    SUPP_CHANGE = 17,
};
inline constexpr Word<AttributeLoadType> attributeLoadTypeWords[] = {
    {AttributeLoadType::UNDEFINED,   "UNDEFINED"  },
    {AttributeLoadType::VEHICLE,     "VEHICLE"    },
    {AttributeLoadType::LANE,        "LANE"       },
    {AttributeLoadType::CREEP,       "CREEP"      },
    {AttributeLoadType::EINGUSS,     "EINGUSS"    },
    {AttributeLoadType::BAUZ,        "BAUZ"       },
    {AttributeLoadType::UIC,         "UIC"        },
    {AttributeLoadType::WALK,        "WALK"       },
    {AttributeLoadType::HOR,         "HOR"        },
    {AttributeLoadType::LM71,        "LM71"       },
    {AttributeLoadType::SW0,         "SW0"        },
    {AttributeLoadType::SW2,         "SW2"        },
    {AttributeLoadType::UNLOADED,    "UNLOADED"   },
    {AttributeLoadType::TEMP_CONST,  "TEMP_CONST" },
    {AttributeLoadType::TEMP_LINEAR, "TEMP_LINEAR"},
    {AttributeLoadType::SUPP_CHANGE, "SUPP_CHANGE"},
};

/// Type of a state attribute. ELM4_ij is lorry i of fatigue load model 4 in position j.
/// ELM4_53 has no word: its row spells "ELM4_54", which the last row then takes over. This is
/// wanted, and it means that "ELM4_53" in a file reads as DEFAULT and that ELM4_53 is written as
/// "-".
enum class AttributeType : int {
    DEFAULT = 0,
    PERMANENT = 1,
    PRESTRESS = 2,
    ACCIDENTAL = 3,
    VARIABLE = 4,
    SNOW = 5,
    WIND = 6,
    TEMPERATURE = 7,
    DEFORMATION = 8,
    EARTH = 9,
    TOTAL = 10,
    ADDITIONAL = 11,
    FATIGUE = 12,
    ELM4_11 = 13,
    ELM4_21 = 14,
    ELM4_31 = 15,
    ELM4_41 = 16,
    ELM4_51 = 17,
    ELM4_12 = 18,
    ELM4_22 = 19,
    ELM4_32 = 20,
    ELM4_42 = 21,
    ELM4_52 = 22,
    ELM4_13 = 23,
    ELM4_23 = 24,
    ELM4_33 = 25,
    ELM4_43 = 26,
    ELM4_53 = 27,
    ELM4_14 = 28,
    ELM4_24 = 29,
    ELM4_34 = 30,
    ELM4_44 = 31,
    ELM4_54 = 32,
};
inline constexpr Word<AttributeType> attributeTypeWords[] = {
    {AttributeType::DEFAULT,     "DEFAULT"    },
    {AttributeType::PERMANENT,   "PERMANENT"  },
    {AttributeType::PRESTRESS,   "PRESTRESS"  },
    {AttributeType::ACCIDENTAL,  "ACCIDENTAL" },
    {AttributeType::VARIABLE,    "VARIABLE"   },
    {AttributeType::SNOW,        "SNOW"       },
    {AttributeType::WIND,        "WIND"       },
    {AttributeType::TEMPERATURE, "TEMPERATURE"},
    {AttributeType::DEFORMATION, "DEFORMATION"},
    {AttributeType::EARTH,       "EARTH"      },
    {AttributeType::TOTAL,       "TOTAL"      },
    {AttributeType::ADDITIONAL,  "ADDITIONAL" },
    {AttributeType::FATIGUE,     "FATIGUE"    },
    {AttributeType::ELM4_11,     "ELM4_11"    },
    {AttributeType::ELM4_21,     "ELM4_21"    },
    {AttributeType::ELM4_31,     "ELM4_31"    },
    {AttributeType::ELM4_41,     "ELM4_41"    },
    {AttributeType::ELM4_51,     "ELM4_51"    },
    {AttributeType::ELM4_12,     "ELM4_12"    },
    {AttributeType::ELM4_22,     "ELM4_22"    },
    {AttributeType::ELM4_32,     "ELM4_32"    },
    {AttributeType::ELM4_42,     "ELM4_42"    },
    {AttributeType::ELM4_52,     "ELM4_52"    },
    {AttributeType::ELM4_13,     "ELM4_13"    },
    {AttributeType::ELM4_23,     "ELM4_23"    },
    {AttributeType::ELM4_33,     "ELM4_33"    },
    {AttributeType::ELM4_43,     "ELM4_43"    },
    {AttributeType::ELM4_53,     "ELM4_54"    },
    {AttributeType::ELM4_14,     "ELM4_14"    },
    {AttributeType::ELM4_24,     "ELM4_24"    },
    {AttributeType::ELM4_34,     "ELM4_34"    },
    {AttributeType::ELM4_44,     "ELM4_44"    },
    {AttributeType::ELM4_54,     "ELM4_54"    },
};

/// Combination that a state instruction produces. An unknown word reads as NONE.
enum class InstructionType : int {
    NONE = -1,
    CHARACTERISTIC = 0,
    FUNDAMENTAL = 1,
    ACCIDENTAL = 2,
    RARE = 3,
    FREQUENT = 4,
    QUASI_PERMANENT = 5,
    INFREQUENT = 6,
    FULL_DIN = 7,
    FULL_EC2 = 8,
    BRIDGE_DIN = 9,
    BRIDGE_EC2 = 10,
    CONCRETE_DIN = 11,
    STEEL_DIN = 12,
    BRIDGE_CSN = 13,
    PONTI_EC2 = 14,
    CREEP = 15,
    ACTIONTYPES = 16,
    FATIGUE = 17,
    FATIGUE_G = 18,
    FATIGUE_ZERO = 19,
    DECOMPRESSION = 20,
    EARTHQUAKE = 21,
    EARTHQUAKE_RESPONSE = 22,
    ELM4_11 = 23,
    ELM4_21 = 24,
    ELM4_31 = 25,
    ELM4_41 = 26,
    ELM4_51 = 27,
    ELM4_12 = 28,
    ELM4_22 = 29,
    ELM4_32 = 30,
    ELM4_42 = 31,
    ELM4_52 = 32,
    ELM4_13 = 33,
    ELM4_23 = 34,
    ELM4_33 = 35,
    ELM4_43 = 36,
    ELM4_53 = 37,
    ELM4_14 = 38,
    ELM4_24 = 39,
    ELM4_34 = 40,
    ELM4_44 = 41,
    ELM4_54 = 42,
};
/// Full superposition has one text under DIN and under EC.
inline constexpr NamedWord<InstructionType> instructionTypeWords[] = {
    {InstructionType::NONE,                "NONE",                0   },
    {InstructionType::CHARACTERISTIC,      "CHARACTERISTIC",      6521},
    {InstructionType::FUNDAMENTAL,         "FUNDAMENTAL",         4131},
    {InstructionType::ACCIDENTAL,          "ACCIDENTAL",          4135},
    {InstructionType::RARE,                "RARE",                4136},
    {InstructionType::FREQUENT,            "FREQUENT",            4137},
    {InstructionType::QUASI_PERMANENT,     "QUASI_PERMANENT",     4138},
    {InstructionType::INFREQUENT,          "INFREQUENT",          5167},
    {InstructionType::FULL_DIN,            "FULL_DIN",            4126},
    {InstructionType::FULL_EC2,            "FULL_EC2",            4126},
    {InstructionType::BRIDGE_DIN,          "BRIDGE_DIN",          4125},
    {InstructionType::BRIDGE_EC2,          "BRIDGE_EC2",          0   },
    {InstructionType::CONCRETE_DIN,        "CONCRETE_DIN",        4127},
    {InstructionType::STEEL_DIN,           "STEEL_DIN",           4129},
    {InstructionType::BRIDGE_CSN,          "BRIDGE_CSN",          5151},
    {InstructionType::PONTI_EC2,           "PONTI_EC2",           5216},
    {InstructionType::CREEP,               "CREEP",               5503},
    {InstructionType::ACTIONTYPES,         "ACTIONTYPES",         5742},
    {InstructionType::FATIGUE,             "FATIGUE",             6087},
    {InstructionType::FATIGUE_G,           "FATIGUE_G",           0   },
    {InstructionType::FATIGUE_ZERO,        "FATIGUE_ZERO",        0   },
    {InstructionType::DECOMPRESSION,       "DECOMPRESSION",       6141},
    {InstructionType::EARTHQUAKE,          "EARTHQUAKE",          6348},
    {InstructionType::EARTHQUAKE_RESPONSE, "EARTHQUAKE_RESPONSE", 6976},
    {InstructionType::ELM4_11,             "ELM4_11",             7099},
    {InstructionType::ELM4_21,             "ELM4_21",             7100},
    {InstructionType::ELM4_31,             "ELM4_31",             7101},
    {InstructionType::ELM4_41,             "ELM4_41",             7102},
    {InstructionType::ELM4_51,             "ELM4_51",             7103},
    {InstructionType::ELM4_12,             "ELM4_12",             7104},
    {InstructionType::ELM4_22,             "ELM4_22",             7105},
    {InstructionType::ELM4_32,             "ELM4_32",             7106},
    {InstructionType::ELM4_42,             "ELM4_42",             7107},
    {InstructionType::ELM4_52,             "ELM4_52",             7108},
    {InstructionType::ELM4_13,             "ELM4_13",             7109},
    {InstructionType::ELM4_23,             "ELM4_23",             7110},
    {InstructionType::ELM4_33,             "ELM4_33",             7111},
    {InstructionType::ELM4_43,             "ELM4_43",             7112},
    {InstructionType::ELM4_53,             "ELM4_53",             7113},
    {InstructionType::ELM4_14,             "ELM4_14",             7114},
    {InstructionType::ELM4_24,             "ELM4_24",             7115},
    {InstructionType::ELM4_34,             "ELM4_34",             7116},
    {InstructionType::ELM4_44,             "ELM4_44",             7117},
    {InstructionType::ELM4_54,             "ELM4_54",             7118},
};

/// Identity of an action type; ActionType names it Id.
enum class ActionTypeId : int {
    NONE = 0,
    G1 = 1,
    G2 = 2,
    V = 3,
    S = 4,
    D = 5,
    PTG1 = 6,
    PTG2 = 7,
    DSTU = 8,
    DDEF = 9,
    SSHI = 10,
    U = 11,
    P = 12,
    E = 13,
    NLA = 14,
    NLB = 15,
    NLC = 16,
    NLD = 17,
    NLE = 18,
    NLF = 19,
    NLG = 20,
    NLH = 21,
    SW0 = 22,
    SW2 = 23,
    BRAKE_LM71 = 24,
    BRAKE_SW2 = 25,
    CENTR_LM71 = 26,
    CENTR_SW0 = 27,
    CENTR_SW2 = 28,
    PUSH = 29,
    SNOW = 30,
    M = 31,
    T = 32,
    LW = 33,
    BA = 34,
    Z = 35,
    A = 36,
    B = 37,
    P_WALK = 38,
    EXCL_WALK = 39,
    RARE = 40,
    ADDITIONAL = 41,
    LM71 = 42,
    EARTH = 43,
    EARTH_0 = 44,
    EARTH_INCR = 45,
    EARTH_Q = 46,
    U_CST = 47,
    WIND_CST = 48,
    SNOW_CST = 49,
    SNOW_1000 = 50,
    CRANE = 51,
};
/// The internal types PTG1, PTG2, DSTU and DDEF have no text.
inline constexpr NamedWord<ActionTypeId> actionTypeIdWords[] = {
    {ActionTypeId::NONE,       "NONE",       6014},
    {ActionTypeId::G1,         "G1",         6016},
    {ActionTypeId::G2,         "G2",         6018},
    {ActionTypeId::V,          "V",          4995},
    {ActionTypeId::S,          "S",          6041},
    {ActionTypeId::D,          "D",          6045},
    {ActionTypeId::PTG1,       "PTG1",       0   },
    {ActionTypeId::PTG2,       "PTG2",       0   },
    {ActionTypeId::DSTU,       "DSTU",       0   },
    {ActionTypeId::DDEF,       "DDEF",       0   },
    {ActionTypeId::SSHI,       "SSHI",       4111},
    {ActionTypeId::U,          "U",          6023},
    {ActionTypeId::P,          "P",          6033},
    {ActionTypeId::E,          "E",          6037},
    {ActionTypeId::NLA,        "NLA",        6024},
    {ActionTypeId::NLB,        "NLB",        6025},
    {ActionTypeId::NLC,        "NLC",        6026},
    {ActionTypeId::NLD,        "NLD",        6027},
    {ActionTypeId::NLE,        "NLE",        6028},
    {ActionTypeId::NLF,        "NLF",        6029},
    {ActionTypeId::NLG,        "NLG",        6030},
    {ActionTypeId::NLH,        "NLH",        6031},
    {ActionTypeId::SW0,        "SW0",        6051},
    {ActionTypeId::SW2,        "SW2",        6052},
    {ActionTypeId::BRAKE_LM71, "BRAKE_LM71", 6053},
    {ActionTypeId::BRAKE_SW2,  "BRAKE_SW2",  6054},
    {ActionTypeId::CENTR_LM71, "CENTR_LM71", 6055},
    {ActionTypeId::CENTR_SW0,  "CENTR_SW0",  6056},
    {ActionTypeId::CENTR_SW2,  "CENTR_SW2",  6057},
    {ActionTypeId::PUSH,       "PUSH",       6058},
    {ActionTypeId::SNOW,       "SNOW",       6039},
    {ActionTypeId::M,          "M",          6042},
    {ActionTypeId::T,          "T",          6040},
    {ActionTypeId::LW,         "LW",         6043},
    {ActionTypeId::BA,         "BA",         6046},
    {ActionTypeId::Z,          "Z",          6038},
    {ActionTypeId::A,          "A",          6047},
    {ActionTypeId::B,          "B",          6048},
    {ActionTypeId::P_WALK,     "P_WALK",     6061},
    {ActionTypeId::EXCL_WALK,  "EXCL_WALK",  6062},
    {ActionTypeId::RARE,       "RARE",       6063},
    {ActionTypeId::ADDITIONAL, "ADDITIONAL", 6064},
    {ActionTypeId::LM71,       "LM71",       6050},
    {ActionTypeId::EARTH,      "EARTH",      6044},
    {ActionTypeId::EARTH_0,    "EARTH_0",    6275},
    {ActionTypeId::EARTH_INCR, "EARTH_INCR", 6518},
    {ActionTypeId::EARTH_Q,    "EARTH_Q",    6060},
    {ActionTypeId::U_CST,      "U_CST",      6237},
    {ActionTypeId::WIND_CST,   "WIND_CST",   7376},
    {ActionTypeId::SNOW_CST,   "SNOW_CST",   7378},
    {ActionTypeId::SNOW_1000,  "SNOW_1000",  7380},
    {ActionTypeId::CRANE,      "CRANE",      7382},
};

/// Combination and exclusion groups are plain numbers; three families of words share them.
inline constexpr Word<int> combinationGroupWords[] = {
    {1, "AGR_GR1"},
    {2, "AGR_GR2"},
    {3, "AGR_GR3"},
    {1, "AGR_SSW"},
    {2, "AGR_SSM"},
    {1, "AGR_AU" },
    {2, "AGR_AO" },
};

/// Type of a requirement on a bridge, which decides with the bridge type its requirement class;
/// Requirement names it Type.
enum class RequirementType : int {
    TYPE_1 = 1,
    TYPE_2 = 2,
    TYPE_3 = 3,
    TYPE_4 = 4,
};

/// Combination of actions of one design situation, as texts name it.
enum class Combination : int {
    FUNDAMENTAL = 0,
    ACCIDENTAL = 1,
    EARTHQUAKE = 2,
    CHARACTERISTIC = 3,
    FREQUENT = 4,
    QUASI_PERMANENT = 5,
    INFREQUENT = 6,
    FUNDAMENTAL_REDUCED_TRAFFIC = 7,
    FATIGUE = 8,
};

} // namespace Standard
