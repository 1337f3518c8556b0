#include <command/verbs/Activity.h>

#include <zelstandard/attributes/StateAttributeValidator.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/vocabulary/XMLUtil.h>

namespace command
{

using Standard::StateAttribute;
using Standard::XMLUtil;

namespace
{

void add(std::string& list, const std::string& word) { list += (list.empty() ? "" : ", ") + word; }

std::string standardsOf(const StateAttribute& attribute)
{
    std::string list;
    for (const Mode code : allCodes())
        if (attribute.hasStandard(code))
            add(list, wordOf(code));
    return list;
}

std::string bridgesOf(const StateAttribute& attribute)
{
    std::string list;
    for (const StructureRow& row : structures)
        if (!row.value.isBuilding() && attribute.hasBridgeType(row.value.bridgeType))
            add(list, row.word);
    return list;
}

} // namespace

std::string inactivityOf(const StateAttribute& attribute)
{
    const ZelStandard& standard = *ZelStandard::get();
    if (attribute.isActive())
        return {};
    if (!attribute.isValidForAllClassifications() &&
        !attribute.hasClassification(standard.getClassification()))
        return std::string("CLASSIFICATION: only for ") +
               (standard.isBridgeClassification() ? "buildings" : "bridges");
    if (!attribute.isValidForAllStandards() && !attribute.hasStandard(standard.getMode()))
        return "STANDARD: only under " + standardsOf(attribute);
    if (!attribute.isValidForAllBridgeTypes() && !attribute.hasBridgeType(standard.getBridgeType()))
        return "BRIDGETYPE: only for " + bridgesOf(attribute);
    return "the rule of bridges of design material " +
           XMLUtil::get()->getStringToDgnMaterial(standard.getDesignMaterial());
}

std::string validatorDifference(const StateAttribute& attribute)
{
    const bool other = Standard::StateAttributeValidator::isAttributeActive(&attribute);
    if (other == attribute.isActive())
        return {};
    return std::string("StateAttributeValidator calls it ") + (other ? "active" : "inactive") +
           ": its rules of bridges differ, which is wanted.";
}

const Element* attributeElement(Data& data, const std::string& word)
{
    const Element* list = data.attributesDocument().root()->find("STATEATTRIBUTES");
    const Element* last = nullptr;
    if (list)
        for (const Element* element : list->children)
            if (element->get("NAME") == word)
                last = element;
    return last;
}

std::string operatorWord(Standard::Operator value)
{
    return XMLUtil::get()->getStringToOperator(value);
}

} // namespace command
