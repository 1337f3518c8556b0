#pragma once

#include <algorithm>
#include <array>
#include <span>

#include <zelstandard/vocabulary/Enumerations.h>

namespace Standard
{

/// Tokens that make no sense on a bridge of a design material. Several rows of one material add up.
struct RejectedTokens {
    DesignMaterial material;
    std::array<StateAttributeToken, 10> tokens; ///< unused places at the end are UNDEFINED
};

[[nodiscard]] inline bool isRejected(std::span<const RejectedTokens> rules, DesignMaterial material,
                                     StateAttributeToken token)
{
    return token != StateAttributeToken::UNDEFINED &&
           std::ranges::any_of(rules, [&](const RejectedTokens& rule) {
               return rule.material == material &&
                      std::ranges::find(rule.tokens, token) != rule.tokens.end();
           });
}

} // namespace Standard
