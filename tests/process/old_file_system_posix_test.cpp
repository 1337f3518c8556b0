// File systems that cannot rename a file without replacing another, and those that have no second
// names either.

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

#include <zelstandard/platform/WindowsFiles.h>

#include <gtest/gtest.h>

#include "support/Files.h"

namespace
{

bool hasLinks = true;
int refused = 0;

int refuse(int error)
{
    ++refused;
    errno = error;
    return -1;
}

} // namespace

// In the places of the system's own.
extern "C" [[gnu::visibility("default")]] int renameat2(int, const char*, int, const char*,
                                                        unsigned int) noexcept
{
    return refuse(ENOSYS);
}

extern "C" [[gnu::visibility("default")]] int link(const char* from, const char* to) noexcept
{
    return hasLinks ? linkat(AT_FDCWD, from, AT_FDCWD, to, 0) : refuse(EPERM);
}

TEST(OldFileSystem, MovesAFileAndNeverReplacesOne)
{
    for (const bool withLinks : {true, false}) {
        hasLinks = withLinks;
        const support::TemporaryDirectory directory;
        const std::string from = directory.write("from", "new");
        const std::string taken = directory.write("taken", "old");
        EXPECT_FALSE(MoveFileA(from.c_str(), taken.c_str()));
        EXPECT_EQ(support::readFile(taken), "old");
        EXPECT_EQ(support::readFile(from), "new");
        EXPECT_TRUE(MoveFileA(from.c_str(), (taken + "2").c_str()));
        EXPECT_EQ(support::readFile(taken + "2"), "new");
        EXPECT_FALSE(std::filesystem::exists(from));
    }
    EXPECT_EQ(refused, 2 + 4) << "the suite has asked the system itself";
}
