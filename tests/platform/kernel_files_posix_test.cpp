#include <gtest/gtest.h>

#include <filesystem>
#include <iterator>
#include <string>

#include <sys/resource.h>
#include <sys/stat.h>

#include <support/Files.h>
#include <zelstandard/platform/WindowsFiles.h>

// What the kernel's file calls mean where they are the suite's own.

namespace fs = std::filesystem;

namespace
{

std::ptrdiff_t entriesOf(const fs::path& directory)
{
    return std::distance(fs::directory_iterator(directory), fs::directory_iterator());
}

dev_t deviceOf(const fs::path& path)
{
    struct stat status;
    return stat(path.c_str(), &status) == 0 ? status.st_dev : 0;
}

/// Two directories on different file systems.
class PosixFiles : public testing::Test
{
protected:
    const support::TemporaryDirectory here_;
    const support::TemporaryDirectory there_{"/dev/shm"};
};

} // namespace

TEST_F(PosixFiles, MoveWholeOrNotAtAllBetweenFileSystems)
{
    if (deviceOf(here_.path()) == deviceOf(there_.path()))
        GTEST_SKIP() << "there is only one file system";
    const std::string content(300001, 'x');
    const std::string from = here_.write("from", content);
    const std::string to = there_.write("to", "old");
    const auto descriptors = entriesOf("/proc/self/fd");
    EXPECT_EQ(MoveFileA(from.c_str(), to.c_str()), FALSE) << "the target exists";
    EXPECT_EQ(support::readFile(to), "old");
    fs::remove(to);

    rlimit before;
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &before), 0);
    const rlimit small{100000, before.rlim_max};
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    EXPECT_EQ(MoveFileA(from.c_str(), to.c_str()), FALSE) << "the file is larger than it may be";
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &before), 0);
    EXPECT_EQ(entriesOf(there_.path()), 0) << "nothing is left behind";
    EXPECT_EQ(support::readFile(from), content);

    EXPECT_NE(MoveFileA(from.c_str(), to.c_str()), FALSE);
    EXPECT_EQ(support::readFile(to), content);
    EXPECT_FALSE(fs::exists(from));
    EXPECT_EQ(entriesOf(there_.path()), 1);
    EXPECT_EQ(entriesOf("/proc/self/fd"), descriptors) << "all files are closed";
}

TEST_F(PosixFiles, TakeABackslashAsASeparatorWhenThereIsSuchAFolder)
{
    fs::create_directories(here_.file("zel/Profiles"));
    const std::string from = here_.write("from", "x");
    const std::string target = here_.file("zel") + "\\Profiles\\Standard.xml";
    ASSERT_NE(MoveFileA(from.c_str(), target.c_str()), FALSE);
    EXPECT_EQ(support::readFile(here_.file("zel/Profiles/Standard.xml")), "x");
    EXPECT_EQ(GetFileAttributesA(target.c_str()), FILE_ATTRIBUTE_NORMAL);
    std::string path(4096, '\0');
    path.resize(GetShortPathNameA(target.c_str(), path.data(), 4096));
    EXPECT_EQ(path, here_.file("zel/Profiles/Standard.xml"));

    ASSERT_NE(DeleteFileA(target.c_str()), FALSE);
    EXPECT_FALSE(fs::exists(here_.file("zel/Profiles/Standard.xml")));
}

TEST_F(PosixFiles, FailWhereThereIsNoFolderInEitherSpelling)
{
    fs::create_directory(here_.file("c\\d"));
    ASSERT_NE(MoveFileA(here_.write("a", "x").c_str(), here_.file("c\\d\\e").c_str()), FALSE);
    EXPECT_EQ(support::readFile(here_.file("c\\d/e")), "x") << "a folder of that very name";

    const std::string from = here_.write("from", "x");
    const std::string odd = here_.file("a\\b.xml");
    EXPECT_EQ(MoveFileA(from.c_str(), odd.c_str()), FALSE);
    EXPECT_EQ(CopyFileA(from.c_str(), odd.c_str(), FALSE), FALSE);
    EXPECT_EQ(entriesOf(here_.path()), 2);
    support::writeFile(odd, "y");
    EXPECT_EQ(GetFileAttributesA(odd.c_str()), INVALID_FILE_ATTRIBUTES);
    EXPECT_EQ(DeleteFileA(odd.c_str()), FALSE);
}

TEST_F(PosixFiles, AreNotHeldUpByAPipe)
{
    const std::string pipe = here_.file("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    EXPECT_EQ(CopyFileA(pipe.c_str(), here_.file("a").c_str(), FALSE), FALSE);
    EXPECT_EQ(CopyFileA(here_.write("b", "x").c_str(), pipe.c_str(), FALSE), FALSE);
    EXPECT_EQ(MoveFileA(pipe.c_str(), there_.file("a").c_str()), FALSE);
}
