// Reading a tree, even an empty one, is a first use of the control values, and the settings file is
// read at the first use alone.

#include "material/ControlRecords.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

TEST(ControlFirstUse, ByReadingATree)
{
    const TemporaryDirectory directory;
    const FreshContext context;
    context->setAlternativeDBPath(directory.write("settings.xml", controlSettings));
    Control::input(ZelXmlTree());
    context->setAlternativeDBPath(directory.write(
        "later.xml", R"(<STRESSBLOCK><ANNEX NAME="EC"><ETA>0.5</ETA></ANNEX></STRESSBLOCK>)"));
    EXPECT_EQ(records(), controlSettingsRecords);
    ZelStandard::kill();
    EXPECT_EQ(records(), controlSettingsRecords);
}
