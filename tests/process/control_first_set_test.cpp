// Setting is a first use of the control values: what is set lies upon the settings file.

#include "material/ControlRecords.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

TEST(ControlFirstUse, BySetting)
{
    const TemporaryDirectory directory;
    const FreshContext context;
    context->setAlternativeDBPath(directory.write("settings.xml", controlSettings));
    Control::setCompressionEta(Mode::BS, 0.5);
    EXPECT_EQ(records(), "1 1 0.61 0.5 0.81 0; 1.75 1.2 0.62 0.92 0.82 1");
}
