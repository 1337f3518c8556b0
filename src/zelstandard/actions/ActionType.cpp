#include <zelstandard/actions/ActionType.h>

#include <algorithm>
#include <iterator>
#include <map>

#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/platform/ZelText.h>

namespace Standard
{

namespace
{

struct TextRow {
    ActionTypeId id;
    unsigned int textId;
};

/// Display names. The internal types PTG1, PTG2, DSTU and DDEF have none.
constexpr TextRow nameTexts[] = {
    {ActionTypeId::NONE,       6014},
    {ActionTypeId::G1,         6016},
    {ActionTypeId::G2,         6018},
    {ActionTypeId::V,          4995},
    {ActionTypeId::S,          6041},
    {ActionTypeId::D,          6045},
    {ActionTypeId::SSHI,       4111},
    {ActionTypeId::U,          6023},
    {ActionTypeId::P,          6033},
    {ActionTypeId::E,          6037},
    {ActionTypeId::NLA,        6024},
    {ActionTypeId::NLB,        6025},
    {ActionTypeId::NLC,        6026},
    {ActionTypeId::NLD,        6027},
    {ActionTypeId::NLE,        6028},
    {ActionTypeId::NLF,        6029},
    {ActionTypeId::NLG,        6030},
    {ActionTypeId::NLH,        6031},
    {ActionTypeId::SW0,        6051},
    {ActionTypeId::SW2,        6052},
    {ActionTypeId::BRAKE_LM71, 6053},
    {ActionTypeId::BRAKE_SW2,  6054},
    {ActionTypeId::CENTR_LM71, 6055},
    {ActionTypeId::CENTR_SW0,  6056},
    {ActionTypeId::CENTR_SW2,  6057},
    {ActionTypeId::PUSH,       6058},
    {ActionTypeId::SNOW,       6039},
    {ActionTypeId::M,          6042},
    {ActionTypeId::T,          6040},
    {ActionTypeId::LW,         6043},
    {ActionTypeId::BA,         6046},
    {ActionTypeId::Z,          6038},
    {ActionTypeId::A,          6047},
    {ActionTypeId::B,          6048},
    {ActionTypeId::P_WALK,     6061},
    {ActionTypeId::EXCL_WALK,  6062},
    {ActionTypeId::RARE,       6063},
    {ActionTypeId::ADDITIONAL, 6064},
    {ActionTypeId::LM71,       6050},
    {ActionTypeId::EARTH,      6044},
    {ActionTypeId::EARTH_0,    6275},
    {ActionTypeId::EARTH_INCR, 6518},
    {ActionTypeId::EARTH_Q,    6060},
    {ActionTypeId::U_CST,      6237},
    {ActionTypeId::WIND_CST,   7376},
    {ActionTypeId::SNOW_CST,   7378},
    {ActionTypeId::SNOW_1000,  7380},
    {ActionTypeId::CRANE,      7382},
};

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

bool isBuilding(Classification classification)
{
    return classification == Classification::BUILDING;
}

using Set = std::shared_ptr<SafetyFactors>;

Set copyOf(const Set& set) { return set ? std::make_shared<SafetyFactors>(*set) : nullptr; }

/// The value of a key, or a null one.
template <class Map> typename Map::mapped_type find(const Map& map, typename Map::key_type key)
{
    const auto found = map.find(key);
    return found == map.end() ? nullptr : found->second;
}

bool differ(const Set& left, const Set& right)
{
    return left && right ? (*left != *right) != 0 : left != right;
}

} // namespace

/// The sets of factors. An empty pointer counts as no set.
struct ActionType::Values {
    struct BridgeTypesToStandard {
        std::map<BridgeType, Set> sets;
    };
    std::map<Mode, Set> building;
    std::map<Mode, std::shared_ptr<BridgeTypesToStandard>> bridge;

    Values() = default;
    Values(const Values& other)
    {
        for (const auto& [mode, set] : other.building)
            building[mode] = copyOf(set);
        for (const auto& [mode, types] : other.bridge) {
            if (!types)
                continue;
            auto& copies = bridge[mode] = std::make_shared<BridgeTypesToStandard>();
            for (const auto& [type, set] : types->sets)
                copies->sets[type] = copyOf(set);
        }
    }
    Values& operator=(const Values&) = delete;
};

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
    copyGammasAndPsis(other);
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
    if (id_ != other.id_ || actionGroup_ != other.actionGroup_ ||
        loadDuration_ != other.loadDuration_)
        return true;
    for (const auto& [mode, set] : values_->building)
        if (differ(set, find(other.values_->building, mode)))
            return true;
    for (const auto& [mode, types] : values_->bridge) {
        const auto otherTypes = find(other.values_->bridge, mode);
        if (!types != !otherTypes)
            return true;
        if (!types)
            continue;
        for (const auto& [type, set] : types->sets)
            if (differ(set, find(otherTypes->sets, type)))
                return true;
    }
    return false;
}

bool ActionType::operator==(const ActionType& other) const { return !(*this != other); }

SafetyFactors* ActionType::getFactors(Mode mode, Classification classification,
                                      BridgeType bridgeType) const
{
    if (isBuilding(classification))
        return find(values_->building, mode).get();
    const auto types = find(values_->bridge, mode);
    return types ? find(types->sets, bridgeType).get() : nullptr;
}

SafetyFactors* ActionType::giveFactors(Mode mode, Classification classification,
                                       BridgeType bridgeType)
{
    if (SafetyFactors* factors = getFactors(mode, classification, bridgeType))
        return factors;
    auto made = std::make_shared<SafetyFactors>();
    if (isBuilding(classification))
        return (values_->building[mode] = made).get();
    auto& types = values_->bridge[mode];
    if (!types)
        types = std::make_shared<Values::BridgeTypesToStandard>();
    return (types->sets[bridgeType] = made).get();
}

SafetyFactors* ActionType::currentFactors() const
{
    const ZelStandard& standard = *ZelStandard::get();
    return getFactors(standard.getMode(), standard.getClassification(), standard.getBridgeType());
}

double ActionType::getGammaSup() const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? factors->getGammaSup() : 1.0;
}

double ActionType::getGammaInf() const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? factors->getGammaInf() : 1.0;
}

double ActionType::getPsi0() const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? factors->getPsi0() : 1.0;
}

double ActionType::getPsi1() const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? factors->getPsi1() : 1.0;
}

double ActionType::getPsi2() const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? factors->getPsi2() : 1.0;
}

double ActionType::getPsi11() const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? factors->getPsi11() : 1.0;
}

double ActionType::getPsi21() const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? factors->getPsi21() : 0.0;
}

double ActionType::getPsi22() const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? factors->getPsi22() : 0.0;
}

double ActionType::getCrackRed() const
{
    const SafetyFactors* factors = currentFactors();
    return factors ? factors->getCrackRed() : 1.0;
}

void ActionType::setGammaSup(double value)
{
    if (SafetyFactors* factors = currentFactors())
        factors->setGammaSup(value);
}

void ActionType::setGammaInf(double value)
{
    if (SafetyFactors* factors = currentFactors())
        factors->setGammaInf(value);
}

void ActionType::setPsi0(double value)
{
    if (SafetyFactors* factors = currentFactors())
        factors->setPsi0(value);
}

void ActionType::setPsi1(double value)
{
    if (SafetyFactors* factors = currentFactors())
        factors->setPsi1(value);
}

void ActionType::setPsi2(double value)
{
    if (SafetyFactors* factors = currentFactors())
        factors->setPsi2(value);
}

void ActionType::setPsi11(double value)
{
    if (SafetyFactors* factors = currentFactors())
        factors->setPsi11(value);
}

void ActionType::setPsi21(double value)
{
    if (SafetyFactors* factors = currentFactors())
        factors->setPsi21(value);
}

void ActionType::setPsi22(double value)
{
    if (SafetyFactors* factors = currentFactors())
        factors->setPsi22(value);
}

void ActionType::setCrackRed(double value)
{
    if (SafetyFactors* factors = currentFactors())
        factors->setCrackRed(value);
}

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
    if (getFactors(mode, Classification::BUILDING, BridgeType::ROADWAY))
        return true;
    for (const BridgeType type : {BridgeType::ROADWAY, BridgeType::RAILWAY1, BridgeType::RAILWAY2,
                                  BridgeType::RAILWAY3, BridgeType::FOOTBRIDGE1})
        if (getFactors(mode, Classification::BRIDGE, type))
            return true;
    return false;
}

bool ActionType::isSecondary() const { return id_ >= Id::PTG1 && id_ <= Id::SSHI; }

bool ActionType::isImposedLoadType() const { return id_ >= Id::NLA && id_ <= Id::NLH; }

void ActionType::copyFromEC(Mode mode)
{
    const auto copy = [&](Classification classification, BridgeType bridgeType) {
        if (const SafetyFactors* ec = getFactors(Mode::EC, classification, bridgeType))
            *giveFactors(mode, classification, bridgeType) = *ec;
    };
    copy(Classification::BUILDING, BridgeType::ROADWAY);
    if (const auto types = find(values_->bridge, Mode::EC))
        for (const auto& [type, set] : types->sets)
            copy(Classification::BRIDGE, type);
}

void ActionType::copyGammasAndPsis(const ActionType& other)
{
    if (this != &other)
        values_ = std::make_unique<Values>(*other.values_);
}

void ActionType::takeOver(Mode mode, const SafetyFactors& factors)
{
    if (const Set set = find(values_->building, mode))
        set->takeOverFrom(factors);
    if (const auto types = find(values_->bridge, mode))
        for (const auto& [type, set] : types->sets)
            if (set)
                set->takeOverFrom(factors);
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
    const auto* row = std::ranges::find(nameTexts, id_, &TextRow::id);
    return row == std::end(nameTexts) ? zelt::Nullable<unsigned int>() : row->textId;
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
