#include <zelstandard/vocabulary/XMLUtil.h>

#include <map>
#include <span>
#include <string_view>

namespace Standard
{

namespace
{

/// Words to values; Unknown is the value of every other word.
template <class Enumeration, int Unknown, class Row> class WordTable
{
public:
    explicit constexpr WordTable(std::span<const Row> rows) : rows_(rows) {}

    Enumeration value(const std::string& word)
    {
        fill();
        const auto found = values_.find(word);
        return found == values_.end() ? static_cast<Enumeration>(Unknown) : found->second;
    }

    /// The alphabetically first word of the value.
    std::string word(Enumeration value)
    {
        fill();
        for (const auto& [word, itsValue] : values_)
            if (itsValue == value)
                return std::string(word);
        return "-";
    }

private:
    void fill()
    {
        if (!values_.empty())
            return;
        for (const Row& row : rows_)
            values_[row.word] = row.value;
    }

    std::span<const Row> rows_;
    std::map<std::string_view, Enumeration> values_;
};

template <class Enumeration, int Unknown>
using Words = WordTable<Enumeration, Unknown, Word<Enumeration>>;

/// The design codes, the one table that is keyed by value.
class ModeTable
{
public:
    Mode value(const std::string& word)
    {
        fill();
        for (const auto& [value, itsWord] : words_)
            if (itsWord == word)
                return value;
        return Mode::NO_CODE;
    }

    std::string word(Mode value)
    {
        fill();
        const auto found = words_.find(value);
        return found == words_.end() ? "-" : std::string(found->second);
    }

private:
    void fill()
    {
        if (!words_.empty())
            return;
        for (const Word<Mode>& row : modeWords)
            words_[row.value] = row.word;
    }

    std::map<Mode, std::string_view> words_;
};

} // namespace

struct XMLUtil::Tables {
    ModeTable mode;
    Words<DesignMaterial, -1> designMaterial{designMaterialWords};
    Words<DesignSituation, 0> designSituation{designSituationWords};
    Words<BridgeType, 0> bridgeType{bridgeTypeWords};
    Words<BuildingType, 0> buildingType{buildingTypeWords};
    Words<DuctilityClass, 0> ductilityClass{ductilityClassWords};
    Words<LoadDuration, 0> loadDuration{loadDurationWords};
    Words<Operator, -1> operators{operatorWords};
    Words<SuperpositionTemplate, 0> superpositionTemplate{superpositionTemplateWords};
    Words<ActionGroupType, 0> actionGroupType{actionGroupTypeWords};
    Words<ActionTypeId, 0> actionTypeId{actionTypeIdWords};
    Words<AttributeLoadType, 0> attributeLoadType{attributeLoadTypeWords};
    Words<AttributeType, 0> attributeType{attributeTypeWords};
    Words<InstructionType, -1> instructionType{instructionTypeWords};
    Words<int, 0> combinationGroup{combinationGroupWords};
    WordTable<StateAttributeToken, 0, StateAttributeTokenRow> stateAttributeToken{
        stateAttributeTokens};
};

XMLUtil::XMLUtil() : tables_(std::make_unique<Tables>()) {}

XMLUtil::~XMLUtil() = default;

XMLUtil* XMLUtil::get()
{
    static XMLUtil instance;
    return &instance;
}

Mode XMLUtil::getModeToString(const std::string& word) { return tables_->mode.value(word); }

Classification XMLUtil::getClassificationToString(const std::string& word)
{
    return word == "BRIDGE" ? Classification::BRIDGE : Classification::BUILDING;
}

DesignMaterial XMLUtil::getDgnMaterialToString(const std::string& word)
{
    return tables_->designMaterial.value(word);
}

DesignSituation XMLUtil::getDgnSituationToString(const std::string& word)
{
    return tables_->designSituation.value(word);
}

BridgeType XMLUtil::getBridgeTypeToString(const std::string& word)
{
    return tables_->bridgeType.value(word);
}

BuildingType XMLUtil::getBuildingTypeToString(const std::string& word)
{
    return tables_->buildingType.value(word);
}

DuctilityClass XMLUtil::getDuctilityClassToString(const std::string& word)
{
    return tables_->ductilityClass.value(word);
}

LoadDuration XMLUtil::getLoadDurationToString(const std::string& word)
{
    return tables_->loadDuration.value(word);
}

Operator XMLUtil::getOperatorToString(const std::string& word)
{
    return tables_->operators.value(word);
}

SuperpositionTemplate XMLUtil::getSupTemplateToString(const std::string& word)
{
    return tables_->superpositionTemplate.value(word);
}

ActionGroupType XMLUtil::getActionGroupIDToString(const std::string& word)
{
    return tables_->actionGroupType.value(word);
}

ActionTypeId XMLUtil::getActionTypeIDToString(const std::string& word)
{
    return tables_->actionTypeId.value(word);
}

AttributeLoadType XMLUtil::getAttributeLoadTypeToString(const std::string& word)
{
    return tables_->attributeLoadType.value(word);
}

AttributeType XMLUtil::getAttributeTypeToString(const std::string& word)
{
    return tables_->attributeType.value(word);
}

InstructionType XMLUtil::getInstructionToString(const std::string& word)
{
    return tables_->instructionType.value(word);
}

int XMLUtil::getComboGroupToString(const std::string& word)
{
    return tables_->combinationGroup.value(word);
}

StateAttributeToken XMLUtil::getStateAttrTokenToString(const std::string& word)
{
    return tables_->stateAttributeToken.value(word);
}

std::string XMLUtil::getStringToMode(Mode value) { return tables_->mode.word(value); }

std::string XMLUtil::getStringToClassification(Classification value)
{
    switch (value) {
    case Classification::BUILDING:
        return "BUILDING";
    case Classification::BRIDGE:
        return "BRIDGE";
    }
    return "-";
}

std::string XMLUtil::getStringToDgnMaterial(DesignMaterial value)
{
    return tables_->designMaterial.word(value);
}

std::string XMLUtil::getStringToDgnSituation(DesignSituation value)
{
    return tables_->designSituation.word(value);
}

std::string XMLUtil::getStringToBridgeType(BridgeType value)
{
    return tables_->bridgeType.word(value);
}

std::string XMLUtil::getStringToBuildingType(BuildingType value)
{
    return tables_->buildingType.word(value);
}

std::string XMLUtil::getStringToDuctilityClass(DuctilityClass value)
{
    return tables_->ductilityClass.word(value);
}

std::string XMLUtil::getStringToLoadDuration(LoadDuration value)
{
    return tables_->loadDuration.word(value);
}

std::string XMLUtil::getStringToOperator(Operator value) { return tables_->operators.word(value); }

std::string XMLUtil::getStringToSupTemplate(SuperpositionTemplate value)
{
    return tables_->superpositionTemplate.word(value);
}

std::string XMLUtil::getStringToActionGroup(ActionGroupType value)
{
    return tables_->actionGroupType.word(value);
}

std::string XMLUtil::getStringToActionType(ActionTypeId value)
{
    return tables_->actionTypeId.word(value);
}

std::string XMLUtil::getStringToAttributeLoadType(AttributeLoadType value)
{
    return tables_->attributeLoadType.word(value);
}

std::string XMLUtil::getStringToAttributeType(AttributeType value)
{
    return tables_->attributeType.word(value);
}

std::string XMLUtil::getStringToInstruction(InstructionType value)
{
    return tables_->instructionType.word(value);
}

std::string XMLUtil::getStringToComboGroupType(int value)
{
    return tables_->combinationGroup.word(value);
}

std::string XMLUtil::getStringToStateAttrToken(StateAttributeToken value)
{
    return tables_->stateAttributeToken.word(value);
}

} // namespace Standard
