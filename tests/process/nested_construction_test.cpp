// A classification callback calls ZelStandard::get() while the very first settings are being read,
// so that an inner object is made inside the making of the outer one.

#include <zelstandard/context/ZelStandard.h>

#include <zelsuite/zelsuite.h>

#include "support/Files.h"

using namespace Standard;

namespace
{

int calls = 0;
const ZelStandard* inner = nullptr;

void callGet(Classification)
{
    if (++calls > 1)
        return;
    inner = ZelStandard::get();
    EXPECT_EQ(ZelStandard::get(), inner) << "the inner object is the one until the outer is ready";
    EXPECT_EQ(inner->getServiceClass(), 2) << "it has read the settings as well";
    ZelStandard::get()->setServiceClass(3);
}

} // namespace

TEST(NestedConstruction, EndsWithTheOuterObject)
{
    const support::TemporaryDirectory installation;
    std::filesystem::create_directory(installation.path() / "Profiles");
    zelsuite::setInstallationDirectory(installation.path().string());
    ZelStandard::get()->addCallbackFunction(&callGet);
    installation.write("Profiles/Standard.xml",
                       "<SMOD><SETTINGS><CLASSIFICATION_MODE>BRIDGE</CLASSIFICATION_MODE>"
                       "<SERVICE_CLASS>2</SERVICE_CLASS></SETTINGS></SMOD>");
    ZelStandard::kill();
    ZelStandard* const outer = ZelStandard::get();
    EXPECT_EQ(calls, 1) << "the inner object calls no callbacks while it is made";
    EXPECT_NE(outer, inner);
    EXPECT_EQ(ZelStandard::get(), outer);
    EXPECT_EQ(outer->getServiceClass(), 2) << "what was set on the inner object is gone";
    outer->setClassification(Classification::BUILDING);
    EXPECT_EQ(calls, 2) << "afterwards they are called again";
}
