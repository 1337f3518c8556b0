#pragma once

#include <string>
#include <vector>

#include <zelstandard/vocabulary/StateAttributeToken.h>

#include <command/vocabulary/Vocabulary.h>

/// @file
/// What people call the things that files name by words. Letter case, "_", "-" and blanks do not
/// matter, nor "ä" and "ae". Nothing is guessed: a word that is unknown or means several things
/// throws Failure, with what is near and how to list the rest.

namespace command
{

/// The text in lower case, with "ae" for "ä", and without all but letters and digits; two words
/// that are equal then are one word.
std::string folded(const std::string& text);

ActionTypeId actionNamed(const std::string& text);
Mode codeNamed(const std::string& text);
Structure structureNamed(const std::string& text);
Factor factorNamed(const std::string& text);
const MaterialRow& materialTableNamed(const std::string& text);
Standard::DesignMaterial materialNamed(const std::string& text);
Standard::DesignSituation situationNamed(const std::string& text);
Standard::InstructionType ruleNamed(const std::string& text);
/// With or without "tag:" in front.
Standard::StateAttributeToken tokenNamed(const std::string& text);

/// Several words each, parted by commas, or "all".
std::vector<Mode> codesNamed(const std::vector<std::string>& texts);
std::vector<Structure> structuresNamed(const std::vector<std::string>& texts);

/// What a word of explain means: an action, a factor table, a state attribute.
bool isAction(const std::string& text);
bool isMaterialTable(const std::string& text);

// Display names in the language in force.

std::string nameOf(ActionTypeId action);
std::string nameOf(Mode code);
std::string nameOf(Structure structure);
std::string nameOf(const MaterialRow& row);
std::string nameOf(Standard::StateAttributeToken token);
std::string nameOf(Standard::InstructionType rule);

/// A thing with its word, its number in the library, its display name, and other words for it.
struct Known {
    std::string word;
    int number = 0;
    std::string name;
    std::vector<std::string> synonyms;
    std::string otherName; ///< in the other language
};

/// The kinds that "list" knows: codes, actions, structures, factors, rules, attributes, materials,
/// situations.
const std::vector<std::string>& kinds();
/// All things of a kind, in the order of their numbers.
std::vector<Known> listOf(const std::string& kind);

/// The candidates that are nearest to a text, the nearest first; none that is far.
std::vector<std::string> nearest(const std::string& text,
                                 const std::vector<std::string>& candidates);

} // namespace command
