#include <zelstandard/actions/ActionTypeManager.h>
#include <zelstandard/context/ZelStandard.h>
#include <zelstandard/datafiles/zelofstream.h>

#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include <sched.h>
#include <sys/mount.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "support/Context.h"
#include "support/Files.h"

// Where the text goes when disks are full, directories are missing, or the temporary directory lies
// on another file system than the target.

namespace fs = std::filesystem;
using support::readFile;
using support::TemporaryDirectory;

namespace
{

/// A value of TMPDIR, for the time of a test.
class TemporaryPath
{
public:
    explicit TemporaryPath(const std::string& path)
    {
        if (const char* set = std::getenv("TMPDIR"))
            before_ = set;
        setenv("TMPDIR", path.c_str(), 1);
    }
    ~TemporaryPath() { before_ ? setenv("TMPDIR", before_->c_str(), 1) : unsetenv("TMPDIR"); }

private:
    std::optional<std::string> before_;
};

/// No file may grow beyond the limit, as on a full disk.
class FileSizeLimit
{
public:
    explicit FileSizeLimit(rlim_t bytes)
    {
        std::signal(SIGXFSZ, SIG_IGN);
        getrlimit(RLIMIT_FSIZE, &before_);
        const rlimit limit{bytes, before_.rlim_max};
        setrlimit(RLIMIT_FSIZE, &limit);
    }
    ~FileSizeLimit()
    {
        setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, SIG_DFL);
    }

private:
    rlimit before_{};
};

unsigned int permissionsOf(const fs::path& path)
{
    return static_cast<unsigned int>(fs::status(path).permissions());
}

/// The file names in a directory.
std::vector<std::string> namesIn(const fs::path& directory)
{
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(directory))
        names.push_back(entry.path().filename().string());
    return names;
}

const std::string longText(300'000, 'x');

/// A target directory, and a temporary directory of its own on the same or on another file system.
class OutputStreamFiles : public testing::TestWithParam<const char*>
{
protected:
    void SetUp() override
    {
        const bool other = GetParam() == std::string("OtherFileSystem");
        struct stat shm {
        };
        struct stat here {
        };
        stat(directory_.path().c_str(), &here);
        if (other && (stat("/dev/shm", &shm) != 0 || shm.st_dev == here.st_dev))
            GTEST_SKIP() << "there is no other file system";
        temporary_.emplace(other ? fs::path("/dev/shm") : fs::temp_directory_path());
        environment_.emplace(temporary_->path().string());
    }

    static void write(const std::string& path, const std::string& text,
                      std::ios::openmode mode = std::ios::out)
    {
        zelofstream file(path.c_str(), mode);
        file.stream() << text;
    }

    /// The contents of the only file in the temporary directory.
    std::string onlyTemporaryText()
    {
        const auto names = namesIn(temporary_->path());
        EXPECT_EQ(names.size(), 1u);
        EXPECT_EQ(names.empty() ? "" : names[0].substr(0, 3), "zel");
        return names.empty() ? "" : readFile(temporary_->path() / names[0]);
    }

    TemporaryDirectory directory_;
    std::string target_ = directory_.file("target.txt");
    std::optional<TemporaryDirectory> temporary_;

private:
    std::optional<TemporaryPath> environment_;
};

INSTANTIATE_TEST_SUITE_P(Temporary, OutputStreamFiles,
                         testing::Values("SameFileSystem", "OtherFileSystem"),
                         [](const auto& place) { return std::string(place.param); });

} // namespace

TEST_P(OutputStreamFiles, AreMovedToTheTargetWithThePermissionsThatTheUmaskGives)
{
    support::writeFile(target_, "old");
    fs::permissions(target_, fs::perms::owner_all);
    const mode_t before = umask(027);
    {
        zelofstream file(target_.c_str(), std::ios::out);
        file.stream() << longText << std::flush;
        EXPECT_EQ(onlyTemporaryText(), longText);
        EXPECT_EQ(permissionsOf(temporary_->path() / namesIn(temporary_->path()).at(0)), 0600u);
    }
    EXPECT_EQ(permissionsOf(target_), 0640u) << "a new file takes the old one's place";
    umask(002);
    write(target_, "end", std::ios::app);
    umask(before);
    EXPECT_EQ(permissionsOf(target_), 0664u);
    EXPECT_EQ(readFile(target_), longText + "end");
    EXPECT_EQ(namesIn(temporary_->path()), std::vector<std::string>());
    EXPECT_EQ(namesIn(directory_.path()), std::vector<std::string>{"target.txt"});
}

TEST_P(OutputStreamFiles, KeepTheTextWhenTheTargetsDirectoryIsMissing)
{
    for (const char* path : {"missing/target.txt", "missing\\target.txt"}) {
        write(directory_.file(path), longText);
        EXPECT_EQ(onlyTemporaryText(), longText) << path;
        EXPECT_EQ(permissionsOf(temporary_->path() / namesIn(temporary_->path()).at(0)), 0600u)
            << "as private as before the move that failed";
        EXPECT_EQ(namesIn(directory_.path()), std::vector<std::string>()) << path;
        fs::remove(temporary_->path() / namesIn(temporary_->path()).at(0));
    }
}

TEST_P(OutputStreamFiles, KeepTheTextWhenTheTargetIsADirectory)
{
    fs::create_directory(target_);
    write(target_, longText);
    EXPECT_EQ(onlyTemporaryText(), longText);
    EXPECT_TRUE(fs::is_directory(target_)) << "even one without contents";
}

TEST_P(OutputStreamFiles, OfAFullTemporaryDiskAreCommittedCut)
{
    support::writeFile(target_, "old");
    // The limit of 0 is noticed only when the buffer is written at the end.
    for (const rlim_t bytes : {rlim_t{100'000}, rlim_t{0}}) {
        {
            std::optional<FileSizeLimit> limit;
            zelofstream file(target_.c_str(), std::ios::out);
            limit.emplace(bytes);
            file.stream() << (bytes ? longText : "short");
            EXPECT_EQ(file.stream().good(), bytes == 0);
        }
        ASSERT_TRUE(fs::exists(target_));
        const std::string committed = readFile(target_);
        EXPECT_EQ(committed.empty(), bytes == 0);
        EXPECT_LE(committed.size(), bytes);
        EXPECT_TRUE(longText.starts_with(committed));
        EXPECT_EQ(namesIn(temporary_->path()), std::vector<std::string>());
    }
}

TEST_P(OutputStreamFiles, KeepTheWholeTextOnARealFullDisk)
{
    // A disk of 64 KiB, which only a child process sees. Its exit code tells what went wrong.
    enum Result { Good, NotPermitted, PartOfTheTextLeft, OtherFilesLeft };
    const std::string disk = directory_.file("disk");
    fs::create_directory(disk);
    const pid_t child = fork();
    if (child == 0) {
        if (unshare(CLONE_NEWNS) != 0 ||
            mount("none", "/", nullptr, MS_REC | MS_PRIVATE, nullptr) != 0 ||
            mount("none", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
            _exit(NotPermitted);
        support::writeFile(disk + "/target.txt", "old");
        write(disk + "/target.txt", longText);
        _exit(fs::exists(disk + "/target.txt") ? PartOfTheTextLeft
              : namesIn(disk).empty()          ? Good
                                               : OtherFilesLeft);
    }
    int status = 0;
    ASSERT_EQ(waitpid(child, &status, 0), child);
    ASSERT_TRUE(WIFEXITED(status));
    if (WEXITSTATUS(status) == NotPermitted)
        GTEST_SKIP() << "this user may not mount a disk";
    EXPECT_EQ(WEXITSTATUS(status), Good);
    EXPECT_EQ(onlyTemporaryText(), longText);
}

TEST_P(OutputStreamFiles, StayInTheTemporaryDirectoryWhenTheyDoNotOpen)
{
    support::writeFile(target_, "old");
    {
        // No file is opened in this mode.
        zelofstream file(target_.c_str(), std::ios::app | std::ios::trunc);
        file.stream() << "text" << std::flush;
        EXPECT_FALSE(file.stream().good());
    }
    EXPECT_EQ(readFile(target_), "old");
    EXPECT_EQ(onlyTemporaryText(), "old") << "appending had copied the target already";
}

TEST(OutputStreamOntoALink, ReplacesTheLinkAndLeavesItsFile)
{
    const TemporaryDirectory directory;
    const std::string file = directory.write("file.txt", "old");
    const std::string link = directory.file("link.txt");
    fs::create_symlink(file, link);
    zelofstream(link.c_str(), std::ios::out).stream() << "new";
    EXPECT_FALSE(fs::is_symlink(link));
    EXPECT_EQ(readFile(link), "new");
    EXPECT_EQ(readFile(file), "old");
}

TEST(OutputStreamWithoutTemporaryDirectory, TakesNothingAndLeavesTheTarget)
{
    const support::FreshContext context;
    const TemporaryDirectory directory;
    const std::string target = directory.write("target.txt", "old");
    for (const std::string& missing : {directory.file("missing"), target, std::string(5000, 'x')}) {
        const TemporaryPath environment(missing);
        zelofstream file(target.c_str(), std::ios::out);
        file.stream() << "text" << 1.5 << std::endl;
        EXPECT_TRUE(file.stream().bad());
        // The library's own writers pass on what they get.
        context->output(target);
        Standard::ActionTypeManager types("");
        types.giveActionType(Standard::ActionType::Id::G1);
        types.output(target);
        EXPECT_EQ(readFile(target), "old");
        EXPECT_EQ(namesIn(directory.path()), std::vector<std::string>{"target.txt"});
    }
}
