// A host that saves its settings into the settings file without losing the rest of it.
//
//   save_settings SETTINGS-FILE DESIGN-CODE
//
// ZelStandard::output(path) replaces the whole file: coefficients, control values and superposition
// rules would be gone. So read the document, let each part write itself into the tree, and put it
// out again.

#include <cstdio>
#include <fstream>

#include <zelstandard/platform/ZelXml.h>
#include <zelstandard/zelstandard.h>

using namespace Standard;

int main(int argc, char** argv)
{
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s SETTINGS-FILE DESIGN-CODE\n", argv[0]);
        return 2;
    }
    const Mode mode = XMLUtil::get()->getModeToString(argv[2]);
    if (mode == Mode::NO_CODE) {
        std::fprintf(stderr, "%s is no design code; use EC, DIN-EN, SIA ...\n", argv[2]);
        return 1;
    }

    ZelXmlTree tree;
    {
        std::ifstream file(argv[1]);
        if (!tree.buildOfStream(file)) {
            std::fprintf(stderr, "%s: no XML document; give the path of a settings file\n",
                         argv[1]);
            return 1;
        }
    }

    ZelStandard& standard = *ZelStandard::get();
    standard.input(argv[1]);
    standard.setMode(mode);
    IO::write(tree, &standard); // SETTINGS alone; everything else in the tree stays as it was

    zelofstream file(argv[1], std::ios::out); // takes the file's place when it is destroyed
    tree.putToStream(file.stream(), true);
    std::printf("%s now asks for %s\n", argv[1], standard.getStandardText(mode).c_str());
    return 0;
}
