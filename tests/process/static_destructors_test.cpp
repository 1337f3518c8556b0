// Static objects of the host, also those older than anything of the suite, may ask it in the end.

#include <cstdio>
#include <cstdlib>

#include <zelstandard/platform/Tools.h>
#include <zelstandard/platform/ZelText.h>
#include <zelsuite/zelsuite.h>

#include <gtest/gtest.h>

namespace
{

std::string answers()
{
    return Tools::getInstallationDirectory(true) + ZelTextResource::get()->loadString(3214);
}

struct Host {
    std::string answersOfTheRun;
    ~Host()
    {
        if (answers() != answersOfTheRun) {
            std::fputs("the suite was torn down under a static destructor\n", stderr);
            std::_Exit(1);
        }
    }
} host;

} // namespace

TEST(StaticDestructors, MayAskTheSuite)
{
    zelsuite::setInstallationDirectory(std::string(100, 'x'));
    ASSERT_TRUE(zelsuite::setLanguage("de"));
    host.answersOfTheRun = answers();
}
