#include <zelstandard/flat.h>

#include <cstring>
#include <memory>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/vocabulary/XMLUtil.h>

using Standard::ActionType;
using Standard::ActionTypeManager;
using Standard::BridgeType;
using Standard::Classification;
using Standard::Mode;
using Standard::SafetyFactors;
using Standard::XMLUtil;

namespace
{

/// Never freed or replaced once it holds action types.
std::unique_ptr<ActionTypeManager> catalogue;

/// No word of the three vocabularies is longer; so much fits a std::string without the heap.
constexpr std::size_t longestWord = 15;

constexpr bool allFit(const auto& words)
{
    for (const auto& row : words)
        if (std::char_traits<char>::length(row.word) > longestWord)
            return false;
    return true;
}

static_assert(allFit(Standard::actionTypeIdWords) && allFit(Standard::modeWords) &&
              allFit(Standard::bridgeTypeWords));

/// The text, or an empty one, just as unknown, in place of a text that is too long to be a word.
std::string wordOf(const char* text)
{
    const void* end = std::memchr(text, '\0', longestWord + 1);
    return end ? text : "";
}

} // namespace

int ZelStandardInitialiseFile(const char* path)
try {
    if (!catalogue && path) {
        auto made = std::make_unique<ActionTypeManager>(std::string(path));
        if (made->hasActionTypes())
            catalogue = std::move(made);
    }
    return catalogue ? 1 : 0;
} catch (...) {
    return 0;
}

int ZelStandardGetCombValues(const char* actionType, const char* mode, const char* structure,
                             double* values, size_t count)
try {
    if (!catalogue || !actionType || !mode || !structure || !values || count < ZELSTANDARD_FACTORS)
        return 0;
    XMLUtil& words = *XMLUtil::get();

    const ActionType::Id id = words.getActionTypeIDToString(wordOf(actionType));
    const ActionType* type = id == ActionType::Id::NONE ? nullptr : catalogue->findActionType(id);
    const Mode code = words.getModeToString(wordOf(mode));
    if (!type || code == Mode::NO_CODE)
        return 0;

    const std::string structureWord = wordOf(structure);
    const bool building =
        structureWord == words.getStringToClassification(Classification::BUILDING);
    const SafetyFactors* factors =
        building ? type->getFactors(code, Classification::BUILDING, BridgeType::ROADWAY)
                 : type->getFactors(code, Classification::BRIDGE,
                                    words.getBridgeTypeToString(structureWord));
    if (!factors)
        return 0;

    *values++ = factors->getGammaSup();
    *values++ = factors->getGammaInf();
    *values++ = factors->getPsi0();
    *values++ = factors->getPsi1();
    *values++ = factors->getPsi2();
    *values++ = factors->getPsi11();
    *values++ = factors->getPsi21();
    *values++ = factors->getPsi22();
    *values++ = factors->getCrackRed();
    return 1;
} catch (...) {
    return 0;
}
