#pragma once

#include <sstream>
#include <string>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/attributes/StateAttributeManager.h>
#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include "support/Documents.h"

/// @file
/// Catalogues of state attributes from documents, and as text to compare.

namespace support
{

inline constexpr int tokenCount = 131;

/// Its word; the number of a value without one.
template <class Value> std::string wordOrNumber(const std::string& word, Value value)
{
    return word == "-" ? std::to_string(static_cast<int>(value)) : word;
}

inline std::string word(Standard::Mode mode)
{
    return wordOrNumber(Standard::XMLUtil::get()->getStringToMode(mode), mode);
}

inline std::string word(Standard::Classification classification)
{
    return wordOrNumber(Standard::XMLUtil::get()->getStringToClassification(classification),
                        classification);
}

inline std::string word(Standard::BridgeType type)
{
    return wordOrNumber(Standard::XMLUtil::get()->getStringToBridgeType(type), type);
}

/// Everything but the instance flag: token, action type, operator, type, load type, validity for
/// classifications, codes and bridge types, exclusion and combination group:
/// "SNOW: SNOW AND_MINMAX SNOW UNDEFINED {BRIDGE} {EC OENORM} {} 1 0".
inline std::string text(const Standard::StateAttribute& attribute)
{
    using namespace Standard;
    XMLUtil& words = *XMLUtil::get();
    std::ostringstream result;
    const auto add = [&](const char* before, const std::string& word, auto value) {
        result << before << wordOrNumber(word, value);
    };
    const ActionType* type = attribute.getActionType();
    add("", words.getStringToStateAttrToken(attribute.getToken()), attribute.getToken());
    result << ": " << (type ? words.getStringToActionType(type->getId()) : "-");
    add(" ", words.getStringToOperator(attribute.getOperator()), attribute.getOperator());
    add(" ", words.getStringToAttributeType(attribute.getType()), attribute.getType());
    add(" ", words.getStringToAttributeLoadType(attribute.getLoadType()), attribute.getLoadType());
    const auto addSet = [&]<class Value>(int last, bool (StateAttribute::*has)(Value) const) {
        std::string set;
        for (int value = 0; value <= last; ++value)
            if ((attribute.*has)(Value{value}))
                set += (set.empty() ? "" : " ") + word(Value{value});
        result << " {" << set << "}";
    };
    addSet(3, &StateAttribute::hasClassification);
    addSet(8, &StateAttribute::hasStandard);
    addSet(6, &StateAttribute::hasBridgeType);
    result << " " << attribute.getExclGroup() << " " << attribute.getCombGroup();
    return result.str();
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
    explicit Attributes(const std::string& document) : Attributes()
    {
        ZelXmlTree tree;
        build(tree, document);
        catalogue_.init(tree);
    }
    Attributes(const Attributes&) = delete;
    Attributes& operator=(const Attributes&) = delete;

    Standard::ActionTypeManager& types() { return types_; }
    Standard::StateAttributeManager& operator*() { return catalogue_; }
    Standard::StateAttributeManager* operator->() { return &catalogue_; }

    /// A line for each attribute.
    [[nodiscard]] std::string text() const
    {
        std::string result;
        for (const Standard::StateAttribute* attribute : catalogue_.getAttributes())
            result += support::text(*attribute) + "\n";
        return result;
    }

    [[nodiscard]] std::string written()
    {
        std::ostringstream stream;
        catalogue_.output(stream);
        return stream.str();
    }

private:
    Standard::ActionTypeManager types_{ZelXmlTree()};
    Standard::StateAttributeManager catalogue_{&types_};
};

} // namespace support
