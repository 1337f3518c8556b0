#include <zelstandard/datafiles/zelofstream.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "support/Files.h"

using support::readFile;
using support::unixLines;

namespace
{

class OutputStream : public testing::Test
{
protected:
    /// Writes a text through a stream of its own.
    void write(const std::string& text, std::ios::openmode mode = std::ios::out) const
    {
        zelofstream file(target_.c_str(), mode);
        file.stream() << text;
    }

    support::TemporaryDirectory directory_;
    std::string target_ = directory_.file("target.txt");
};

} // namespace

TEST_F(OutputStream, PutsItsTextInTheTargetsPlaceWhenItIsDestroyed)
{
    {
        zelofstream file(target_.c_str(), std::ios::out);
        file.stream() << "old" << std::flush;
        EXPECT_FALSE(std::filesystem::exists(target_));
    }
    auto first = std::make_unique<zelofstream>(target_.c_str(), std::ios::out);
    auto second = std::make_unique<zelofstream>(target_.c_str(), std::ios::out);
    first->stream() << "first" << std::flush;
    second->stream() << "second" << std::flush;
    EXPECT_EQ(readFile(target_), "old");
    second.reset();
    EXPECT_EQ(readFile(target_), "second");
    first.reset();
    EXPECT_EQ(readFile(target_), "first");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory_.path()), {}), 1)
        << "nothing else is left in the directory";
}

TEST_F(OutputStream, WithoutAPathTakesNothing)
{
    EXPECT_FALSE(zelofstream(nullptr, std::ios::out).stream() << "lost");
}

TEST_F(OutputStream, ContinuesTheTargetInAppendMode)
{
    write("first\n", std::ios::app);
    write("second\n", std::ios::out | std::ios::app);
    // The mode out comes by itself.
    write("third\n", std::ios::app);
    EXPECT_EQ(unixLines(readFile(target_)), "first\nsecond\nthird\n");
}

TEST_F(OutputStream, LeavesAnEmptyTargetWhenNothingWasWritten)
{
    support::writeFile(target_, "text");
    write("", std::ios::app);
    EXPECT_EQ(readFile(target_), "text");
    write("");
    EXPECT_TRUE(std::filesystem::exists(target_));
    EXPECT_EQ(readFile(target_), "");
}

TEST_F(OutputStream, CommitsQuietlyAfterAFailedWriteOfAUserWhoAskedForExceptions)
{
    support::writeFile(target_, "old");
    {
        zelofstream file(target_.c_str(), std::ios::out);
        file.stream() << "text";
        file.stream().exceptions(std::ios::failbit | std::ios::badbit);
        EXPECT_THROW(file.stream().setstate(std::ios::badbit), std::ios::failure);
    }
    EXPECT_EQ(readFile(target_), "text");
}
