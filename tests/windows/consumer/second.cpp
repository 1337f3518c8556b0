#include "second.h"

#include <zelstandard/zelstandard.h>

using namespace Standard;

Sight sightOfSecondLibrary()
{
    return {ZelStandard::get(),  XMLUtil::get(),       ActionGroupManager::get(),
            Coefficients::get(), &ActionType::IdCount, &Constants::Label::StandardMode};
}
