// A document that is read before any other use of the control values lies upon the built-in values
// and the settings file.

#include "material/ControlRecords.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

TEST(ControlFirstUse, ByReadingAFile)
{
    const TemporaryDirectory directory;
    const FreshContext context;
    context->setAlternativeDBPath(directory.write("settings.xml", controlSettings));
    Control::input(directory.write(
        "own.xml", R"(<STRESSBLOCK><ANNEX NAME="EC"><ETA>0.5</ETA></ANNEX></STRESSBLOCK>)"));
    EXPECT_EQ(records(), "1 1 0.61 0.5 0.81 0; 1.75 1.2 0.62 0.92 0.82 1");
}
