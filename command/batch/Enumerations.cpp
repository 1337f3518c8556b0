#include <command/batch/Enumerations.h>

#include <algorithm>
#include <charconv>

#include <zelstandard/vocabulary/SignificantInstant.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <command/vocabulary/Failure.h>

namespace command
{

using namespace Standard;

namespace
{

template <class Value>
Enumeration row(const char* name, Value (XMLUtil::*value)(const std::string&),
                std::string (XMLUtil::*word)(Value))
{
    return {name,
            [value](const std::string& text) {
                return static_cast<int>((XMLUtil::get()->*value)(text));
            },
            [word](int number) { return (XMLUtil::get()->*word)(static_cast<Value>(number)); }};
}

Enumeration instants()
{
    return {"instant",
            [](const std::string& name) { return static_cast<int>(ReadSignificantInstant(name)); },
            [](int value) { return WriteSignificantInstant(SignificantInstant{value}); }};
}

} // namespace

const std::vector<Enumeration>& enumerations()
{
    using X = XMLUtil;
    static const std::vector<Enumeration> all = {
        row("mode", &X::getModeToString, &X::getStringToMode),
        row("classification", &X::getClassificationToString, &X::getStringToClassification),
        row("bridge", &X::getBridgeTypeToString, &X::getStringToBridgeType),
        row("building", &X::getBuildingTypeToString, &X::getStringToBuildingType),
        row("material", &X::getDgnMaterialToString, &X::getStringToDgnMaterial),
        row("situation", &X::getDgnSituationToString, &X::getStringToDgnSituation),
        row("ductility", &X::getDuctilityClassToString, &X::getStringToDuctilityClass),
        row("duration", &X::getLoadDurationToString, &X::getStringToLoadDuration),
        row("operator", &X::getOperatorToString, &X::getStringToOperator),
        row("template", &X::getSupTemplateToString, &X::getStringToSupTemplate),
        row("group", &X::getActionGroupIDToString, &X::getStringToActionGroup),
        row("action", &X::getActionTypeIDToString, &X::getStringToActionType),
        row("loadtype", &X::getAttributeLoadTypeToString, &X::getStringToAttributeLoadType),
        row("type", &X::getAttributeTypeToString, &X::getStringToAttributeType),
        row("rule", &X::getInstructionToString, &X::getStringToInstruction),
        row("combination", &X::getComboGroupToString, &X::getStringToComboGroupType),
        row("tag", &X::getStateAttrTokenToString, &X::getStringToStateAttrToken),
        instants(),
    };
    return all;
}

const Enumeration& enumerationOf(const std::string& name)
{
    const auto found = std::ranges::find(enumerations(), name, &Enumeration::name);
    if (found == enumerations().end())
        throw Failure("no enumeration \"" + name + "\"");
    return *found;
}

bool isInteger(const std::string& text, int& value)
{
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, value);
    return !text.empty() && read.ec == std::errc{} && read.ptr == end;
}

} // namespace command
