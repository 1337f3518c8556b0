#include <zelstandard/attributes/StateAttributeValidator.h>

#include <zelstandard/attributes/detail/Activity.h>

namespace Standard
{

namespace
{

using enum StateAttributeToken;

// clang-format off
constexpr RejectedTokens rejected[] = {
    {DesignMaterial::CONCRETE,           {PRECAST, IN_SITU_CONCRETE, V_PRECAST, V_COMPOSITE}},
    {DesignMaterial::COMPOSITE_STEEL,    {PRECAST, IN_SITU_CONCRETE, V_PRECAST, V_COMPOSITE}},
    {DesignMaterial::COMPOSITE_CONCRETE, {G1, G1_CST, V, V_CST}},
    {DesignMaterial::STEEL,              {G1, G1_CST, PRECAST, IN_SITU_CONCRETE, CONCRETE_SETTING,
                                          PRESTRESS, V, V_CST, V_PRECAST, V_COMPOSITE}},
};
// clang-format on

} // namespace

bool StateAttributeValidator::isAttributeActive(const StateAttribute* attribute)
{
    return attribute && isActiveBy(rejected, *attribute);
}

bool StateAttributeValidator::isAttributeValidForBridgeDesignType(const StateAttribute* attribute)
{
    return attribute && isValidForBridgeBy(rejected, *attribute);
}

} // namespace Standard
