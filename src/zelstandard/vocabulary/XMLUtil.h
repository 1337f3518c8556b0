#pragma once

#include <string>

#include <zelstandard/Export.h>
#include <zelstandard/vocabulary/Enumerations.h>

namespace Standard
{

/// Turns the persistence words of the library's files into values and back.
///
/// The names read the wrong way round and stay so: get...ToString takes the word and gives the
/// value, getStringTo... takes the value and gives the word.
///
/// Words are compared byte for byte. An unknown word gives the value 0, but -1 for InstructionType
/// ("NONE"), DesignMaterial and Operator (no member), and BUILDING for Classification. A value
/// without a word gives "-".
///
/// Nothing is kept, so everything may be called from several threads.
class ZELSTANDARD_API XMLUtil
{
public:
    /// The one instance, alive until the process ends; not owned by the caller.
    static XMLUtil* get();

    virtual ~XMLUtil();
    XMLUtil(const XMLUtil&) = delete;
    XMLUtil& operator=(const XMLUtil&) = delete;

    [[nodiscard]] Mode getModeToString(const std::string& word);
    [[nodiscard]] Classification getClassificationToString(const std::string& word);
    [[nodiscard]] DesignMaterial getDgnMaterialToString(const std::string& word);
    [[nodiscard]] DesignSituation getDgnSituationToString(const std::string& word);
    [[nodiscard]] BridgeType getBridgeTypeToString(const std::string& word);
    [[nodiscard]] BuildingType getBuildingTypeToString(const std::string& word);
    [[nodiscard]] DuctilityClass getDuctilityClassToString(const std::string& word);
    [[nodiscard]] LoadDuration getLoadDurationToString(const std::string& word);
    [[nodiscard]] Operator getOperatorToString(const std::string& word);
    [[nodiscard]] SuperpositionTemplate getSupTemplateToString(const std::string& word);
    [[nodiscard]] ActionGroupType getActionGroupIDToString(const std::string& word);
    [[nodiscard]] ActionTypeId getActionTypeIDToString(const std::string& word);
    [[nodiscard]] AttributeLoadType getAttributeLoadTypeToString(const std::string& word);
    [[nodiscard]] AttributeType getAttributeTypeToString(const std::string& word);
    [[nodiscard]] InstructionType getInstructionToString(const std::string& word);
    [[nodiscard]] int getComboGroupToString(const std::string& word);
    [[nodiscard]] StateAttributeToken getStateAttrTokenToString(const std::string& word);

    [[nodiscard]] std::string getStringToMode(Mode value);
    [[nodiscard]] std::string getStringToClassification(Classification value);
    [[nodiscard]] std::string getStringToDgnMaterial(DesignMaterial value);
    [[nodiscard]] std::string getStringToDgnSituation(DesignSituation value);
    [[nodiscard]] std::string getStringToBridgeType(BridgeType value);
    [[nodiscard]] std::string getStringToBuildingType(BuildingType value);
    [[nodiscard]] std::string getStringToDuctilityClass(DuctilityClass value);
    [[nodiscard]] std::string getStringToLoadDuration(LoadDuration value);
    [[nodiscard]] std::string getStringToOperator(Operator value);
    [[nodiscard]] std::string getStringToSupTemplate(SuperpositionTemplate value);
    [[nodiscard]] std::string getStringToActionGroup(ActionGroupType value);
    [[nodiscard]] std::string getStringToActionType(ActionTypeId value);
    [[nodiscard]] std::string getStringToAttributeLoadType(AttributeLoadType value);
    [[nodiscard]] std::string getStringToAttributeType(AttributeType value);
    [[nodiscard]] std::string getStringToInstruction(InstructionType value);
    [[nodiscard]] std::string getStringToComboGroupType(int value);
    [[nodiscard]] std::string getStringToStateAttrToken(StateAttributeToken value);

private:
    XMLUtil() = default;
};

} // namespace Standard
