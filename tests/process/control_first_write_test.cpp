// Writing is a first use of the control values: it writes those of the settings file.

#include "material/ControlRecords.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

TEST(ControlFirstUse, ByWriting)
{
    const TemporaryDirectory directory;
    const FreshContext context;
    context->setAlternativeDBPath(directory.write("settings.xml", controlSettings));
    const std::string path = directory.file("written.xml");
    Control::output(path);
    for (const char* value : {"0.61", "0.91", "0.81", "0.62", "0.92", "0.82"})
        EXPECT_NE(readFile(path).find(value), std::string::npos) << value;
    EXPECT_EQ(records(), controlSettingsRecords);
}
