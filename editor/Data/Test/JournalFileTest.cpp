#include "Data/JournalFile.h"

#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <mutex>
#include <thread>
#include <utility>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include "Data/JournalLines.h"
#include "Data/Project/FileCalls.h"

#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;

struct FullDisk: FileCalls {
    ssize_t write(int file, const void* data, std::size_t size) override {
        if(size <= room) {
            room -= size;
            return FileCalls::write(file, data, size);
        }
        const std::size_t rest = std::exchange(room, 0);
        if(rest) return FileCalls::write(file, data, rest);
        errno = ENOSPC;
        return -1;
    }
    std::size_t room = 1000000;
};

struct JournalFileTest: testing::Test {
    std::vector<std::string> lines() const {
        const std::string text = VantrelTest::readFile(path);
        std::vector<std::string> lines;
        for(const JournalLine& line: readJournalLines(text)) lines.emplace_back(line.text);
        isWhole = text.size() == (lines.empty() ? 0 : readJournalLines(text).back().size);
        return lines;
    }
    using Lines = std::vector<std::string>;

    VantrelTest::TestFolder folder;
    const std::string path = folder.path(".scene.json.journal");
    FullDisk calls;
    JournalFile file{calls};
    mutable bool isWhole = false;
};

TEST_F(JournalFileTest, linesAreAdded) {
    EXPECT_EQ(journalPath(folder.path("scene.json")), path);
    ASSERT_EQ(file.open(path), "");
    EXPECT_EQ(file.add({"one", "two"}), "");
    EXPECT_EQ(file.add({"three"}), "");
    EXPECT_EQ(lines(), (Lines{"one", "two", "three"}));
    std::string text;
    EXPECT_EQ(file.read(text), "");
    EXPECT_EQ(text, VantrelTest::readFile(path));
    EXPECT_EQ(file.size(), text.size());
    file.close();
    EXPECT_EQ(lines().size(), 3u) << "it stays";
    ASSERT_EQ(file.openExisting(path), "");
    file.remove();
    EXPECT_NE(file.openExisting(path), "");
    EXPECT_FALSE(file.isInUse());
}

TEST_F(JournalFileTest, aProjectHasOneWhicheverLinkLeadsToIt) {
    folder.write("scene.json", "{}");
    std::filesystem::create_directory(folder.path("links"));
    std::filesystem::create_symlink("../scene.json", folder.path("links/other.json"));
    EXPECT_TRUE(std::filesystem::path{journalPath(folder.path("links/other.json"))} ==
        std::filesystem::canonical(folder.path()) / ".scene.json.journal");
    EXPECT_EQ(journalPath("scene-that-is-not-there.json"), ".scene-that-is-not-there.json.journal");
}

TEST_F(JournalFileTest, thereIsOneWriter) {
    ASSERT_EQ(file.open(path), "");
    JournalFile other{calls};
    EXPECT_EQ(other.open(path), "it is open in another editor");
    EXPECT_TRUE(other.isInUse());
    EXPECT_FALSE(other.isOpen());
    // Also of the one that takes its place.
    ASSERT_EQ(file.replace({"new"}), "");
    EXPECT_EQ(other.openExisting(path), "it is open in another editor");
    file.close();
    EXPECT_EQ(other.openExisting(path), "");
    EXPECT_FALSE(other.isInUse());
}

TEST_F(JournalFileTest, goesOnBehindWhatCounts) {
    ASSERT_EQ(file.open(path), "");
    ASSERT_EQ(file.add({"one", "two", "three"}), "");
    const std::string text = VantrelTest::readFile(path);
    const JournalLine second = readJournalLines(text)[1];
    ASSERT_EQ(file.continueAt(second.size, second.checksum), "");
    ASSERT_EQ(file.add({"other"}), "");
    EXPECT_EQ(lines(), (Lines{"one", "two", "other"}));
    EXPECT_TRUE(isWhole);
}

TEST_F(JournalFileTest, aFullDiskLeavesNoHalves) {
    ASSERT_EQ(file.open(path), "");
    ASSERT_EQ(file.add({"one"}), "");
    calls.room = 30;
    EXPECT_EQ(file.add({"two", "three"}), "No space left on device");
    EXPECT_EQ(file.add({"two", "three"}), "No space left on device");
    calls.room = 1000;
    ASSERT_EQ(file.add({"four"}), "");
    EXPECT_EQ(lines(), (Lines{"one", "four"}));
    EXPECT_TRUE(isWhole);
    calls.room = 3;
    EXPECT_NE(file.replace({"all", "of it"}), "");
    EXPECT_EQ(lines(), (Lines{"one", "four"})) << "the old one is still there";
    EXPECT_FALSE(std::filesystem::exists(path + ".new"));
    calls.room = 1000;
    ASSERT_EQ(file.replace({"all", "of it"}), "");
    ASSERT_EQ(file.add({"and more"}), "");
    EXPECT_EQ(lines(), (Lines{"all", "of it", "and more"}));
}

TEST_F(JournalFileTest, whatSomebodyElsePutInItsPlaceIsLeftAlone) {
    ASSERT_EQ(file.open(path), "");
    ASSERT_EQ(file.add({"one"}), "");
    std::filesystem::remove(path);
    EXPECT_EQ(file.add({"two"}), "the file is gone");
    VantrelTest::writeFile(path, "somebody else's");
    EXPECT_EQ(file.add({"two"}), "the file is gone");
    file.remove();
    EXPECT_EQ(VantrelTest::readFile(path), "somebody else's");
    // Nor is a link followed to a file that is none of ours.
    std::filesystem::create_symlink(path, folder.path("link"));
    EXPECT_NE(file.open(folder.path("link")), "");
    EXPECT_NE(file.open(folder.path("missing/journal")), "");
}

// The calls by which a file comes to its place.
struct NotedCalls: FileCalls {
    int fdatasync(int file) override {
        calls += "flush ";
        return FileCalls::fdatasync(file);
    }
    int rename(const char* from, const char* to) override {
        calls += "rename ";
        return FileCalls::rename(from, to);
    }
    std::string calls;
};

TEST_F(JournalFileTest, whatTakesTheFilesPlaceIsOnTheDiskBefore) {
    NotedCalls noted;
    JournalFile other{noted};
    ASSERT_EQ(other.open(path), "");
    ASSERT_EQ(other.replace({"one"}), "");
    other.close();
    EXPECT_EQ(noted.calls, "flush rename flush ") << "and its name";
    EXPECT_EQ(lines(), Lines{"one"});
}

// A disk that takes as long as it is told to.
struct SlowDisk: FileCalls {
    int fdatasync(int file) override {
        struct stat status;
        fstat(file, &status);
        std::unique_lock<std::mutex> lock{mutex};
        ++begun;
        changed.notify_all();
        changed.wait(lock, [this] { return allowed >= begun; });
        flushed = std::size_t(status.st_size);
        changed.notify_all();
        errno = EIO;
        return fails ? -1 : 0;
    }
    void allow(int count) {
        const std::lock_guard<std::mutex> lock{mutex};
        allowed = count;
        changed.notify_all();
    }
    template<class Condition> bool waitFor(Condition&& condition) {
        std::unique_lock<std::mutex> lock{mutex};
        return changed.wait_for(lock, std::chrono::seconds{10}, condition);
    }

    std::mutex mutex;
    std::condition_variable changed;
    int begun = 0, allowed = 0;
    std::size_t flushed = 0;
    std::atomic<bool> fails{false};
};

TEST_F(JournalFileTest, whatIsWrittenDuringAFlushIsFlushedNext) {
    SlowDisk disk;
    JournalFile slow{disk};
    ASSERT_EQ(slow.open(path), "");
    ASSERT_EQ(slow.add({"one"}), "");
    const std::size_t first = slow.size();
    EXPECT_TRUE(disk.waitFor([&] { return disk.begun == 1; }));
    ASSERT_EQ(slow.add({"two"}), "");
    ASSERT_EQ(slow.add({"three"}), "");
    disk.allow(1);
    EXPECT_TRUE(disk.waitFor([&] { return disk.begun == 2; })) << "nobody adds anything more";
    EXPECT_EQ(disk.flushed, first);
    disk.allow(1000);
    EXPECT_TRUE(disk.waitFor([&] { return disk.flushed == slow.size(); }));
    slow.close();
    EXPECT_EQ(disk.begun, 2) << "one for both";
}

TEST_F(JournalFileTest, tellsOnceWhatTheDiskDidNotTake) {
    SlowDisk disk;
    disk.allow(1000);
    disk.fails = true;
    JournalFile bad{disk};
    ASSERT_EQ(bad.open(path), "");
    EXPECT_EQ(bad.takeFlushError(), "");
    ASSERT_EQ(bad.add({"one"}), "");
    std::string error;
    EXPECT_TRUE(disk.waitFor([&] { return disk.flushed != 0; }));
    for(int i = 0; i != 1000 && error.empty(); ++i) {
        error = bad.takeFlushError();
        std::this_thread::sleep_for(std::chrono::milliseconds{1});
    }
    EXPECT_EQ(error, "Input/output error");
    EXPECT_EQ(bad.takeFlushError(), "");
}

} // namespace
