#pragma once

#include <algorithm>
#include <array>
#include <span>

#include <zelstandard/attributes/StateAttribute.h>
#include <zelstandard/context/ZelStandard.h>

namespace Standard
{

/// Tokens that make no sense on a bridge of a design material. Several rows of one material add up.
struct RejectedTokens {
    DesignMaterial material;
    std::array<StateAttributeToken, 10> tokens; ///< unused places at the end are UNDEFINED
};

/// True on buildings, and for the tokens that the rules leave to the design material in force.
[[nodiscard]] inline bool isValidForBridgeBy(std::span<const RejectedTokens> rules,
                                             const StateAttribute& attribute)
{
    const ZelStandard& standard = *ZelStandard::get();
    const StateAttributeToken token = attribute.getToken();
    return !standard.isBridgeClassification() || token == StateAttributeToken::UNDEFINED ||
           std::ranges::none_of(rules, [&](const RejectedTokens& rule) {
               return rule.material == standard.getDesignMaterial() &&
                      std::ranges::find(rule.tokens, token) != rule.tokens.end();
           });
}

/// True when the attribute is valid for what is in force and, by the rules, on a bridge.
[[nodiscard]] inline bool isActiveBy(std::span<const RejectedTokens> rules,
                                     const StateAttribute& attribute)
{
    const ZelStandard& standard = *ZelStandard::get();
    if (!attribute.isValidForAllClassifications() &&
        !attribute.hasClassification(standard.getClassification()))
        return false;
    if (!attribute.isValidForAllStandards() && !attribute.hasStandard(standard.getMode()))
        return false;
    if (!standard.isBridgeClassification())
        return true;
    return (attribute.isValidForAllBridgeTypes() ||
            attribute.hasBridgeType(standard.getBridgeType())) &&
           isValidForBridgeBy(rules, attribute);
}

} // namespace Standard
