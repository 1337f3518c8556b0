// Static objects of the host, also those older than anything of the libraries, may ask them in the
// end.

#include <cstdio>
#include <cstdlib>

#include <zelstandard/actions/ActionGroupManager.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/flat.h>
#include <zelstandard/material/Coefficients.h>
#include <zelstandard/platform/Tools.h>
#include <zelstandard/platform/ZelText.h>
#include <zelsuite/zelsuite.h>

#include <gtest/gtest.h>

#include "support/Files.h"

namespace
{

int changes = 0;

std::string answers()
{
    using namespace Standard;
    double factors[ZELSTANDARD_FACTORS] = {};
    ZelStandardGetCombValues("SNOW", "EC", "BUILDING", factors, ZELSTANDARD_FACTORS);
    changes = 0;
    ZelStandard::get()->setClassification(Classification::BRIDGE);
    ZelStandard::get()->setClassification(Classification::BUILDING);
    const double numbers[] = {
        factors[2], double(changes),
        Coefficients::get()->getGammaS(Mode::EC, DesignSituation::PERSISTENT),
        double(ActionGroupManager::get()->findActionGroupToId(ActionGroup::Type::SNOW)->getId())};
    std::string result =
        Tools::getInstallationDirectory(true) + ZelTextResource::get()->loadString(3214);
    for (const double number : numbers)
        result += ' ' + std::to_string(number);
    return result;
}

struct Host {
    std::string answersOfTheRun;
    ~Host()
    {
        if (answers() != answersOfTheRun) {
            std::fputs("something was torn down under a static destructor\n", stderr);
            std::_Exit(1);
        }
    }
} host;

} // namespace

TEST(StaticDestructors, MayAskTheLibraries)
{
    ASSERT_TRUE(
        ZelStandardInitialiseFile(support::sourceFile("data/ActionTypes.xml").string().c_str()));
    ZelStandard::get()->addCallbackFunction([](Standard::Classification) { ++changes; });
    zelsuite::setInstallationDirectory(std::string(100, 'x'));
    ASSERT_TRUE(zelsuite::setLanguage("de"));
    host.answersOfTheRun = answers();
}
