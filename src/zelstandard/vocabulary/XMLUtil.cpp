#include <zelstandard/vocabulary/XMLUtil.h>

#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/detail/Words.h>

namespace Standard
{

XMLUtil::~XMLUtil() = default;

XMLUtil* XMLUtil::get()
{
    static XMLUtil* const instance = new XMLUtil; // lives until the process ends
    return instance;
}

// Behind each table the value of an unknown word.
// clang-format off

Mode                  XMLUtil::getModeToString             (const std::string& word) { return Words<designCodes,                 0>::value(word); }
DesignMaterial        XMLUtil::getDgnMaterialToString      (const std::string& word) { return Words<designMaterialWords,        -1>::value(word); }
DesignSituation       XMLUtil::getDgnSituationToString     (const std::string& word) { return Words<designSituationWords,        0>::value(word); }
BridgeType            XMLUtil::getBridgeTypeToString       (const std::string& word) { return Words<bridgeTypeWords,             0>::value(word); }
BuildingType          XMLUtil::getBuildingTypeToString     (const std::string& word) { return Words<buildingTypeWords,           0>::value(word); }
DuctilityClass        XMLUtil::getDuctilityClassToString   (const std::string& word) { return Words<ductilityClassWords,         0>::value(word); }
LoadDuration          XMLUtil::getLoadDurationToString     (const std::string& word) { return Words<loadDurationWords,           0>::value(word); }
Operator              XMLUtil::getOperatorToString         (const std::string& word) { return Words<operatorWords,              -1>::value(word); }
SuperpositionTemplate XMLUtil::getSupTemplateToString      (const std::string& word) { return Words<superpositionTemplateWords,  0>::value(word); }
ActionGroupType       XMLUtil::getActionGroupIDToString    (const std::string& word) { return Words<actionGroupTypeWords,        0>::value(word); }
ActionTypeId          XMLUtil::getActionTypeIDToString     (const std::string& word) { return Words<actionTypeIdWords,           0>::value(word); }
AttributeLoadType     XMLUtil::getAttributeLoadTypeToString(const std::string& word) { return Words<attributeLoadTypeWords,      0>::value(word); }
AttributeType         XMLUtil::getAttributeTypeToString    (const std::string& word) { return Words<attributeTypeWords,          0>::value(word); }
InstructionType       XMLUtil::getInstructionToString      (const std::string& word) { return Words<instructionTypeWords,       -1>::value(word); }
int                   XMLUtil::getComboGroupToString       (const std::string& word) { return Words<combinationGroupWords,       0>::value(word); }
StateAttributeToken   XMLUtil::getStateAttrTokenToString   (const std::string& word) { return Words<stateAttributeTokens,        0>::value(word); }

std::string XMLUtil::getStringToMode             (Mode                  value) { return Words<designCodes,                 0>::word(value); }
std::string XMLUtil::getStringToDgnMaterial      (DesignMaterial        value) { return Words<designMaterialWords,        -1>::word(value); }
std::string XMLUtil::getStringToDgnSituation     (DesignSituation       value) { return Words<designSituationWords,        0>::word(value); }
std::string XMLUtil::getStringToBridgeType       (BridgeType            value) { return Words<bridgeTypeWords,             0>::word(value); }
std::string XMLUtil::getStringToBuildingType     (BuildingType          value) { return Words<buildingTypeWords,           0>::word(value); }
std::string XMLUtil::getStringToDuctilityClass   (DuctilityClass        value) { return Words<ductilityClassWords,         0>::word(value); }
std::string XMLUtil::getStringToLoadDuration     (LoadDuration          value) { return Words<loadDurationWords,           0>::word(value); }
std::string XMLUtil::getStringToOperator         (Operator              value) { return Words<operatorWords,              -1>::word(value); }
std::string XMLUtil::getStringToSupTemplate      (SuperpositionTemplate value) { return Words<superpositionTemplateWords,  0>::word(value); }
std::string XMLUtil::getStringToActionGroup      (ActionGroupType       value) { return Words<actionGroupTypeWords,        0>::word(value); }
std::string XMLUtil::getStringToActionType       (ActionTypeId          value) { return Words<actionTypeIdWords,           0>::word(value); }
std::string XMLUtil::getStringToAttributeLoadType(AttributeLoadType     value) { return Words<attributeLoadTypeWords,      0>::word(value); }
std::string XMLUtil::getStringToAttributeType    (AttributeType         value) { return Words<attributeTypeWords,          0>::word(value); }
std::string XMLUtil::getStringToInstruction      (InstructionType       value) { return Words<instructionTypeWords,       -1>::word(value); }
std::string XMLUtil::getStringToComboGroupType   (int                   value) { return Words<combinationGroupWords,       0>::word(value); }
std::string XMLUtil::getStringToStateAttrToken   (StateAttributeToken   value) { return Words<stateAttributeTokens,        0>::word(value); }

// clang-format on

Classification XMLUtil::getClassificationToString(const std::string& word)
{
    return word == Constants::Label::Bridge ? Classification::BRIDGE : Classification::BUILDING;
}

std::string XMLUtil::getStringToClassification(Classification value)
{
    return value == Classification::BUILDING ? Constants::Label::Building
           : value == Classification::BRIDGE ? Constants::Label::Bridge
                                             : "-";
}

} // namespace Standard
