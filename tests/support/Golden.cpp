#include "support/Golden.h"

#include <cstdlib>
#include <sstream>

#include <gtest/gtest.h>

#include "support/Files.h"

void support::expectGolden(const std::string& name, const std::string& text)
{
    const auto path = sourceFile("tests/golden/" + name);
    if (std::getenv("ZELSTANDARD_REFRESH_GOLDEN")) {
        writeFile(path, text);
        FAIL() << "wrote " << path << "; read the difference, then run the tests without "
               << "ZELSTANDARD_REFRESH_GOLDEN";
    }
    const std::string golden = unixLines(readFile(path));
    if (text == golden)
        return;
    std::istringstream left(golden);
    std::istringstream right(text);
    std::string leftLine;
    std::string rightLine;
    int line = 0;
    do {
        ++line;
        if (!std::getline(left, leftLine))
            leftLine = "(end)";
        if (!std::getline(right, rightLine))
            rightLine = "(end)";
    } while (leftLine == rightLine);
    FAIL() << path.string() << ":" << line << ": expected\n  " << leftLine << "\nbut got\n  "
           << rightLine << "\nIf the change is wanted, refresh the file with\n  "
           << "ZELSTANDARD_REFRESH_GOLDEN=1 ./test";
}
