#include <zelstandard/vocabulary/XMLUtil.h>

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <set>
#include <sstream>
#include <string>
#include <vector>

#include "support/Golden.h"

using namespace Standard;

namespace
{

/// One enumeration, its values as numbers.
struct Vocabulary {
    std::string name;
    std::function<int(const std::string&)> read;
    std::function<std::string(int)> write;
};

template <class Enumeration>
Vocabulary vocabulary(const char* name, Enumeration (XMLUtil::*read)(const std::string&),
                      std::string (XMLUtil::*write)(Enumeration))
{
    return {
        name,
        [=](const std::string& word) { return static_cast<int>((XMLUtil::get()->*read)(word)); },
        [=](int value) { return (XMLUtil::get()->*write)(static_cast<Enumeration>(value)); }};
}

std::vector<Vocabulary> vocabularies()
{
    using X = XMLUtil;
    return {
        vocabulary("Mode", &X::getModeToString, &X::getStringToMode),
        vocabulary("Classification", &X::getClassificationToString, &X::getStringToClassification),
        vocabulary("DesignMaterial", &X::getDgnMaterialToString, &X::getStringToDgnMaterial),
        vocabulary("DesignSituation", &X::getDgnSituationToString, &X::getStringToDgnSituation),
        vocabulary("BridgeType", &X::getBridgeTypeToString, &X::getStringToBridgeType),
        vocabulary("BuildingType", &X::getBuildingTypeToString, &X::getStringToBuildingType),
        vocabulary("DuctilityClass", &X::getDuctilityClassToString, &X::getStringToDuctilityClass),
        vocabulary("LoadDuration", &X::getLoadDurationToString, &X::getStringToLoadDuration),
        vocabulary("Operator", &X::getOperatorToString, &X::getStringToOperator),
        vocabulary("SuperpositionTemplate", &X::getSupTemplateToString, &X::getStringToSupTemplate),
        vocabulary("ActionGroupType", &X::getActionGroupIDToString, &X::getStringToActionGroup),
        vocabulary("ActionTypeId", &X::getActionTypeIDToString, &X::getStringToActionType),
        vocabulary("AttributeLoadType", &X::getAttributeLoadTypeToString,
                   &X::getStringToAttributeLoadType),
        vocabulary("AttributeType", &X::getAttributeTypeToString, &X::getStringToAttributeType),
        vocabulary("InstructionType", &X::getInstructionToString, &X::getStringToInstruction),
        vocabulary("combination group", &X::getComboGroupToString, &X::getStringToComboGroupType),
        vocabulary("StateAttributeToken", &X::getStateAttrTokenToString,
                   &X::getStringToStateAttrToken),
    };
}

constexpr int firstValue = -2;
constexpr int lastValue = 140;

/// Every word that some value of some enumeration is written as, and the words that are only read.
std::set<std::string> allWords()
{
    std::set<std::string> words = {"FOOTBRIDGE2", "AGR_GR1", "AGR_GR2", "AGR_SSW", "AGR_SSM"};
    for (const Vocabulary& vocabulary : vocabularies())
        for (int value = firstValue; value <= lastValue; ++value)
            words.insert(vocabulary.write(value));
    words.erase("-");
    return words;
}

} // namespace

// A line is a value, the word that it is written as, and the other words that read as it. A value
// without a line has no word.
TEST(Words, OfAllEnumerations)
{
    const std::set<std::string> words = allWords();
    std::ostringstream table;
    for (const Vocabulary& vocabulary : vocabularies()) {
        const int unknown = vocabulary.read("no such word");
        table << vocabulary.name << ", unknown " << unknown << "\n";
        for (int value = firstValue; value <= lastValue; ++value) {
            const std::string written = vocabulary.write(value);
            EXPECT_TRUE(written == "-" || vocabulary.read(written) == value) << written;
            std::string line = written == "-" ? "" : " " + written;
            for (const std::string& word : words)
                if (value != unknown && word != written && vocabulary.read(word) == value)
                    line += " " + word;
            if (!line.empty())
                table << value << line << "\n";
        }
    }
    support::expectGolden("words.txt", table.str());
}

TEST(Words, CompareByteForByte)
{
    // No word of any enumeration survives a change of case, a blank at an end or a byte behind it.
    for (const Vocabulary& vocabulary : vocabularies()) {
        const int unknown = vocabulary.read("no such word");
        for (const std::string& word : allWords()) {
            std::string lower = word;
            std::ranges::transform(lower, lower.begin(), [](char letter) {
                return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a')
                                                      : letter;
            });
            for (const std::string& other :
                 {lower, " " + word, word + " ", word + "\n", word + std::string(1, '\0')})
                EXPECT_EQ(vocabulary.read(other), unknown)
                    << vocabulary.name << " '" << other << "'";
        }
        EXPECT_EQ(vocabulary.read(""), unknown) << vocabulary.name;
        EXPECT_EQ(vocabulary.read("-"), unknown) << vocabulary.name;
    }
}

TEST(Words, AreNotTheInverseOfReadingInTheOddRows)
{
    XMLUtil& words = *XMLUtil::get();
    // Both footbridges read as the first one; the second is written without a word.
    EXPECT_EQ(words.getBridgeTypeToString("FOOTBRIDGE2"), BridgeType::FOOTBRIDGE1);
    EXPECT_EQ(words.getStringToBridgeType(BridgeType::FOOTBRIDGE2), "-");
    // The lorry's word of value 27 was taken over by value 32, among attribute types alone.
    EXPECT_EQ(words.getAttributeTypeToString("ELM4_54"), static_cast<AttributeType>(32));
    EXPECT_EQ(words.getAttributeTypeToString("ELM4_53"), AttributeType::DEFAULT);
    EXPECT_EQ(words.getStringToAttributeType(static_cast<AttributeType>(27)), "-");
    // Families of group words share their numbers.
    EXPECT_EQ(words.getComboGroupToString("AGR_SSW"), 1);
    EXPECT_EQ(words.getStringToComboGroupType(1), "AGR_AU");
    // "NONE" is a word of its own among the instructions and also what an unknown word reads as.
    EXPECT_EQ(words.getInstructionToString("FOO"), static_cast<InstructionType>(-1));
    EXPECT_EQ(words.getStringToInstruction(static_cast<InstructionType>(-1)), "NONE");
    // No code is the one design code whose word is the dash.
    EXPECT_EQ(words.getModeToString("-"), Mode::NO_CODE);
    EXPECT_EQ(words.getStringToMode(Mode::NO_CODE), "-");
}
