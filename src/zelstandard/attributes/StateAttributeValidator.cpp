#include <zelstandard/attributes/StateAttributeValidator.h>

#include <zelstandard/attributes/BridgeTokens.h>
#include <zelstandard/attributes/StateAttribute.h>
#include <zelstandard/context/ZelStandard.h>

namespace Standard
{

namespace
{

using enum StateAttributeToken;

constexpr RejectedTokens rejected[] = {
    {DesignMaterial::CONCRETE,           {PRECAST, IN_SITU_CONCRETE, V_PRECAST, V_COMPOSITE}},
    {DesignMaterial::COMPOSITE_STEEL,    {PRECAST, IN_SITU_CONCRETE, V_PRECAST, V_COMPOSITE}},
    {DesignMaterial::COMPOSITE_CONCRETE, {G1, G1_CST, V, V_CST}                             },
    {DesignMaterial::STEEL,
     {G1, G1_CST, PRECAST, IN_SITU_CONCRETE, CONCRETE_SETTING, PRESTRESS, V, V_CST, V_PRECAST,
      V_COMPOSITE}                                                                          },
};

} // namespace

bool StateAttributeValidator::isAttributeActive(const StateAttribute* attribute)
{
    if (!attribute)
        return false;
    const ZelStandard& standard = *ZelStandard::get();
    if (!attribute->isValidForAllClassifications() &&
        !attribute->hasClassification(standard.getClassification()))
        return false;
    if (!attribute->isValidForAllStandards() && !attribute->hasStandard(standard.getMode()))
        return false;
    if (!standard.isBridgeClassification())
        return true;
    return (attribute->isValidForAllBridgeTypes() ||
            attribute->hasBridgeType(standard.getBridgeType())) &&
           isAttributeValidForBridgeDesignType(attribute);
}

bool StateAttributeValidator::isAttributeValidForBridgeDesignType(const StateAttribute* attribute)
{
    if (!attribute)
        return false;
    const ZelStandard& standard = *ZelStandard::get();
    return !standard.isBridgeClassification() ||
           !isRejected(rejected, standard.getDesignMaterial(), attribute->getToken());
}

} // namespace Standard
