#pragma once

#include <string>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/platform/ZelXml.h>

#include "support/Documents.h"

/// @file
/// Catalogues of state attributes, and an attribute as text to compare.

namespace support
{

inline constexpr int tokenCount = 131;

/// Everything but the instance flag, by number: token, action type, operator, type, load type, the
/// bit fields of classifications, codes and bridge types, exclusion and combination group.
inline std::string text(const Standard::StateAttribute& attribute)
{
    const Standard::ActionType* type = attribute.getActionType();
    std::string result;
    for (const int value :
         {static_cast<int>(attribute.getToken()), type ? static_cast<int>(type->getId()) : 0,
          static_cast<int>(attribute.getOperator()), static_cast<int>(attribute.getType()),
          static_cast<int>(attribute.getLoadType()), attribute.getClassificationBitField(),
          attribute.getStandardBitField(), attribute.getBridgeTypeBitField(),
          attribute.getExclGroup(), attribute.getCombGroup()})
        result += std::to_string(value) + " ";
    return result;
}

/// A catalogue of attributes with one of action types, which has every type without factors but
/// CRANE.
class Attributes
{
public:
    Attributes()
    {
        for (int id = 1; id <= 50; ++id)
            types_.giveActionType(Standard::ActionType::Id{id});
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    Standard::ActionTypeManager& types() { return types_; }
    Standard::StateAttributeManager& operator*() { return catalogue_; }
    Standard::StateAttributeManager* operator->() { return &catalogue_; }

private:
    Standard::ActionTypeManager types_{ZelXmlTree()};
    Standard::StateAttributeManager catalogue_{&types_};
};

} // namespace support
