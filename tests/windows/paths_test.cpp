#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <memory>
#include <string>

#include <support/Context.h>
#include <support/Files.h>
#include <zelstandard/zelstandard.h>

#include "ReplacedImport.h"

// How the library opens and writes files where Windows differs: narrow paths in the code page of
// the system, sharing, short paths, drives. Narrow paths do not go through std::filesystem here,
// which takes them for UTF-8.

using namespace Standard;
using support::FreshContext;
using support::ReplacedImport;
using support::TemporaryDirectory;
using support::unixLines;

namespace
{

constexpr const char* britishSettings =
    "<SMOD><SETTINGS><STANDARD_MODE>BS</STANDARD_MODE></SETTINGS></SMOD>";
constexpr const char* snow = "<SMOD><ACTIONTYPES><ACTIONTYPE NAME=\"SNOW\"/></ACTIONTYPES></SMOD>";

/// A text in the code page of the system; empty when that has not all of its characters.
std::string ansi(const wchar_t* text)
{
    char narrow[64];
    BOOL incomplete = FALSE;
    const int length = WideCharToMultiByte(CP_ACP, 0, text, -1, narrow, sizeof narrow, nullptr,
                                           GetACP() == CP_UTF8 ? nullptr : &incomplete);
    return length == 0 || incomplete ? std::string() : narrow;
}

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

void fill(const std::string& path, const std::string& content)
{
    std::ofstream file(path, std::ios::binary);
    file << content;
    ASSERT_TRUE(file.good()) << path;
}

/// The code in force after the settings were read: BS, or EC when nothing was read.
Mode modeReadFrom(const std::string& path)
{
    const FreshContext context;
    context->input(path);
    return context->getMode();
}

/// A file that another program has open.
class HeldFile
{
public:
    HeldFile(const std::string& path, DWORD access, DWORD share)
        : handle_(CreateFileA(path.c_str(), access, share, nullptr, OPEN_EXISTING, 0, nullptr))
    {
        EXPECT_NE(handle_, INVALID_HANDLE_VALUE) << path;
    }
    ~HeldFile() { CloseHandle(handle_); }
    HeldFile(const HeldFile&) = delete;
    HeldFile& operator=(const HeldFile&) = delete;

private:
    HANDLE handle_;
};

/// Temporary files of this process go to a directory of their own.
class OwnTemporaryFiles
{
public:
    OwnTemporaryFiles() { SetEnvironmentVariableA("TMP", directory_.path().string().c_str()); }
    ~OwnTemporaryFiles() { SetEnvironmentVariableA("TMP", before_.c_str()); }
    OwnTemporaryFiles(const OwnTemporaryFiles&) = delete;
    OwnTemporaryFiles& operator=(const OwnTemporaryFiles&) = delete;

    /// The names of the files in it, each followed by a blank.
    [[nodiscard]] std::string names() const
    {
        std::string all;
        for (const auto& entry : std::filesystem::directory_iterator(directory_.path()))
            all += entry.path().filename().string() + ' ';
        return all;
    }
    /// The content of the only file in it.
    [[nodiscard]] std::string content() const
    {
        const std::filesystem::directory_iterator files(directory_.path());
        return files == std::filesystem::directory_iterator() ? "no file"
                                                              : support::readFile(files->path());
    }
    void remove() { std::filesystem::remove_all(directory_.path()); }

private:
    std::string before_ = [] {
        char value[MAX_PATH + 1] = "";
        GetEnvironmentVariableA("TMP", value, sizeof value);
        return std::string(value);
    }();
    TemporaryDirectory directory_;
};

} // namespace

TEST(WindowsPath, OpensAsItIsWritten)
{
    const TemporaryDirectory directory;
    const std::string umlauts = ansi(L"Gr\u00f6\u00dfe \u00dcbung");
    const std::string root = directory.path().string();
    for (const std::string& folder : {std::string("plain"), std::string("two  words"), umlauts}) {
        if (folder.empty())
            GTEST_SKIP() << "code page " << GetACP() << " has no umlauts; all else was tried";
        CreateDirectoryA((root + "\\" + folder).c_str(), nullptr);
        for (const char* before : {"\\", "/"}) {
            for (const char* between : {"\\", "/", "\\\\", "\\.\\"}) {
                const std::string path = root + before + folder + between + folder + ".xml";
                SCOPED_TRACE(path);
                fill(path, britishSettings);
                EXPECT_EQ(modeReadFrom(path), Mode::BS);

                fill(path, support::enciphered(snow));
                const ActionTypeManager actions(path);
                EXPECT_TRUE(actions.findActionType(ActionTypeId::SNOW));

                zelofstream(path.c_str(), std::ios::out).stream() << "text\n";
                EXPECT_EQ(contentOf(path), "text\r\n");
            }
        }
    }
}

TEST(WindowsPath, LeadsToTheSettingsBelowTheInstallation)
{
    const TemporaryDirectory directory;
    std::filesystem::create_directory(directory.path() / "Profiles");
    fill(directory.file("Profiles/Standard.xml"), britishSettings);
    FreshContext context;
    ZelStandard::kill();
    zelsuite::setInstallationDirectory(directory.path().string());
    EXPECT_EQ(context->getDataBaseDir(), directory.path().string() + "\\Profiles\\Standard.xml");
    EXPECT_EQ(context->getMode(), Mode::BS);
}

TEST(SharedFile, OpensUnlessItsHolderSharesNothing)
{
    const TemporaryDirectory directory;
    const std::string settings = directory.write("settings.xml", britishSettings);
    const std::string types = directory.write("types.xml", snow);
    constexpr DWORD all = FILE_SHARE_READ | FILE_SHARE_WRITE;
    struct Case {
        const char* holder;
        DWORD access;
        DWORD share;
        bool opens;
    };
    for (const Case& held : {
             Case{"a reader that shares reading", GENERIC_READ,                 FILE_SHARE_READ, true },
             Case{"a reader that shares all",     GENERIC_READ,                 all,             true },
             Case{"a writer that shares all",     GENERIC_READ | GENERIC_WRITE, all,             true },
             Case{"a reader that shares nothing", GENERIC_READ,                 0,               false}
    }) {
        SCOPED_TRACE(held.holder);
        const HeldFile one(settings, held.access, held.share);
        const HeldFile other(types, held.access, held.share);
        EXPECT_EQ(modeReadFrom(settings), held.opens ? Mode::BS : Mode::EC);
        EXPECT_EQ(ActionTypeManager(types).hasActionTypes(), held.opens);
    }
}

// On Windows a path longer than MAX_PATH may open by its short form alone. Wine opens it at once
// and knows no short form of it, so the kernel's answers are given here.

namespace
{

struct Kernel {
    static inline int calls;
    static inline std::string path;
    static inline DWORD size;
    static inline std::string answer;  ///< empty for a failure
    static inline std::string appears; ///< a settings file that is there from the call on

    static DWORD WINAPI shortPathName(const char* longPath, char* buffer, DWORD bufferSize)
    {
        ++calls;
        path = longPath;
        size = bufferSize;
        if (!appears.empty())
            fill(appears, britishSettings);
        std::memcpy(buffer, answer.c_str(), answer.size() + 1);
        return static_cast<DWORD>(answer.size());
    }
};

class ShortPath : public testing::Test
{
protected:
    ShortPath()
    {
        Kernel::calls = 0;
        Kernel::answer.clear();
        Kernel::appears.clear();
    }

    TemporaryDirectory directory_;
    ReplacedImport import_{"zelstandard.dll", "GetShortPathNameA", &Kernel::shortPathName};
};

} // namespace

TEST_F(ShortPath, IsNotAskedForWhenThePathOpens)
{
    ASSERT_TRUE(import_.isInPlace());
    EXPECT_EQ(modeReadFrom(directory_.write("settings.xml", britishSettings)), Mode::BS);
    // The context looks for the settings of its installation first, which are not there.
    EXPECT_EQ(Kernel::calls, 1);
    EXPECT_EQ(Kernel::path, "no-such-directory\\Profiles\\Standard.xml");
}

TEST_F(ShortPath, OpensInPlaceOfAPathThatDoesNot)
{
    ASSERT_TRUE(import_.isInPlace());
    const std::string path = directory_.file("too long.xml");
    const FreshContext context;
    Kernel::answer = directory_.write("TOOLON~1.XML", britishSettings);
    context->input(path);
    EXPECT_EQ(context->getMode(), Mode::BS);
    EXPECT_EQ(Kernel::path, path);
    EXPECT_EQ(Kernel::size, 4096U);
}

TEST_F(ShortPath, IsThePathAsGivenWhenThereIsNone)
{
    ASSERT_TRUE(import_.isInPlace());
    const std::string path = directory_.file("late.xml");
    const FreshContext context;
    Kernel::appears = path;
    context->input(path);
    EXPECT_EQ(context->getMode(), Mode::BS) << "the path is tried a second time";
}

TEST(ShortPathOfTheKernel, OpensWhatTheLongOneNames)
{
    const TemporaryDirectory directory;
    const std::string path = directory.write("a name beyond eight.settings", britishSettings);
    char shortPath[4096] = "";
    ASSERT_GT(GetShortPathNameA(path.c_str(), shortPath, sizeof shortPath), 0U);
    EXPECT_EQ(std::string(shortPath).find("beyond"), std::string::npos) << shortPath;
    EXPECT_EQ(modeReadFrom(shortPath), Mode::BS);
}

TEST(WindowsOutput, GoesThroughATemporaryFileWithThreeLettersOfThePrefix)
{
    const TemporaryDirectory directory;
    const OwnTemporaryFiles temporary;
    const std::string target = directory.file("target.txt");
    {
        zelofstream file(target.c_str(), std::ios::out);
        file.stream() << "text" << std::flush;
        const std::string names = temporary.names();
        EXPECT_EQ(names.substr(0, 3), "zel") << names;
        EXPECT_NE(names.substr(0, 4), "zelo") << names;
        EXPECT_EQ(names.substr(names.size() - 5), ".tmp ") << names;
        EXPECT_EQ(temporary.content(), "text");
    }
    EXPECT_EQ(temporary.names(), "");
    EXPECT_EQ(contentOf(target), "text");
}

TEST(WindowsOutput, StaysInItsTemporaryFileWhenItCannotBeMoved)
{
    const TemporaryDirectory directory;
    {
        const OwnTemporaryFiles temporary;
        zelofstream(directory.file("missing/target.txt").c_str(), std::ios::out).stream() << "lost";
        EXPECT_EQ(temporary.content(), "lost");
    }
    {
        const OwnTemporaryFiles temporary;
        zelofstream(directory.path().string().c_str(), std::ios::out).stream() << "lost";
        EXPECT_EQ(temporary.content(), "lost") << "the target is a directory";
    }
    const OwnTemporaryFiles temporary;
    const std::string target = directory.write("held.txt", "old");
    {
        // Whoever does not share deletion keeps the target alive.
        const HeldFile held(target, GENERIC_READ, FILE_SHARE_READ);
        zelofstream(target.c_str(), std::ios::out).stream() << "lost";
    }
    EXPECT_EQ(contentOf(target), "old");
    EXPECT_EQ(temporary.content(), "lost");
}

TEST(WindowsOutput, TakesNothingWithoutATemporaryDirectory)
{
    const TemporaryDirectory directory;
    const std::string target = directory.write("target.txt", "old");
    OwnTemporaryFiles temporary;
    temporary.remove();
    {
        zelofstream file(target.c_str(), std::ios::app);
        EXPECT_FALSE(file.stream().good());
        file.stream() << "text";
    }
    EXPECT_EQ(contentOf(target), "old");
}

// The build names a directory on a drive that is not that of the temporary directory.
TEST(WindowsOutput, ReachesAnotherDrive)
{
    const char* const drive = std::getenv("ZELSTANDARD_OTHER_DRIVE");
    if (!drive)
        GTEST_SKIP() << "ZELSTANDARD_OTHER_DRIVE names no directory on another drive";
    const TemporaryDirectory directory{std::filesystem::path(drive)};
    const OwnTemporaryFiles temporary;
    const std::string target = directory.file("target.txt");
    ASSERT_NE(target[0], std::filesystem::temp_directory_path().string()[0])
        << "one drive for both";

    zelofstream(target.c_str(), std::ios::out).stream() << "first\n";
    EXPECT_EQ(unixLines(contentOf(target)), "first\n");
    zelofstream(target.c_str(), std::ios::app).stream() << "second\n";
    EXPECT_EQ(unixLines(contentOf(target)), "first\nsecond\n");
    zelofstream(target.c_str(), std::ios::out).stream() << std::flush;
    EXPECT_EQ(contentOf(target), "");
    EXPECT_EQ(temporary.names(), "") << "nothing is left behind";
}
