#include "Data/Project/ReplaceFile.h"

#include <cerrno>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <set>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Data/Project/FileCalls.h"

#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;
using VantrelTest::readFile;
using VantrelTest::writeFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;

// Counts the calls; the one with the number failAt fails (the first is 1).
struct CountingCalls: FileCalls {
    bool fails() {
        if(++count != failAt) return false;
        errno = ENOSPC;
        return true;
    }
    int open(const char* path, int flags, mode_t mode) override {
        return fails() ? -1 : FileCalls::open(path, flags, mode);
    }
    ssize_t write(int file, const void* data, std::size_t size) override {
        if(fails()) return -1;
        if(interrupt && !interrupted) {
            interrupted = true;
            errno = EINTR;
            return -1;
        }
        // Short writes, as a full pipe or a signal makes them.
        return FileCalls::write(file, data, std::min<std::size_t>(size, 1000));
    }
    int fsync(int file) override { return fails() ? -1 : FileCalls::fsync(file); }
    int close(int file) override {
        // The file is closed also when that fails.
        const int result = FileCalls::close(file);
        return fails() ? -1 : result;
    }
    int fchmod(int file, mode_t mode) override { return fails() ? -1 : FileCalls::fchmod(file, mode); }
    int link(const char* from, const char* to) override { return fails() ? -1 : FileCalls::link(from, to); }
    int rename(const char* from, const char* to) override { return fails() ? -1 : FileCalls::rename(from, to); }
    // Cleaning up after a failure is not what fails.

    int count = 0, failAt = 0;
    bool interrupt = false, interrupted = false;
};

struct ReplaceFileTest: testing::Test {
    std::set<std::string> files() const {
        std::set<std::string> names;
        for(const auto& entry: fs::directory_iterator{folder}) names.insert(entry.path().filename());
        return names;
    }

    VantrelTest::TestFolder testFolder;
    const fs::path folder = testFolder.path();
    const fs::path path = folder / "project.json";
    const std::string contents = std::string(2500, 'n') + "\0new";
};

TEST_F(ReplaceFileTest, writesANewFile) {
    CountingCalls calls;
    EXPECT_EQ(replaceFile(path, contents, calls), "");
    EXPECT_EQ(readFile(path), contents);
    EXPECT_THAT(files(), ElementsAre("project.json"));
}

TEST_F(ReplaceFileTest, replacesAndKeepsOneBackup) {
    writeFile(path, "first");
    EXPECT_EQ(replaceFile(path, "second"), "");
    EXPECT_EQ(readFile(path), "second");
    EXPECT_EQ(readFile(folder / "project.json.bak"), "first");
    EXPECT_EQ(replaceFile(path, "third"), "");
    EXPECT_EQ(readFile(path), "third");
    EXPECT_EQ(readFile(folder / "project.json.bak"), "second");
    EXPECT_THAT(files(), ElementsAre("project.json", "project.json.bak"));
}

TEST_F(ReplaceFileTest, goesOnAfterAnInterruption) {
    CountingCalls calls;
    calls.interrupt = true;
    EXPECT_EQ(replaceFile(path, contents, calls), "");
    EXPECT_TRUE(calls.interrupted);
    EXPECT_EQ(readFile(path), contents);
}

TEST_F(ReplaceFileTest, keepsTheMode) {
    writeFile(path, "old");
    chmod(path.c_str(), 0640);
    EXPECT_EQ(replaceFile(path, "new"), "");
    struct stat status;
    ASSERT_EQ(stat(path.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0640u);
}

TEST_F(ReplaceFileTest, aSymbolicLinkStaysOne) {
    fs::create_directories(folder / "elsewhere");
    writeFile(folder / "elsewhere" / "target.json", "old");
    fs::create_symlink("elsewhere/target.json", path);
    EXPECT_EQ(replaceFile(path, "new"), "");
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(readFile(folder / "elsewhere" / "target.json"), "new");
    EXPECT_EQ(readFile(folder / "elsewhere" / "target.json.bak"), "old");
}

TEST_F(ReplaceFileTest, aLinkToNothingGetsItsTarget) {
    fs::create_symlink("target.json", path);
    EXPECT_EQ(replaceFile(path, "new"), "");
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(readFile(folder / "target.json"), "new");
}

TEST_F(ReplaceFileTest, filesThatStandBesideItAreLeftAlone) {
    writeFile(path, "old");
    writeFile(folder / "project.json.new", "half");
    writeFile(folder / "project.json.old", "older");
    EXPECT_EQ(replaceFile(path, "new"), "");
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(readFile(folder / "project.json.bak"), "old");
    EXPECT_EQ(readFile(folder / "project.json.new"), "half");
    EXPECT_EQ(readFile(folder / "project.json.old"), "older");
    EXPECT_THAT(files(), ElementsAre("project.json", "project.json.bak", "project.json.new", "project.json.old"));
}

TEST_F(ReplaceFileTest, anyCallThatFailsLeavesTheOldContents) {
    for(const bool existed: {true, false}) {
        SCOPED_TRACE(existed);
        int failures = 0;
        for(int failAt = 1;; ++failAt) {
            SCOPED_TRACE(failAt);
            for(const std::string& file: files()) fs::remove(folder / file);
            if(existed) writeFile(path, "old");
            CountingCalls calls;
            calls.failAt = failAt;
            const std::string error = replaceFile(path, contents, calls);
            if(calls.count < failAt) {
                EXPECT_EQ(error, "");
                break;
            }
            // Only closing the folder may fail without harm: all is on the disk by then.
            if(error.empty()) {
                EXPECT_EQ(readFile(path), contents);
                continue;
            }
            ++failures;
            EXPECT_THAT(error, HasSubstr("cannot "));
            EXPECT_THAT(error, HasSubstr("No space left on device"));
            EXPECT_EQ(fs::exists(path), existed);
            EXPECT_EQ(readFile(path), existed ? "old" : "");
            if(existed)
                EXPECT_THAT(files(), ElementsAre("project.json"));
            else
                EXPECT_THAT(files(), IsEmpty());
        }
        // Create, mode, three writes, flush, close, link, rename, open and flush the folder, keep the backup.
        EXPECT_EQ(failures, existed ? 12 : 9);
    }
}

TEST_F(ReplaceFileTest, aFolderThatIsNotThere) {
    EXPECT_THAT(replaceFile(folder / "nowhere" / "project.json", "new"), HasSubstr("No such file or directory"));
}

}
