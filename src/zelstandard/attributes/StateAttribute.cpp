#include <zelstandard/attributes/StateAttribute.h>

#include <memory>

#include <zelstandard/actions/ActionType.h>
#include <zelstandard/attributes/BridgeTokens.h>
#include <zelstandard/context/ZelStandard.h>

namespace Standard
{

namespace
{

using enum StateAttributeToken;

constexpr RejectedTokens rejected[] = {
    {DesignMaterial::CONCRETE,           {PRECAST, IN_SITU_CONCRETE, PRESTRESS, V_PRECAST, V_COMPOSITE}},
    {DesignMaterial::COMPOSITE_STEEL,
     {PRECAST, IN_SITU_CONCRETE, PRESTRESS, V_PRECAST, V_COMPOSITE}                                    },
    {DesignMaterial::COMPOSITE_CONCRETE, {G1, G1_CST, PRESTRESS, V, V_CST}                             },
 // G1_CST stays although G1 does not; this is wanted.
    {DesignMaterial::COMPOSITE_STEEL,    {G1, V, V_CST, TRAFFIC_CST, TEMP_CST, SNOW_CST, WIND_CST}     },
    {DesignMaterial::STEEL,
     {G1, G1_CST, PRECAST, IN_SITU_CONCRETE, CONCRETE_SETTING, PRESTRESS, V, V_CST, V_PRECAST,
      V_COMPOSITE}                                                                                     },
};

} // namespace

StateAttribute::StateAttribute(StateAttributeToken token, ActionType* actionType)
    : StateAttributeBase(token), actionType_(actionType)
{
}

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

int StateAttribute::fromBit(int value) { return 1 << (value + 3); }

template <class Value> int StateAttribute::bitField(const std::set<Value>& values)
{
    int bits = 0;
    for (const Value value : values)
        bits += fromBit(static_cast<int>(value));
    return bits;
}

int StateAttribute::getStandardBitField() const { return bitField(standards_); }

int StateAttribute::getClassificationBitField() const { return bitField(classifications_); }

int StateAttribute::getBridgeTypeBitField() const { return bitField(bridgeTypes_); }

double StateAttribute::getGammaSup() const
{
    return actionType_ ? actionType_->getGammaSup() : 1.0;
}

double StateAttribute::getGammaInf() const
{
    return actionType_ ? actionType_->getGammaInf() : 1.0;
}

double StateAttribute::getPsi0() const { return actionType_ ? actionType_->getPsi0() : 1.0; }

double StateAttribute::getPsi1() const { return actionType_ ? actionType_->getPsi1() : 1.0; }

double StateAttribute::getPsi2() const { return actionType_ ? actionType_->getPsi2() : 1.0; }

double StateAttribute::getPsi11() const { return actionType_ ? actionType_->getPsi11() : 1.0; }

double StateAttribute::getPsi21() const { return actionType_ ? actionType_->getPsi21() : 0.0; }

double StateAttribute::getPsi22() const { return actionType_ ? actionType_->getPsi22() : 0.0; }

double StateAttribute::getCrackRed() const
{
    return actionType_ ? actionType_->getCrackRed() : 1.0;
}

void StateAttribute::setGammaSup(double value)
{
    if (actionType_)
        actionType_->setGammaSup(value);
}

void StateAttribute::setGammaInf(double value)
{
    if (actionType_)
        actionType_->setGammaInf(value);
}

void StateAttribute::setPsi0(double value)
{
    if (actionType_)
        actionType_->setPsi0(value);
}

void StateAttribute::setPsi1(double value)
{
    if (actionType_)
        actionType_->setPsi1(value);
}

void StateAttribute::setPsi2(double value)
{
    if (actionType_)
        actionType_->setPsi2(value);
}

void StateAttribute::setPsi11(double value)
{
    if (actionType_)
        actionType_->setPsi11(value);
}

void StateAttribute::setPsi21(double value)
{
    if (actionType_)
        actionType_->setPsi21(value);
}

void StateAttribute::setPsi22(double value)
{
    if (actionType_)
        actionType_->setPsi22(value);
}

void StateAttribute::setCrackRed(double value)
{
    if (actionType_)
        actionType_->setCrackRed(value);
}

double StateAttribute::getGammaSupReduced() const
{
    return actionType_ ? actionType_->getGammaSupReduced() : 1.0;
}

double StateAttribute::getGammaInfReduced() const
{
    return actionType_ ? actionType_->getGammaInfReduced() : 1.0;
}

std::string StateAttribute::getOperatorString() const
{
    switch (getOperator()) {
    case Operator::AND:
        return "+";
    case Operator::OR:
        return "?";
    case Operator::AND_MINMAX:
        return "+(0?)";
    case Operator::OR_MINMAX:
        return "?(0?)";
    case Operator::NONE:
        return " ";
    }
    return " ";
}

bool StateAttribute::isActive() const
{
    const ZelStandard& standard = *ZelStandard::get();
    if (!isValidForAllClassifications() && !hasClassification(standard.getClassification()))
        return false;
    if (!isValidForAllStandards() && !hasStandard(standard.getMode()))
        return false;
    if (!standard.isBridgeClassification())
        return true;
    return (isValidForAllBridgeTypes() || hasBridgeType(standard.getBridgeType())) &&
           isValidForBridgeDesignType();
}

bool StateAttribute::isValidForBridgeDesignType() const
{
    const ZelStandard& standard = *ZelStandard::get();
    return !standard.isBridgeClassification() ||
           !isRejected(rejected, standard.getDesignMaterial(), getToken());
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
