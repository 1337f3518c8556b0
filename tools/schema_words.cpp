// data/schemas/words.xsd tells XML editors and xmllint the words of the data files. It is made of
// the library's own tables: one type for each enumeration, with every word that a file may hold,
// the value that the library reads for it, and what the value stands for.
//
//   schema_words src/zelstandard/vocabulary/Enumerations.h >data/schemas/words.xsd

#include <zelstandard/actions/ActionGroup.h>
#include <zelstandard/actions/ActionType.h>
#include <zelstandard/attributes/StateAttributeBase.h>
#include <zelstandard/instructions/StateInstruction.h>
#include <zelstandard/vocabulary/OperatorTexts.h>
#include <zelstandard/vocabulary/XMLUtil.h>

#include <fstream>
#include <iostream>
#include <map>
#include <regex>
#include <set>
#include <sstream>
#include <string>
#include <utility>

using namespace Standard;

namespace
{

/// What the header says behind a member ("ENGINEERING = 2, ///< engineering structure"), by the
/// name of the enumeration and the value.
using Comments = std::map<std::pair<std::string, int>, std::string>;

Comments commentsOfMembers(const char* enumerations)
{
    static const std::regex enumeration(R"(enum class (\w+) : int \{)");
    static const std::regex member(R"(\s*\w+ = (-?\d+),\s*///< (.*))");
    Comments comments;
    std::ifstream header(enumerations);
    std::string name;
    std::smatch found;
    for (std::string line; std::getline(header, line);) {
        if (std::regex_match(line, found, enumeration))
            name = found[1];
        else if (std::regex_match(line, found, member))
            comments[{name, std::stoi(found[1])}] = found[2];
    }
    return comments;
}

std::string escaped(const std::string& text)
{
    static const std::map<char, std::string> entities = {
        {'&', "&amp;" },
        {'<', "&lt;"  },
        {'"', "&quot;"}
    };
    std::string result;
    for (const char c : text)
        result += entities.contains(c) ? entities.at(c) : std::string(1, c);
    return result;
}

std::string documentation(const std::string& text)
{
    return "<xs:annotation><xs:documentation>" + escaped(text) +
           "</xs:documentation></xs:annotation>";
}

struct NoText {
    std::string operator()(auto) const { return {}; }
};

class Schema
{
public:
    explicit Schema(const char* enumerations) : comments_(commentsOfMembers(enumerations)) {}

    /// One enumeration. A value without a display text ("" or "-") has what the
    /// header says about it.
    template <class Rows, class Value, class Text = NoText>
    void add(const std::string& name, const std::string& title, const Rows& rows,
             Value (XMLUtil::*read)(const std::string&), Text text = {})
    {
        const auto valueOf = [&](const std::string& word) {
            return static_cast<int>((XMLUtil::get()->*read)(word));
        };
        const int unknown = valueOf("no such word");
        std::string unknownWord = "none of these";
        std::ostringstream words;
        std::set<std::string> written;
        std::map<int, std::string> firstWords;
        for (const auto& row : rows) {
            const int value = valueOf(row.word);
            if (value == unknown)
                unknownWord = row.word;
            if (!written.insert(row.word).second)
                continue;
            const auto [first, isFirst] = firstWords.emplace(value, row.word);
            std::string meaning = isFirst ? text(static_cast<Value>(value)) : "as " + first->second;
            if (meaning.empty() || meaning == "-") {
                const auto comment = comments_.find({name, value});
                meaning = comment == comments_.end() ? "" : comment->second;
            }
            words << "      <xs:enumeration value=\"" << escaped(row.word) << "\">"
                  << documentation(std::to_string(value) + (meaning.empty() ? "" : ": " + meaning))
                  << "</xs:enumeration>\n";
        }
        types_ << "\n  <xs:simpleType name=\"" << name << "\">\n    "
               << documentation(title + ". Any other word reads as " + std::to_string(unknown) +
                                " (" + unknownWord + ").")
               << "\n    <xs:restriction base=\"xs:string\">\n"
               << words.str() << "    </xs:restriction>\n  </xs:simpleType>\n";
    }

    [[nodiscard]] std::string document() const
    {
        return R"(<?xml version="1.0" encoding="UTF-8"?>
<!-- The words of the data files, each with the value that the library reads for it. Generated from
     the library's tables by tools/schema_words.cpp; the test "schemas" compares it and prints the
     command that writes it anew. Not to be edited. -->
<xs:schema xmlns:xs="http://www.w3.org/2001/XMLSchema">
)" + types_.str() +
               "\n</xs:schema>\n";
    }

private:
    Comments comments_;
    std::ostringstream types_;
};

} // namespace

int main(int, char** argument)
{
    using X = XMLUtil;
    Schema schema(argument[1]);
    schema.add("Mode", "Design code", designCodes, &X::getModeToString);
    constexpr Word<Classification> classificationWords[] = {
        {Classification::BUILDING, "BUILDING"},
        {Classification::BRIDGE,   "BRIDGE"  },
    };
    schema.add("Classification", "Kind of structure", classificationWords,
               &X::getClassificationToString);
    schema.add("DesignMaterial", "Material of the member that is designed", designMaterialWords,
               &X::getDgnMaterialToString);
    schema.add("DesignSituation", "Design situation", designSituationWords,
               &X::getDgnSituationToString);
    schema.add("BridgeType", "Kind of bridge", bridgeTypeWords, &X::getBridgeTypeToString);
    schema.add("BuildingType", "Kind of building", buildingTypeWords, &X::getBuildingTypeToString);
    schema.add("DuctilityClass", "Ductility class (EN 1998-1 5.2.1)", ductilityClassWords,
               &X::getDuctilityClassToString);
    schema.add("LoadDuration", "Load duration class (EN 1995-1-1 2.3.1.2)", loadDurationWords,
               &X::getLoadDurationToString);
    schema.add("Operator", "How load cases superpose", operatorWords, &X::getOperatorToString,
               getOperatorName);
    schema.add("SuperpositionTemplate", "Set of superposition rules", superpositionTemplateWords,
               &X::getSupTemplateToString);
    schema.add("ActionGroupType", "Family of actions", actionGroupTypeWords,
               &X::getActionGroupIDToString,
               [](ActionGroupType type) { return ActionGroup(type).getName(); });
    schema.add("ActionTypeId", "Action type", actionTypeIdWords, &X::getActionTypeIDToString,
               [](ActionTypeId id) { return ActionType(id).getName(); });
    schema.add("AttributeLoadType", "Load model of a state attribute", attributeLoadTypeWords,
               &X::getAttributeLoadTypeToString);
    schema.add("AttributeType", "Kind of action of a state attribute", attributeTypeWords,
               &X::getAttributeTypeToString);
    schema.add("InstructionType", "Combination that a state instruction makes",
               instructionTypeWords, &X::getInstructionToString,
               [](InstructionType type) { return StateInstruction(type).getName(); });
    schema.add("CombinationGroup", "Combination group of a state attribute", combinationGroupWords,
               &X::getComboGroupToString);
    schema.add("StateAttributeToken", "State attribute: the tag of a load case",
               stateAttributeTokens, &X::getStateAttrTokenToString, [](StateAttributeToken token) {
                   return StateAttributeBase(token).getDescription();
               });
    std::cout << schema.document();
}
