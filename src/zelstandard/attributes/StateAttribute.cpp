#include <zelstandard/attributes/StateAttribute.h>

#include <algorithm>
#include <memory>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/attributes/detail/Activity.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/vocabulary/OperatorTexts.h>

namespace Standard
{

namespace
{

using enum StateAttributeToken;

// clang-format off
constexpr RejectedTokens rejected[] = {
    {DesignMaterial::CONCRETE,           {PRECAST, IN_SITU_CONCRETE, PRESTRESS, V_PRECAST, V_COMPOSITE}},
    {DesignMaterial::COMPOSITE_STEEL,    {PRECAST, IN_SITU_CONCRETE, PRESTRESS, V_PRECAST, V_COMPOSITE}},
    {DesignMaterial::COMPOSITE_CONCRETE, {G1, G1_CST, PRESTRESS, V, V_CST}},
    // G1_CST stays although G1 does not; this is wanted.
    {DesignMaterial::COMPOSITE_STEEL,    {G1, V, V_CST, TRAFFIC_CST, TEMP_CST, SNOW_CST, WIND_CST}},
    {DesignMaterial::STEEL,              {G1, G1_CST, PRECAST, IN_SITU_CONCRETE, CONCRETE_SETTING,
                                          PRESTRESS, V, V_CST, V_PRECAST, V_COMPOSITE}},
};
// clang-format on

double factor(const ActionType* type, double (ActionType::*get)() const, double without)
{
    return type ? (type->*get)() : without;
}

void change(ActionType* type, void (ActionType::*set)(double), double value)
{
    if (type)
        (type->*set)(value);
}

} // namespace

StateAttribute::StateAttribute(StateAttributeToken token, ActionType* actionType)
    : StateAttributeBase(token), actionType_(actionType)
{
}

StateAttribute::StateAttribute(const StateAttribute& other) = default;
StateAttribute& StateAttribute::operator=(const StateAttribute& other) = default;
StateAttribute::~StateAttribute() = default;

void StateAttribute::setData(const StateAttribute* other)
{
    if (!other)
        return;
    const int flag = instanceFlag_;
    ActionType* const type = flag == 0 ? other->actionType_ : actionType_;
    *this = *other;
    instanceFlag_ = flag;
    actionType_ = type;
}

void StateAttribute::copyList(std::vector<StateAttribute*>& destination,
                              const std::vector<StateAttribute*>& source)
{
    const std::size_t count = source.size(); // the lists may be one
    for (std::size_t i = 0; i < count; ++i) {
        const StateAttribute* attribute = source[i];
        if (!attribute)
            continue;
        std::unique_ptr<ActionType> type;
        if (attribute->actionType_)
            type = std::make_unique<ActionType>(*attribute->actionType_);
        auto copy = std::make_unique<StateAttribute>(attribute->getToken(), type.get());
        copy->instanceFlag_ = type ? 1 : 0;
        copy->setData(attribute);
        destination.push_back(copy.get());
        copy.release();
        type.release();
    }
}

void StateAttribute::deleteContentOfList(std::vector<StateAttribute*>& list)
{
    for (StateAttribute* attribute : list) {
        if (!attribute)
            continue;
        if (attribute->instanceFlag_ == 1)
            delete attribute->actionType_;
        delete attribute;
    }
    list.clear();
}

ActionGroup* StateAttribute::getActionGroup() const
{
    return actionType_ ? actionType_->getActionGroup() : nullptr;
}

void StateAttribute::Validity::addOther(int value)
{
    others_.insert(std::ranges::lower_bound(others_, value), value);
}

bool StateAttribute::Validity::hasOther(int value) const
{
    return std::ranges::binary_search(others_, value);
}

// Behind each getter the value without an action type.
// clang-format off

double StateAttribute::getGammaSup() const        { return factor(actionType_, &ActionType::getGammaSup,        1.0); }
double StateAttribute::getGammaInf() const        { return factor(actionType_, &ActionType::getGammaInf,        1.0); }
double StateAttribute::getPsi0() const            { return factor(actionType_, &ActionType::getPsi0,            1.0); }
double StateAttribute::getPsi1() const            { return factor(actionType_, &ActionType::getPsi1,            1.0); }
double StateAttribute::getPsi2() const            { return factor(actionType_, &ActionType::getPsi2,            1.0); }
double StateAttribute::getPsi11() const           { return factor(actionType_, &ActionType::getPsi11,           1.0); }
double StateAttribute::getPsi21() const           { return factor(actionType_, &ActionType::getPsi21,           0.0); }
double StateAttribute::getPsi22() const           { return factor(actionType_, &ActionType::getPsi22,           0.0); }
double StateAttribute::getCrackRed() const        { return factor(actionType_, &ActionType::getCrackRed,        1.0); }
double StateAttribute::getGammaSupReduced() const { return factor(actionType_, &ActionType::getGammaSupReduced, 1.0); }
double StateAttribute::getGammaInfReduced() const { return factor(actionType_, &ActionType::getGammaInfReduced, 1.0); }

void StateAttribute::setGammaSup(double value) { change(actionType_, &ActionType::setGammaSup, value); }
void StateAttribute::setGammaInf(double value) { change(actionType_, &ActionType::setGammaInf, value); }
void StateAttribute::setPsi0(double value)     { change(actionType_, &ActionType::setPsi0,     value); }
void StateAttribute::setPsi1(double value)     { change(actionType_, &ActionType::setPsi1,     value); }
void StateAttribute::setPsi2(double value)     { change(actionType_, &ActionType::setPsi2,     value); }
void StateAttribute::setPsi11(double value)    { change(actionType_, &ActionType::setPsi11,    value); }
void StateAttribute::setPsi21(double value)    { change(actionType_, &ActionType::setPsi21,    value); }
void StateAttribute::setPsi22(double value)    { change(actionType_, &ActionType::setPsi22,    value); }
void StateAttribute::setCrackRed(double value) { change(actionType_, &ActionType::setCrackRed, value); }

// clang-format on

std::string StateAttribute::getOperatorString() const
{
    const std::string symbol = getOperatorSymbol(getOperator());
    const std::size_t first = symbol.find_first_not_of(' ');
    return first == std::string::npos
               ? symbol
               : symbol.substr(first, symbol.find_last_not_of(' ') - first + 1);
}

bool StateAttribute::isActive() const { return isActiveBy(rejected, *this); }

bool StateAttribute::isValidForBridgeDesignType() const
{
    return isValidForBridgeBy(rejected, *this);
}

int StateAttribute::operator!=(const StateAttribute& other) const
{
    if (StateAttributeBase::operator!=(other))
        return 1;
    if (!actionType_ != !other.actionType_)
        return 1;
    if (actionType_ && *actionType_ != *other.actionType_)
        return 1;
    return exclGroup_ != other.exclGroup_ || combGroup_ != other.combGroup_ ||
           classifications_ != other.classifications_ || standards_ != other.standards_ ||
           bridgeTypes_ != other.bridgeTypes_;
}

int StateAttribute::operator==(const StateAttribute& other) const { return !(*this != other); }

} // namespace Standard
