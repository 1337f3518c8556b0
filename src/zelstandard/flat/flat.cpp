#include <zelstandard/flat.h>

#include <algorithm>
#include <cstring>
#include <memory>

#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/actions/detail/FactorElements.h>
#include <zelstandard/vocabulary/Constants.h>
#include <zelstandard/vocabulary/detail/Words.h>

using namespace Standard;

namespace
{

/// Never freed or replaced once it holds action types: a host's static destructors may still ask.
ActionTypeManager* catalogue = nullptr;

} // namespace

int ZelStandardInitialiseFile(const char* path)
try {
    if (!catalogue && path) {
        auto made = std::make_unique<ActionTypeManager>(std::string(path));
        if (made->hasActionTypes())
            catalogue = made.release();
    }
    return catalogue ? 1 : 0;
} catch (...) {
    return 0;
}

int ZelStandardGetCombValues(const char* actionType, const char* mode, const char* structure,
                             double* values, size_t count)
{
    if (!catalogue || !actionType || !mode || !structure || !values || count < ZELSTANDARD_FACTORS)
        return 0;
    const ActionType::Id id = Words<actionTypeIdWords, 0>::value(actionType);
    const ActionType* type = id == ActionType::Id::NONE ? nullptr : catalogue->findActionType(id);
    const Mode code = Words<designCodes, 0>::value(mode);
    if (!type || code == Mode::NO_CODE)
        return 0;

    const bool building = std::strcmp(structure, Constants::Label::Building) == 0;
    const SafetyFactors* factors =
        building ? type->getFactors(code, Classification::BUILDING, BridgeType::ROADWAY)
                 : type->getFactors(code, Classification::BRIDGE,
                                    Words<bridgeTypeWords, 0>::value(structure));
    if (!factors)
        return 0;
    std::copy_n(FactorAccess::of(*factors), factorCount, values);
    return 1;
}
