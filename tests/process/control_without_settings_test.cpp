// The built-in control values. They are installed once for the life of the process.

#include "material/ControlRecords.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

TEST(ControlWithoutSettings, HasTheBuiltInValuesAndKeepsThemWhenAPathIsSetLater)
{
    const TemporaryDirectory directory;
    const FreshContext context;
    const std::string builtIn = "1 1 0 0 0 0; 1.75 1.2 0 0 0 1";
    EXPECT_EQ(records(), builtIn);

    context->setAlternativeDBPath(directory.write("settings.xml", controlSettings));
    EXPECT_EQ(records(), builtIn) << "the settings file is read once, at the first use";
    Control::input(context->getDataBaseDir());
    EXPECT_EQ(records(), "1 1 0.61 0.91 0.81 0; 1.75 1.2 0.62 0.92 0.82 1");
}
