#pragma once

#include <array>
#include <iterator>

#include <zelstandard/attributes/StateAttributeManager.h>

namespace Standard
{

inline constexpr std::size_t tokenCount = std::size(stateAttributeTokens);

/// The first attribute of each token in a catalogue, which may be null; null for none.
[[nodiscard]] inline std::array<StateAttribute*, tokenCount>
firstOfEachToken(const StateAttributeManager* catalogue)
{
    std::array<StateAttribute*, tokenCount> first{};
    if (!catalogue)
        return first;
    for (StateAttribute* attribute : catalogue->getAttributes()) {
        const auto token = static_cast<std::size_t>(attribute->getToken());
        if (token < tokenCount && !first[token])
            first[token] = attribute;
    }
    return first;
}

} // namespace Standard
