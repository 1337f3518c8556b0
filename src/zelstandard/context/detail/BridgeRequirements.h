#pragma once

#include <zelstandard/vocabulary/Enumerations.h>

namespace Standard
{

/// The requirements on bridges: their type, their text and the class that they begin with.
struct BridgeRequirement {
    RequirementType type;
    unsigned int textId;
    char name;
};

inline constexpr BridgeRequirement bridgeRequirements[] = {
    {RequirementType::TYPE_1, 7216, 'D'},
    {RequirementType::TYPE_2, 7217, 'C'},
    {RequirementType::TYPE_3, 7218, 'B'},
    {RequirementType::TYPE_4, 7219, 'B'},
};

} // namespace Standard
