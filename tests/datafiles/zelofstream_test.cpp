#include <zelstandard/datafiles/zelofstream.h>

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <string>

#include "support/Files.h"

using support::readFile;
using support::TemporaryDirectory;
using support::unixLines;

namespace
{

class OutputStream : public testing::Test
{
protected:
    /// Writes a text through a stream of its own.
    static void write(const std::string& path, const std::string& text,
                      std::ios::openmode mode = std::ios::out)
    {
        zelofstream file(path.c_str(), mode);
        file.stream() << text;
    }

    /// Removes the files in the system's temporary directory that hold kept_; how many there were.
    int takeKeptFiles()
    {
        int count = 0;
        for (const auto& entry :
             std::filesystem::directory_iterator(std::filesystem::temp_directory_path())) {
            const std::string name = entry.path().filename().string();
            if (name.starts_with("zel") && entry.is_regular_file() &&
                readFile(entry.path()) == kept_) {
                std::filesystem::remove(entry.path());
                ++count;
            }
        }
        return count;
    }

    TemporaryDirectory directory_;
    std::string target_ = directory_.file("target.txt");
    /// A text that no other test writes.
    std::string kept_ = directory_.path().string();
};

} // namespace

TEST_F(OutputStream, PutsItsTextInTheTargetsPlaceWhenItIsDestroyed)
{
    support::writeFile(target_, "an older text that is longer");
    {
        zelofstream file(target_.c_str(), std::ios::out);
        file.stream() << "new text" << std::flush;
        EXPECT_TRUE(file.stream().good());
        EXPECT_EQ(readFile(target_), "an older text that is longer");
    }
    EXPECT_EQ(readFile(target_), "new text");
}

TEST_F(OutputStream, CreatesATargetThatDidNotExist)
{
    {
        zelofstream file(target_.c_str(), std::ios::out);
        file.stream() << "text" << std::flush;
        EXPECT_FALSE(std::filesystem::exists(target_));
    }
    EXPECT_EQ(readFile(target_), "text");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(directory_.path()), {}), 1)
        << "nothing else is left in the directory";
}

TEST_F(OutputStream, ContinuesTheTargetInAppendMode)
{
    support::writeFile(target_, "first\n");
    write(target_, "second\n", std::ios::out | std::ios::app);
    EXPECT_EQ(unixLines(readFile(target_)), "first\nsecond\n");
    // The mode out comes by itself.
    write(target_, "third\n", std::ios::app);
    EXPECT_EQ(unixLines(readFile(target_)), "first\nsecond\nthird\n");

    write(directory_.file("new.txt"), "only\n", std::ios::app);
    EXPECT_EQ(unixLines(readFile(directory_.file("new.txt"))), "only\n");
}

TEST_F(OutputStream, LeavesAnEmptyTargetWhenNothingWasWritten)
{
    support::writeFile(target_, "text");
    write(target_, "", std::ios::app);
    EXPECT_EQ(readFile(target_), "text");
    write(target_, "");
    EXPECT_TRUE(std::filesystem::exists(target_));
    EXPECT_EQ(readFile(target_), "");
}

TEST_F(OutputStream, CommitsInTheOrderOfDestruction)
{
    auto first = std::make_unique<zelofstream>(target_.c_str(), std::ios::out);
    auto second = std::make_unique<zelofstream>(target_.c_str(), std::ios::out);
    first->stream() << "first";
    second->stream() << "second";
    second.reset();
    EXPECT_EQ(readFile(target_), "second");
    first.reset();
    EXPECT_EQ(readFile(target_), "first");
}

TEST_F(OutputStream, CommitsEvenAfterAFailedWrite)
{
    support::writeFile(target_, "old");
    {
        zelofstream file(target_.c_str(), std::ios::out);
        file.stream() << "text";
        file.stream().setstate(std::ios::badbit);
        file.stream() << " that is lost";
    }
    EXPECT_EQ(readFile(target_), "text");
}

TEST_F(OutputStream, KeepsItsTextInTheTemporaryDirectoryWhenTheTargetsIsMissing)
{
    write(directory_.file("missing/target.txt"), kept_);
    EXPECT_FALSE(std::filesystem::exists(directory_.file("missing")));
    EXPECT_EQ(takeKeptFiles(), 1);
}

TEST_F(OutputStream, LeavesADirectoryThatHasTheTargetsName)
{
    std::filesystem::create_directories(directory_.path() / "target.txt" / "inner");
    write(target_, kept_);
    EXPECT_TRUE(std::filesystem::is_directory(directory_.path() / "target.txt" / "inner"));
    // One without contents stays too.
    std::filesystem::remove(directory_.path() / "target.txt" / "inner");
    write(target_, kept_);
    EXPECT_TRUE(std::filesystem::is_directory(target_));
    EXPECT_EQ(takeKeptFiles(), 2);
}

TEST_F(OutputStream, TakesNothingWhenItsFileDoesNotOpen)
{
    support::writeFile(target_, kept_);
    {
        // No file is opened in this mode.
        zelofstream file(target_.c_str(), std::ios::app | std::ios::trunc);
        EXPECT_FALSE(file.stream().good());
        file.stream() << "text" << 1.5 << std::endl;
        file.stream().flush();
        EXPECT_FALSE(file.stream().good());
    }
    EXPECT_EQ(readFile(target_), kept_);
    EXPECT_EQ(takeKeptFiles(), 1) << "appending had copied the target already";
}

TEST_F(OutputStream, IsDestroyedQuietlyWhenItsUserAskedForExceptions)
{
    {
        zelofstream file(target_.c_str(), std::ios::out);
        file.stream() << "text";
        file.stream().exceptions(std::ios::failbit | std::ios::badbit);
        EXPECT_THROW(file.stream().setstate(std::ios::badbit), std::ios::failure);
    }
    EXPECT_EQ(readFile(target_), "text");
}
