#pragma once

#include <zelstandard/vocabulary/StateAttributeToken.h>

/// @file
/// The enumerations of the library, each followed by its persistence words.
///
/// The numeric values are stored in files and used as keys; they are never renumbered. Words are
/// case-sensitive. Each table of words is read by XMLUtil in the order of its rows, a later row of
/// a word replacing an earlier one; where several words share a value, writing gives the
/// alphabetically first.

namespace Standard
{

/// One row of a table of words.
template <class Enumeration> struct Word {
    Enumeration value;
    const char* word;
};

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
inline constexpr Word<Mode> modeWords[] = {
    {Mode::NO_CODE,  "-"       },
    {Mode::EC,       "EC"      },
    {Mode::DIN_1988, "DIN-1988"},
    {Mode::DIN_2008, "DIN-2008"},
    {Mode::SIA,      "SIA"     },
    {Mode::OENORM,   "OENORM"  },
    {Mode::CSN,      "CSN"     },
    {Mode::BS,       "BS"      },
    {Mode::DIN_EN,   "DIN-EN"  },
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
inline constexpr Word<ActionGroupType> actionGroupTypeWords[] = {
    {ActionGroupType::NONE, "NONE"},
    {ActionGroupType::G,    "G"   },
    {ActionGroupType::V,    "V"   },
    {ActionGroupType::P,    "P"   },
    {ActionGroupType::E,    "E"   },
    {ActionGroupType::T,    "T"   },
    {ActionGroupType::S,    "S"   },
    {ActionGroupType::SNOW, "SNOW"},
    {ActionGroupType::WIND, "WIND"},
    {ActionGroupType::A,    "A"   },
    {ActionGroupType::L,    "L"   },
    {ActionGroupType::Z,    "Z"   },
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
inline constexpr Word<InstructionType> instructionTypeWords[] = {
    {InstructionType::NONE,                "NONE"               },
    {InstructionType::CHARACTERISTIC,      "CHARACTERISTIC"     },
    {InstructionType::FUNDAMENTAL,         "FUNDAMENTAL"        },
    {InstructionType::ACCIDENTAL,          "ACCIDENTAL"         },
    {InstructionType::RARE,                "RARE"               },
    {InstructionType::FREQUENT,            "FREQUENT"           },
    {InstructionType::QUASI_PERMANENT,     "QUASI_PERMANENT"    },
    {InstructionType::INFREQUENT,          "INFREQUENT"         },
    {InstructionType::FULL_DIN,            "FULL_DIN"           },
    {InstructionType::FULL_EC2,            "FULL_EC2"           },
    {InstructionType::BRIDGE_DIN,          "BRIDGE_DIN"         },
    {InstructionType::BRIDGE_EC2,          "BRIDGE_EC2"         },
    {InstructionType::CONCRETE_DIN,        "CONCRETE_DIN"       },
    {InstructionType::STEEL_DIN,           "STEEL_DIN"          },
    {InstructionType::BRIDGE_CSN,          "BRIDGE_CSN"         },
    {InstructionType::PONTI_EC2,           "PONTI_EC2"          },
    {InstructionType::CREEP,               "CREEP"              },
    {InstructionType::ACTIONTYPES,         "ACTIONTYPES"        },
    {InstructionType::FATIGUE,             "FATIGUE"            },
    {InstructionType::FATIGUE_G,           "FATIGUE_G"          },
    {InstructionType::FATIGUE_ZERO,        "FATIGUE_ZERO"       },
    {InstructionType::DECOMPRESSION,       "DECOMPRESSION"      },
    {InstructionType::EARTHQUAKE,          "EARTHQUAKE"         },
    {InstructionType::EARTHQUAKE_RESPONSE, "EARTHQUAKE_RESPONSE"},
    {InstructionType::ELM4_11,             "ELM4_11"            },
    {InstructionType::ELM4_21,             "ELM4_21"            },
    {InstructionType::ELM4_31,             "ELM4_31"            },
    {InstructionType::ELM4_41,             "ELM4_41"            },
    {InstructionType::ELM4_51,             "ELM4_51"            },
    {InstructionType::ELM4_12,             "ELM4_12"            },
    {InstructionType::ELM4_22,             "ELM4_22"            },
    {InstructionType::ELM4_32,             "ELM4_32"            },
    {InstructionType::ELM4_42,             "ELM4_42"            },
    {InstructionType::ELM4_52,             "ELM4_52"            },
    {InstructionType::ELM4_13,             "ELM4_13"            },
    {InstructionType::ELM4_23,             "ELM4_23"            },
    {InstructionType::ELM4_33,             "ELM4_33"            },
    {InstructionType::ELM4_43,             "ELM4_43"            },
    {InstructionType::ELM4_53,             "ELM4_53"            },
    {InstructionType::ELM4_14,             "ELM4_14"            },
    {InstructionType::ELM4_24,             "ELM4_24"            },
    {InstructionType::ELM4_34,             "ELM4_34"            },
    {InstructionType::ELM4_44,             "ELM4_44"            },
    {InstructionType::ELM4_54,             "ELM4_54"            },
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
inline constexpr Word<ActionTypeId> actionTypeIdWords[] = {
    {ActionTypeId::NONE,       "NONE"      },
    {ActionTypeId::G1,         "G1"        },
    {ActionTypeId::G2,         "G2"        },
    {ActionTypeId::V,          "V"         },
    {ActionTypeId::S,          "S"         },
    {ActionTypeId::D,          "D"         },
    {ActionTypeId::PTG1,       "PTG1"      },
    {ActionTypeId::PTG2,       "PTG2"      },
    {ActionTypeId::DSTU,       "DSTU"      },
    {ActionTypeId::DDEF,       "DDEF"      },
    {ActionTypeId::SSHI,       "SSHI"      },
    {ActionTypeId::U,          "U"         },
    {ActionTypeId::P,          "P"         },
    {ActionTypeId::E,          "E"         },
    {ActionTypeId::NLA,        "NLA"       },
    {ActionTypeId::NLB,        "NLB"       },
    {ActionTypeId::NLC,        "NLC"       },
    {ActionTypeId::NLD,        "NLD"       },
    {ActionTypeId::NLE,        "NLE"       },
    {ActionTypeId::NLF,        "NLF"       },
    {ActionTypeId::NLG,        "NLG"       },
    {ActionTypeId::NLH,        "NLH"       },
    {ActionTypeId::SW0,        "SW0"       },
    {ActionTypeId::SW2,        "SW2"       },
    {ActionTypeId::BRAKE_LM71, "BRAKE_LM71"},
    {ActionTypeId::BRAKE_SW2,  "BRAKE_SW2" },
    {ActionTypeId::CENTR_LM71, "CENTR_LM71"},
    {ActionTypeId::CENTR_SW0,  "CENTR_SW0" },
    {ActionTypeId::CENTR_SW2,  "CENTR_SW2" },
    {ActionTypeId::PUSH,       "PUSH"      },
    {ActionTypeId::SNOW,       "SNOW"      },
    {ActionTypeId::M,          "M"         },
    {ActionTypeId::T,          "T"         },
    {ActionTypeId::LW,         "LW"        },
    {ActionTypeId::BA,         "BA"        },
    {ActionTypeId::Z,          "Z"         },
    {ActionTypeId::A,          "A"         },
    {ActionTypeId::B,          "B"         },
    {ActionTypeId::P_WALK,     "P_WALK"    },
    {ActionTypeId::EXCL_WALK,  "EXCL_WALK" },
    {ActionTypeId::RARE,       "RARE"      },
    {ActionTypeId::ADDITIONAL, "ADDITIONAL"},
    {ActionTypeId::LM71,       "LM71"      },
    {ActionTypeId::EARTH,      "EARTH"     },
    {ActionTypeId::EARTH_0,    "EARTH_0"   },
    {ActionTypeId::EARTH_INCR, "EARTH_INCR"},
    {ActionTypeId::EARTH_Q,    "EARTH_Q"   },
    {ActionTypeId::U_CST,      "U_CST"     },
    {ActionTypeId::WIND_CST,   "WIND_CST"  },
    {ActionTypeId::SNOW_CST,   "SNOW_CST"  },
    {ActionTypeId::SNOW_1000,  "SNOW_1000" },
    {ActionTypeId::CRANE,      "CRANE"     },
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
