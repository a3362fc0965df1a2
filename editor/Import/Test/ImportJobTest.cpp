#include "Import/ImportJob.h"

#include <chrono>
#include <csignal>
#include <dirent.h>
#include <fcntl.h>
#include <sys/wait.h>
#include <thread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using VantrelTest::readFile;
using VantrelTest::TestFolder;

class ImportJobTest: public testing::Test {
protected:
    std::string source(const std::string& contents) {
        folder.write("a.glb", contents);
        return folder.path("a.glb");
    }
    std::unique_ptr<ImportJob> start(const std::string& contents, unsigned seconds = 5) {
        return std::make_unique<ImportJob>(FAKE_CONVERTER, source(contents), ImportLimits{seconds, 1u << 30});
    }
    static ImportJob::State finish(ImportJob& job) {
        while(job.update() == ImportJob::State::Running) job.wait();
        return job.update();
    }
    std::string errorOf(const std::string& contents, unsigned seconds = 5) {
        const auto job = start(contents, seconds);
        EXPECT_EQ(finish(*job), ImportJob::State::Failed);
        return job->error();
    }
    static bool isThere(pid_t process) { return kill(process, 0) == 0; }
    // In vain, while somebody who was given to the first process is not waited for by it.
    static bool isGoneSoon(pid_t process) {
        for(int i = 0; i != 100 && isThere(process); ++i) {
            const std::string status = readFile("/proc/" + std::to_string(process) + "/stat");
            if(status.find(") Z ") != status.npos) return true;
            std::this_thread::sleep_for(std::chrono::milliseconds{10});
        }
        return !isThere(process);
    }
    TestFolder folder;
};

TEST_F(ImportJobTest, SaysHowFarItIsAndLeavesAFolderThatGoesWithIt) {
    auto job = start("scene box 1");
    EXPECT_EQ(finish(*job), ImportJob::State::Done);
    EXPECT_EQ(job->error(), "");
    EXPECT_EQ(job->name(), "a.glb");
    EXPECT_EQ(job->fraction(), 0.5f);
    EXPECT_EQ(job->stage(), "writing");
    EXPECT_THAT(job->takeWarnings(), ElementsAre("a part was left out"));
    EXPECT_THAT(job->takeWarnings(), ElementsAre());
    const std::string result = job->folder();
    EXPECT_TRUE(std::filesystem::exists(result + "/import.json"));
    job.reset();
    EXPECT_FALSE(std::filesystem::exists(result));
}

TEST_F(ImportJobTest, WhatGoesWrongIsOneLine) {
    EXPECT_EQ(errorOf("crash"), "the converter crashed (signal 6)");
    EXPECT_EQ(errorOf("status 7"), "the converter failed with status 7");
    EXPECT_EQ(errorOf("say progress 0.5 half\n"), "the converter ended before it was done");
    EXPECT_EQ(errorOf("say error no\tmesh\x01in it\nerror another\ndone\n"), "no mesh in it");
    EXPECT_EQ(errorOf("say error\n"), "the file cannot be read");
    EXPECT_EQ(errorOf("hang", 1), "it took more than 1 seconds");
    EXPECT_EQ(errorOf("flood", 1), "it took more than 1 seconds");
}

TEST_F(ImportJobTest, WhatCannotBeStartedFailsAtOnce) {
    ImportJob missing{FAKE_CONVERTER, folder.path("missing.glb")};
    EXPECT_EQ(missing.update(), ImportJob::State::Failed);
    EXPECT_EQ(missing.error(), "there is no such file");
    ImportJob noFile{FAKE_CONVERTER, folder.path().string()};
    EXPECT_EQ(noFile.error(), "this is not a regular file");
    ImportJob noConverter{folder.path("converter"), source("scene box 1")};
    EXPECT_EQ(noConverter.update(), ImportJob::State::Failed);
    EXPECT_THAT(noConverter.error(), HasSubstr("cannot be started: No such file or directory"));
}

TEST_F(ImportJobTest, CancellingEndsAProcessThatHangs) {
    auto job = start("hang");
    std::this_thread::sleep_for(std::chrono::milliseconds{50});
    EXPECT_EQ(job->update(), ImportJob::State::Running);
    const std::string result = job->folder();
    const auto before = std::chrono::steady_clock::now();
    job.reset();
    EXPECT_LT(std::chrono::steady_clock::now() - before, std::chrono::seconds{1});
    EXPECT_FALSE(std::filesystem::exists(result));
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(errno, ECHILD);
}

TEST_F(ImportJobTest, WhoeverStaysBehindGoesWithTheGroup) {
    EXPECT_EQ(errorOf("orphan " + folder.path("process")), "the converter failed with status 3");
    const pid_t orphan = std::atoi(readFile(folder.path("process")).data());
    ASSERT_GT(orphan, 1);
    EXPECT_TRUE(isGoneSoon(orphan));
}

TEST_F(ImportJobTest, FilesOfThisProcessAreNotHandedOn) {
    // Of a kind that would be: not marked to be closed.
    const int file = open("/dev/null", O_RDONLY);
    auto job = start("hang");
    std::vector<std::string> open;
    std::string child;
    // The only child.
    std::ifstream{"/proc/self/task/" + std::to_string(getpid()) + "/children"} >> child;
    for(int i = 0; i != 100 && readFile("/proc/" + child + "/comm").find("FakeConv") == std::string::npos; ++i)
        std::this_thread::sleep_for(std::chrono::milliseconds{10});
    std::this_thread::sleep_for(std::chrono::milliseconds{30});
    if(DIR* const files = opendir(("/proc/" + child + "/fd").data())) {
        while(const dirent* const entry = readdir(files))
            if(entry->d_name[0] != '.') open.emplace_back(entry->d_name);
        closedir(files);
    }
    close(file);
    // Its source is read already, but not closed.
    EXPECT_THAT(open, testing::UnorderedElementsAre("0", "1", "2", "3"));
}

TEST(ConverterLinesTest, OnlyWhatIsUnderstoodCounts) {
    ConverterLines lines;
    lines.add("progress 0.5 ha");
    EXPECT_EQ(lines.fraction(), 0.0f);
    lines.add("lf\nprogress 0.25 back\nprogress nan x\nprogress 7 over\nnonsense\n\n\xff\xfe\nwarnings none\ndone \n");
    EXPECT_EQ(lines.fraction(), 1.0f);
    EXPECT_EQ(lines.stage(), "over");
    EXPECT_FALSE(lines.isDone());
    lines.add("warning caf\xc3\xa9 \x1b[31m\nwarning \xff!\ndone\n");
    EXPECT_TRUE(lines.isDone());
    EXPECT_THAT(lines.takeWarnings(), ElementsAre("caf\xc3\xa9  [31m", "?!"));
    EXPECT_EQ(lines.error(), "");
}

TEST(ConverterLinesTest, LongLinesAndManyWarningsAreCut) {
    ConverterLines lines;
    lines.add("warning " + std::string(100000, 'x') + "\n");
    const std::vector<std::string> first = lines.takeWarnings();
    ASSERT_EQ(first.size(), 1u);
    EXPECT_EQ(first[0].size(), ConverterLines::MaxLine - 8 + 3);
    for(int i = 0; i != 1000; ++i) lines.add("warning again\n");
    const std::vector<std::string> more = lines.takeWarnings();
    EXPECT_EQ(more.size(), ConverterLines::MaxWarnings);
    EXPECT_EQ(more.back(), "there are more warnings");
}

} // namespace

} // namespace VantrelEngine
