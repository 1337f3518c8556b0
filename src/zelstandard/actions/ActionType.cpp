#include <zelstandard/actions/ActionType.h>

#include <algorithm>
#include <array>
#include <iterator>
#include <map>
#include <tuple>

#include <zelstandard/actions/detail/Identities.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/platform/ZelText.h>
#include <zelstandard/vocabulary/detail/Words.h>

namespace Standard
{

namespace
{

struct IdRow {
    unsigned int textId;
    ActionTypeId id;
};

/// What the texts of old data mean.
constexpr IdRow idsOfTexts[] = {
    {6016, ActionTypeId::G1        },
    {6017, ActionTypeId::G1        },
    {6018, ActionTypeId::G2        },
    {6044, ActionTypeId::G2        },
    {6275, ActionTypeId::G2        },
    {6276, ActionTypeId::G2        },
    {6019, ActionTypeId::V         },
    {6020, ActionTypeId::V         },
    {6021, ActionTypeId::V         },
    {6022, ActionTypeId::V         },
    {6291, ActionTypeId::V         },
    {6041, ActionTypeId::S         },
    {6045, ActionTypeId::D         },
    {6023, ActionTypeId::U         },
    {6034, ActionTypeId::U         },
    {6059, ActionTypeId::U         },
    {6060, ActionTypeId::U         },
    {6033, ActionTypeId::P         },
    {6035, ActionTypeId::P         },
    {6036, ActionTypeId::P         },
    {6037, ActionTypeId::E         },
    {6024, ActionTypeId::NLA       },
    {6025, ActionTypeId::NLB       },
    {6026, ActionTypeId::NLC       },
    {6027, ActionTypeId::NLD       },
    {6028, ActionTypeId::NLE       },
    {6029, ActionTypeId::NLF       },
    {6030, ActionTypeId::NLG       },
    {6031, ActionTypeId::NLH       },
    {6051, ActionTypeId::SW0       },
    {6052, ActionTypeId::SW2       },
    {6053, ActionTypeId::BRAKE_LM71},
    {6054, ActionTypeId::BRAKE_SW2 },
    {6055, ActionTypeId::CENTR_LM71},
    {6056, ActionTypeId::CENTR_SW0 },
    {6057, ActionTypeId::CENTR_SW2 },
    {6058, ActionTypeId::PUSH      },
    {6039, ActionTypeId::SNOW      },
    {6042, ActionTypeId::M         },
    {6040, ActionTypeId::T         },
    {6043, ActionTypeId::LW        },
    {6046, ActionTypeId::BA        },
    {6038, ActionTypeId::Z         },
    {6047, ActionTypeId::A         },
    {6048, ActionTypeId::B         },
    {6049, ActionTypeId::B         },
    {6061, ActionTypeId::P_WALK    },
    {6062, ActionTypeId::EXCL_WALK },
    {6063, ActionTypeId::RARE      },
    {6064, ActionTypeId::ADDITIONAL},
    {6050, ActionTypeId::LM71      },
    {7380, ActionTypeId::SNOW_1000 },
    {7382, ActionTypeId::CRANE     },
};

/// An action of type B is named by two texts.
constexpr unsigned int accelerationText = 6049;

/// The codes, and the building and the bridge types of a code: the first one of either is none.
constexpr std::size_t codeCount = std::size(designCodes) - 1;
constexpr std::size_t structureCount = static_cast<std::size_t>(BridgeType::FOOTBRIDGE2) + 1;
constexpr std::size_t none = static_cast<std::size_t>(-1);

/// The place of a set; none for a code or bridge type that is no member or means none. A bridge
/// type plays no part for a building, and every other classification means a bridge.
std::size_t placeOf(Mode mode, Classification classification, BridgeType bridgeType)
{
    const std::size_t code = static_cast<std::size_t>(mode) - 1;
    const std::size_t bridge = static_cast<std::size_t>(bridgeType) - 1;
    if (code >= codeCount)
        return none;
    if (classification == Classification::BUILDING)
        return code * structureCount;
    return bridge < structureCount - 1 ? code * structureCount + bridge + 1 : none;
}

} // namespace

/// The sets of factors, flat by code and structure; those without a place there are kept apart. A
/// set never moves.
struct ActionType::Values {
    /// Code, whether a building, bridge type; that is 0 for a building.
    using OtherKey = std::tuple<Mode, bool, BridgeType>;

    static constexpr std::size_t count = codeCount * structureCount;

    std::array<SafetyFactors, count> sets;
    std::array<bool, count> present{};
    std::map<OtherKey, SafetyFactors> others;

    /// By value: when memory ends, nothing is changed.
    void assign(Values other)
    {
        sets = other.sets;
        present = other.present;
        others.swap(other.others);
    }

    static OtherKey otherKey(Mode mode, Classification classification, BridgeType bridgeType)
    {
        const bool building = classification == Classification::BUILDING;
        return {mode, building, building ? BridgeType{} : bridgeType};
    }

    SafetyFactors* find(Mode mode, Classification classification, BridgeType bridgeType)
    {
        const std::size_t place = placeOf(mode, classification, bridgeType);
        if (place != none)
            return present[place] ? &sets[place] : nullptr;
        return findOther(otherKey(mode, classification, bridgeType));
    }

    // Not inlined: what is at hand is found without a stack.
    [[gnu::noinline]] SafetyFactors* findOther(OtherKey key)
    {
        const auto other = others.find(key);
        return other == others.end() ? nullptr : &other->second;
    }

    SafetyFactors& give(Mode mode, Classification classification, BridgeType bridgeType)
    {
        const std::size_t place = placeOf(mode, classification, bridgeType);
        if (place == none)
            return others[otherKey(mode, classification, bridgeType)];
        present[place] = true;
        return sets[place];
    }

    /// Visits (classification, bridge type, set) of every set of a code.
    template <class Visitor> void visit(Mode mode, Visitor visitor)
    {
        const std::size_t first = placeOf(mode, Classification::BUILDING, BridgeType{});
        for (std::size_t i = 0; first != none && i < structureCount; ++i)
            if (present[first + i])
                visitor(i == 0 ? Classification::BUILDING : Classification::BRIDGE,
                        static_cast<BridgeType>(i), sets[first + i]);
        for (auto& [key, set] : others) {
            const auto& [code, building, bridgeType] = key;
            if (code == mode)
                visitor(building ? Classification::BUILDING : Classification::BRIDGE, bridgeType,
                        set);
        }
    }

    /// True when a set of this type is missing in the other or differs there.
    [[nodiscard]] bool differsFrom(const Values& other) const
    {
        for (std::size_t i = 0; i < count; ++i)
            if (present[i] && (!other.present[i] || sets[i] != other.sets[i]))
                return true;
        return std::ranges::any_of(others, [&](const auto& entry) {
            const auto found = other.others.find(entry.first);
            return found == other.others.end() || entry.second != found->second;
        });
    }
};

unsigned int identityChanges = 0;

const int ActionType::IdCount = 51;

ActionType::ActionType(Id id) : values_(std::make_unique<Values>()), id_(id) {}

ActionType::ActionType(const ActionType& other)
    : values_(std::make_unique<Values>(*other.values_)), id_(other.id_),
      actionGroup_(other.actionGroup_), loadDuration_(other.loadDuration_)
{
}

ActionType& ActionType::operator=(const ActionType& other)
{
    if (this == &other)
        return *this;
    if (id_ != other.id_)
        ++identityChanges;
    values_->assign(*other.values_);
    id_ = other.id_;
    actionGroup_ = other.actionGroup_;
    loadDuration_ = other.loadDuration_;
    return *this;
}

ActionType::~ActionType() = default;

ActionGroup::Type ActionType::getActionGroupId() const
{
    return actionGroup_ ? actionGroup_->getId() : ActionGroup::Type::NONE;
}

bool ActionType::operator!=(const ActionType& other) const
{
    return id_ != other.id_ || actionGroup_ != other.actionGroup_ ||
           loadDuration_ != other.loadDuration_ || values_->differsFrom(*other.values_);
}

bool ActionType::operator==(const ActionType& other) const { return !(*this != other); }

SafetyFactors* ActionType::getFactors(Mode mode, Classification classification,
                                      BridgeType bridgeType) const
{
    return values_->find(mode, classification, bridgeType);
}

SafetyFactors* ActionType::giveFactors(Mode mode, Classification classification,
                                       BridgeType bridgeType)
{
    return &values_->give(mode, classification, bridgeType);
}

[[gnu::always_inline]] inline SafetyFactors* ActionType::currentFactors() const
{
    const ZelStandard& standard = *ZelStandard::get();
    return values_->find(standard.getMode(), standard.getClassification(),
                         standard.getBridgeType());
}

template <double (SafetyFactors::*get)() const> double ActionType::inForce(double without) const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? (factors->*get)() : without;
}

template <void (SafetyFactors::*set)(double)> void ActionType::change(double value)
{
    if (SafetyFactors* factors = currentFactors())
        (factors->*set)(value);
}

// Behind each getter what it gives without a set in force.
// clang-format off

double ActionType::getGammaSup() const { return inForce<&SafetyFactors::getGammaSup>(1.0); }
double ActionType::getGammaInf() const { return inForce<&SafetyFactors::getGammaInf>(1.0); }
double ActionType::getPsi0()     const { return inForce<&SafetyFactors::getPsi0>(   1.0); }
double ActionType::getPsi1()     const { return inForce<&SafetyFactors::getPsi1>(   1.0); }
double ActionType::getPsi2()     const { return inForce<&SafetyFactors::getPsi2>(   1.0); }
double ActionType::getPsi11()    const { return inForce<&SafetyFactors::getPsi11>(  1.0); }
double ActionType::getPsi21()    const { return inForce<&SafetyFactors::getPsi21>(  0.0); }
double ActionType::getPsi22()    const { return inForce<&SafetyFactors::getPsi22>(  0.0); }
double ActionType::getCrackRed() const { return inForce<&SafetyFactors::getCrackRed>(1.0); }

void ActionType::setGammaSup(double value) { change<&SafetyFactors::setGammaSup>(value); }
void ActionType::setGammaInf(double value) { change<&SafetyFactors::setGammaInf>(value); }
void ActionType::setPsi0(double value)     { change<&SafetyFactors::setPsi0>(   value); }
void ActionType::setPsi1(double value)     { change<&SafetyFactors::setPsi1>(   value); }
void ActionType::setPsi2(double value)     { change<&SafetyFactors::setPsi2>(   value); }
void ActionType::setPsi11(double value)    { change<&SafetyFactors::setPsi11>(  value); }
void ActionType::setPsi21(double value)    { change<&SafetyFactors::setPsi21>(  value); }
void ActionType::setPsi22(double value)    { change<&SafetyFactors::setPsi22>(  value); }
void ActionType::setCrackRed(double value) { change<&SafetyFactors::setCrackRed>(value); }

// clang-format on

double ActionType::getGammaSupReduced() const { return reduced(getGammaSup()); }

double ActionType::getGammaInfReduced() const { return reduced(getGammaInf()); }

double ActionType::reduced(double gamma) const
{
    return isConreteType() && gamma > 0.99 ? gamma * getCrackRed() : gamma;
}

bool ActionType::isConreteType()
{
    const ZelStandard& standard = *ZelStandard::get();
    return standard.isConcrete() || standard.isCompositeConcrete();
}

bool ActionType::hasSafetyFactors() const { return currentFactors() != nullptr; }

bool ActionType::isActive() const { return currentFactors() != nullptr; }

bool ActionType::hasValues(Mode mode) const
{
    bool found = false;
    values_->visit(mode, [&](Classification classification, BridgeType type, const SafetyFactors&) {
        found |= classification == Classification::BUILDING ||
                 (type >= BridgeType::ROADWAY && type <= BridgeType::FOOTBRIDGE1);
    });
    return found;
}

bool ActionType::isSecondary() const { return id_ >= Id::PTG1 && id_ <= Id::SSHI; }

bool ActionType::isImposedLoadType() const { return id_ >= Id::NLA && id_ <= Id::NLH; }

void ActionType::copyFromEC(Mode mode)
{
    values_->visit(Mode::EC,
                   [&](Classification classification, BridgeType type, const SafetyFactors& set) {
                       values_->give(mode, classification, type) = set;
                   });
}

void ActionType::copyGammasAndPsis(const ActionType& other) { values_->assign(*other.values_); }

void ActionType::takeOver(Mode mode, const SafetyFactors& factors)
{
    values_->visit(
        mode, [&](Classification, BridgeType, SafetyFactors& set) { set.takeOverFrom(factors); });
}

std::string ActionType::getName() const
{
    const auto id = getTextId();
    if (!id.hasValue())
        return "-";
    const std::string name = ZelText::Load(id.getValue());
    return id_ == Id::B ? name + "-" + ZelText::Load(accelerationText) : name;
}

std::string ActionType::getReportName() const
{
    const auto id = getTextId();
    if (!id.hasValue())
        return "-";
    const std::string name = ZelText::LoadReport(id.getValue());
    return id_ == Id::B ? name + "-" + ZelText::LoadReport(accelerationText) : name;
}

std::string ActionType::getDescription() const
{
    return isImposedLoadType() ? getName() + " (" + getDescriptionText() + ")" : getName();
}

std::string ActionType::getReportDescription() const
{
    return isImposedLoadType() ? getReportName() + " (" + getReportDescriptionText() + ")"
                               : getReportName();
}

std::string ActionType::getDescriptionText() const
{
    return ZelTextResource::get()->loadString(determineDescriptionId());
}

std::string ActionType::getReportDescriptionText() const
{
    return LSReport(determineDescriptionId());
}

zelt::Nullable<unsigned int> ActionType::getTextId() const
{
    const unsigned int id = textIdOf<actionTypeIdWords>(id_);
    return id == 0 ? zelt::Nullable<unsigned int>() : id;
}

unsigned int ActionType::determineDescriptionId() const
{
    const auto category = static_cast<unsigned int>(id_) - static_cast<unsigned int>(Id::NLA);
    return isImposedLoadType() ? 6001 + category : 3463;
}

ActionType::Id ActionType::getIdByTextId(unsigned int textId)
{
    const auto* row = std::ranges::find(idsOfTexts, textId, &IdRow::textId);
    return row == std::end(idsOfTexts) ? Id::NONE : row->id;
}

} // namespace Standard
