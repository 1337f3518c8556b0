#include <zelstandard/context/ZelStandard.h>

#include "support/Context.h"
#include "support/Files.h"

// Where a backslash is a letter of names. That such paths lead to files all the same:
// text/platform/backslash_paths.txt.
TEST(BackslashPaths, LeadFirstToTheFileOfThatVeryName)
{
    const support::FreshContext context;
    const support::TemporaryDirectory directory;
    std::filesystem::create_directory(directory.path() / "Profiles");
    directory.write("Profiles/Standard.xml", "<SETTINGS/>");
    context->input(directory.write("Profiles\\Standard.xml",
                                   "<SETTINGS><SERVICE_CLASS>3</SERVICE_CLASS></SETTINGS>"));
    EXPECT_EQ(context->getServiceClass(), 3);
    context->input(std::string(5000, '\\'));
    EXPECT_EQ(context->getServiceClass(), 3);
}
