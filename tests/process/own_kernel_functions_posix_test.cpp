// A host that brings functions of the kernel's names, as ported programs do, saves and reads all
// the same.

#include <cstdint>

#include <zelstandard/datafiles/zelofstream.h>

#include <gtest/gtest.h>

#include "support/Files.h"

std::uint32_t GetTempPathA(std::uint32_t, char*) { return 0; }
int DeleteFileA(const char*) { return 0; }

TEST(OwnKernelFunctions, AreNotTakenForThoseOfTheSuite)
{
    const support::TemporaryDirectory directory;
    const std::string target = directory.write("target.txt", "old");
    zelofstream(target.c_str(), std::ios::out).stream() << "new";
    EXPECT_EQ(support::readFile(target), "new");
}
