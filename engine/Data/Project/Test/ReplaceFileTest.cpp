#include "Data/Project/ReplaceFile.h"

#include <cerrno>
#include <filesystem>
#include <set>
#include <utility>

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Data/Project/FileCalls.h"

#include "Support/FailingCalls.h"
#include "Support/MeddledCalls.h"
#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;
using VantrelTest::FailingCalls;
using VantrelTest::MeddledCalls;
using VantrelTest::readFile;
using VantrelTest::writeFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
namespace fs = std::filesystem;

// The first write is interrupted.
struct InterruptedCalls: FileCalls {
    ssize_t write(int file, const void* data, std::size_t size) override {
        if(std::exchange(wasInterrupted, true)) return FileCalls::write(file, data, size);
        errno = EINTR;
        return -1;
    }
    bool wasInterrupted = false;
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
    EXPECT_EQ(replaceFile(path, contents), "");
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
    InterruptedCalls calls;
    EXPECT_EQ(replaceFile(path, contents, calls), "");
    EXPECT_TRUE(calls.wasInterrupted);
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
    for(const bool existed: {true, false})
        for(const int lack: {0, EINVAL}) {
            SCOPED_TRACE(testing::Message() << existed << ' ' << lack);
            int failures = 0;
            for(int failAt = 1;; ++failAt) {
                SCOPED_TRACE(failAt);
                for(const std::string& file: files()) fs::remove(folder / file);
                if(existed) writeFile(path, "old");
                FailingCalls calls;
                calls.writeSize = 1000;
                calls.lack = lack;
                calls.failAt = failAt;
                const std::string error = replaceFile(path, contents, ExpectedFile{stampOf(path)}, calls);
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
            // Create, three writes, flush, close, change places, open and flush the folder; of an old file the mode, and
            // the backup; where files cannot change places link and rename.
            EXPECT_EQ(failures, 9 + (existed ? 2 : 0) + (lack ? 1 : 0) + (lack && existed ? 1 : 0));
        }
}

TEST_F(ReplaceFileTest, whatComesThereAtTheLastMomentIsNotReplaced) {
    for(const bool existed: {true, false})
        for(const bool isReplaced: {true, false}) {
            SCOPED_TRACE(testing::Message() << existed << ' ' << isReplaced);
            for(const std::string& file: files()) fs::remove(folder / file);
            if(existed) writeFile(path, "old");
            MeddledCalls calls;
            calls.meddle = [&] {
                if(!isReplaced) return writeFile(path, "theirs");
                writeFile(folder / "other", "theirs");
                fs::rename(folder / "other", path);
            };
            EXPECT_THAT(replaceFile(path, contents, ExpectedFile{stampOf(path)}, calls),
                HasSubstr("changed by somebody else just now, the file is kept as it is"));
            EXPECT_EQ(readFile(path), "theirs");
            EXPECT_THAT(files(), ElementsAre("project.json"));
        }
}

TEST_F(ReplaceFileTest, whatComesThereAtTheLastMomentIsTheBackupWhereThatIsWishedFor) {
    for(const bool existed: {true, false}) {
        for(const std::string& file: files()) fs::remove(folder / file);
        if(existed) writeFile(path, "old");
        MeddledCalls calls;
        calls.meddle = [&] {
            writeFile(folder / "other", "theirs");
            fs::rename(folder / "other", path);
        };
        EXPECT_EQ(replaceFile(path, contents, calls), "");
        EXPECT_EQ(readFile(path), contents);
        EXPECT_EQ(readFile(folder / "project.json.bak"), "theirs") << existed;
        EXPECT_THAT(files(), ElementsAre("project.json", "project.json.bak"));
    }
}

TEST_F(ReplaceFileTest, aFileThatIsGoneAtTheLastMomentIsMadeAgain) {
    writeFile(path, "old");
    MeddledCalls calls;
    calls.meddle = [&] { fs::remove(path); };
    EXPECT_EQ(replaceFile(path, contents, ExpectedFile{stampOf(path)}, calls), "");
    EXPECT_EQ(readFile(path), contents);
    EXPECT_THAT(files(), ElementsAre("project.json"));
}

// Nor is what comes there while the old contents are put back.
TEST_F(ReplaceFileTest, whatComesThereInBetweenIsKept) {
    struct: FileCalls {
        using FileCalls::rename;
        int rename(const char* from, const char* to, unsigned flags) override {
            writeFile(path + ".other", number ? "second" : "first");
            std::filesystem::rename(path + ".other", path);
            ++number;
            return FileCalls::rename(from, to, flags);
        }
        std::string path;
        int number = 0;
    } calls;
    calls.path = path;
    writeFile(path, "old");
    EXPECT_THAT(replaceFile(path, contents, ExpectedFile{stampOf(path)}, calls),
        HasSubstr("what was there meanwhile is kept as " + path.string() + ".new"));
    EXPECT_EQ(calls.number, 2);
    EXPECT_EQ(readFile(path), "first");
    EXPECT_EQ(readFile(folder / "project.json.new"), "second");
}

// Other file systems, and some that know no second name for a file either.
TEST_F(ReplaceFileTest, withoutAnExchangeItIsLookedAtJustBefore) {
    for(const int lack: {EINVAL, ENOSYS}) {
        writeFile(path, "old");
        MeddledCalls calls;
        calls.lack = lack;
        calls.meddle = [&] { writeFile(path, "theirs"); };
        const ExpectedFile expected{stampOf(path)};
        EXPECT_THAT(replaceFile(path, contents, expected, calls), HasSubstr("changed by somebody else"));
        EXPECT_EQ(readFile(path), "theirs");
        EXPECT_EQ(replaceFile(path, contents, ExpectedFile{stampOf(path)}, calls), "");
        EXPECT_EQ(readFile(path), contents);
        EXPECT_EQ(readFile(folder / "project.json.bak"), "theirs");
        EXPECT_THAT(files(), ElementsAre("project.json", "project.json.bak"));
    }
}

TEST_F(ReplaceFileTest, withoutSecondNamesTheBackupIsACopy) {
    struct: FailingCalls {
        int link(const char*, const char*) override {
            errno = EPERM;
            return -1;
        }
    } calls;
    calls.lack = EINVAL;
    writeFile(path, "old");
    EXPECT_EQ(replaceFile(path, contents, calls), "");
    EXPECT_EQ(readFile(path), contents);
    EXPECT_EQ(readFile(folder / "project.json.bak"), "old");
    EXPECT_THAT(files(), ElementsAre("project.json", "project.json.bak"));
    // Also where the copy fails.
    writeFile(path, "old");
    calls.count = 0;
    calls.failAt = 9;
    EXPECT_THAT(replaceFile(path, contents, calls), HasSubstr("cannot write"));
    EXPECT_EQ(readFile(path), "old");
    EXPECT_THAT(files(), ElementsAre("project.json", "project.json.bak"));
}

TEST_F(ReplaceFileTest, aFolderIsNotReplaced) {
    fs::create_directory(path);
    EXPECT_THAT(replaceFile(path, contents), HasSubstr("it is no regular file"));
    EXPECT_TRUE(fs::is_directory(path));
    EXPECT_THAT(files(), ElementsAre("project.json"));
}

TEST_F(ReplaceFileTest, aFolderThatIsNotThere) {
    EXPECT_THAT(replaceFile(folder / "nowhere" / "project.json", "new"), HasSubstr("No such file or directory"));
}

}
