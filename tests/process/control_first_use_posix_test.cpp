// Whatever uses the control values first, the built-in values and those of the settings file are
// there before it. Each use comes first in a process of its own.

#include <functional>

#include "material/ControlRecords.h"
#include "support/Files.h"

using namespace Standard;
using namespace support;

TEST(ControlFirstUse, ReadsTheSettingsFileOnce)
{
    const TemporaryDirectory directory;
    const std::string etaOfEc =
        R"(<STRESSBLOCK><ANNEX NAME="EC"><ETA>0.5</ETA></ANNEX></STRESSBLOCK>)";
    const std::string own = directory.write("own.xml", etaOfEc);
    const FreshContext context;
    context->setAlternativeDBPath(directory.write("settings.xml", controlSettings));
    const auto expect = [&](const char* use, const std::function<void()>& first, const char* eta) {
        const auto inItsProcess = [&] {
            first();
            context->setAlternativeDBPath(own); // too late
            ZelStandard::kill();
            std::cerr << records();
            std::_Exit(0);
        };
        EXPECT_EXIT(inItsProcess(), testing::ExitedWithCode(0),
                    std::string("^1 1 0.61 ") + eta + " 0.81 0; 1.75 1.2 0.62 0.92 0.82 1$")
            << use;
    };
    expect(
        "getting", [] { records(); }, "0.91");
    expect(
        "setting", [] { Control::setCompressionEta(Mode::BS, 0.5); }, "0.5");
    expect(
        "reading a file", [&] { Control::input(own); }, "0.5");
    expect(
        "reading an empty tree", [] { Control::input(ZelXmlTree()); }, "0.91");
    expect(
        "writing and reading back",
        [&] {
            const std::string path = directory.file("written.xml");
            Control::output(path);
            setRecord(Mode::EC, {1, 1, 7, 7, 7, 0});
            Control::input(path);
        },
        "0.91");
}
