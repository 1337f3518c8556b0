#pragma once

#include <span>

#include <command/check/Files.h>
#include <command/check/Report.h>

namespace command
{

/// One rule of the check. Names never change: data and build servers refer to them.
struct Rule {
    const char* name;
    Severity severity;
    const char* sentence; ///< what it finds, and what the library makes of that
    void (*find)(const CheckedFiles&, Report&);
};

/// Every rule, in the order in which the help lists them.
std::span<const Rule> checkRules();
/// Null for none.
const Rule* findRule(std::string_view name);

/// All rules on all files.
Report check(const CheckedFiles& files);

/// The functions of the rules.
namespace rules
{

using Find = void(const CheckedFiles&, Report&);

// The text: TextRules.cpp
Find notXml, bytes, character, reference, attributeSyntax, comment, section, declaration, nothing,
    enciphered;
// What may stand where: FormRules.cpp
Find unknownElement, elementName, unknownAttribute, strayText, duplicateElement, missingElement,
    missingAttribute, unknownWord, oddWord;
// Numbers: NumberRules.cpp
Find decimalComma, malformedNumber, numberForm, lostPoint, range, zeroValue;
// Action types: ActionRules.cpp
Find duplicateType, duplicateAnnex, duplicateSet, annexBeforeEc, missingAnnex, setNotInEc,
    defaultAfterSets, defaultReachesBridges, followerLeftBehind, missingValue, gammaOrder, psiOrder,
    infrequentOrder, officeDefault;
// Materials, attributes, rules: SettingRules.cpp
Find earthquakeLeftBehind, sharedRecord, duplicateTag, duplicateBlock, unknownBlock,
    blockBeforeDefinition, unusedBlock, duplicateRule, repeatedTag;
// Several files: AcrossRules.cpp
Find unknownAction, actionWithoutSet, unknownTag, unusedTag, operatorDiffers;
// Where values come from: OriginRules.cpp
Find missingSource, malformedSource, unknownStatus, inheritedDiffers, buildingValues, malformedTick,
    staleTick, acceptance;
// What a save loses: SaveRules.cpp
Find savedValues, savedAnnexes, savedWords, savedParts, savedComments;

} // namespace rules

} // namespace command
