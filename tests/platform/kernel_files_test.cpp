#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include <support/Files.h>
#include <zelstandard/platform/WindowsFiles.h>

// The kernel's file calls, as the library relies on them under every system.

namespace fs = std::filesystem;

TEST(TemporaryFile, IsNewEmptyAndNamedByItsPrefix)
{
    const support::TemporaryDirectory directory;
    std::vector<char> first(MAX_PATH + 1);
    std::vector<char> second(MAX_PATH + 1);
    const std::string folder = directory.path().string();
    // Behind the prefix the system puts letters and digits of its own.
    ASSERT_NE(GetTempFileNameA(folder.c_str(), "zel---", 0, first.data()), 0U);
    ASSERT_NE(GetTempFileNameA(folder.c_str(), "zel---", 0, second.data()), 0U);
    EXPECT_STRNE(first.data(), second.data());
    const fs::path path(first.data());
    EXPECT_EQ(path.parent_path(), directory.path());
    EXPECT_EQ(path.filename().string().substr(0, 3), "zel");
    EXPECT_EQ(path.filename().string().find('-'), std::string::npos) << "no more than three";
    EXPECT_EQ(fs::file_size(path), 0U);
    EXPECT_EQ(GetTempFileNameA(directory.file("none").c_str(), "zel", 0, first.data()), 0U);
}

TEST(TemporaryDirectoryPath, EndsInASeparatorAndFitsItsBuffer)
{
    std::string path(4096, '\0');
    path.resize(GetTempPathA(4096, path.data()));
    ASSERT_FALSE(path.empty());
    EXPECT_TRUE(path.back() == '/' || path.back() == '\\') << path;
    std::string tooShort(1, 'x');
    EXPECT_EQ(GetTempPathA(1, tooShort.data()), path.size() + 1);
}

TEST(MoveFile, NeverReplacesATarget)
{
    const support::TemporaryDirectory directory;
    const std::string from = directory.write("from", "new");
    const std::string to = directory.write("to", "old");
    EXPECT_EQ(MoveFileA(from.c_str(), to.c_str()), FALSE);
    EXPECT_EQ(support::readFile(to), "old");
    EXPECT_EQ(support::readFile(from), "new");

    ASSERT_NE(DeleteFileA(to.c_str()), FALSE);
    EXPECT_NE(MoveFileA(from.c_str(), to.c_str()), FALSE);
    EXPECT_EQ(support::readFile(to), "new");
    EXPECT_FALSE(fs::exists(from));
    EXPECT_EQ(MoveFileA(from.c_str(), to.c_str()), FALSE) << "there is no source any more";

    EXPECT_EQ(MoveFileA(to.c_str(), directory.file("none/to").c_str()), FALSE);
    EXPECT_EQ(support::readFile(to), "new") << "a folder that does not exist";
}

TEST(CopyFile, ReplacesContentsUnlessTold)
{
    const support::TemporaryDirectory directory;
    const std::string from = directory.write("from", std::string(200000, 'n') + "\0\r\n");
    const std::string to = directory.write("to", std::string(300000, 'o'));
    EXPECT_EQ(CopyFileA(from.c_str(), to.c_str(), TRUE), FALSE);
    EXPECT_NE(CopyFileA(from.c_str(), to.c_str(), FALSE), FALSE);
    EXPECT_EQ(support::readFile(to), support::readFile(from));
    EXPECT_EQ(CopyFileA(from.c_str(), from.c_str(), FALSE), FALSE) << "onto itself";
    EXPECT_EQ(fs::file_size(from), fs::file_size(to));
    EXPECT_EQ(CopyFileA(directory.file("none").c_str(), to.c_str(), FALSE), FALSE);
    EXPECT_EQ(fs::file_size(from), fs::file_size(to)) << "a source that does not exist";
}

TEST(ShortPath, NamesAnExistingFile)
{
    const support::TemporaryDirectory directory;
    const std::string file = directory.write("a longer name.settings", "x");
    std::string path(4096, '\0');
    path.resize(GetShortPathNameA(file.c_str(), path.data(), 4096));
    EXPECT_EQ(support::readFile(path), "x");
    EXPECT_GT(GetShortPathNameA(file.c_str(), path.data(), 3), 3U) << "the length that is needed";
    EXPECT_EQ(GetShortPathNameA(directory.file("none").c_str(), path.data(), 4096), 0U);

    const std::string folder = directory.path().string();
    EXPECT_EQ(GetFileAttributesA(file.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0U);
    EXPECT_NE(GetFileAttributesA(folder.c_str()) & FILE_ATTRIBUTE_DIRECTORY, 0U);
    EXPECT_EQ(DeleteFileA(folder.c_str()), FALSE) << "a directory";
    EXPECT_TRUE(std::filesystem::exists(directory.path()));
}
