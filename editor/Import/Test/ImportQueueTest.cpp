#include "Import/ImportQueue.h"

#include <dirent.h>
#include <sys/wait.h>
#include <thread>

#include "ImportFixture.h"

namespace VantrelEngine {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class ImportQueueTest: public VantrelTest::ImportFixture {
protected:
    static std::size_t openFiles() {
        std::size_t count = 0;
        if(DIR* const files = opendir("/proc/self/fd")) {
            while(readdir(files)) ++count;
            closedir(files);
        }
        return count;
    }
    // Goes on for so long.
    std::vector<ImportResult> update(int milliseconds) {
        std::vector<ImportResult> results;
        for(int i = 0; i < milliseconds; i += 5) {
            for(ImportResult& result: queue.update()) results.push_back(std::move(result));
            std::this_thread::sleep_for(std::chrono::milliseconds{5});
        }
        return results;
    }
};

TEST_F(ImportQueueTest, FilesComeOneAfterTheOther) {
    queue.add(source("a.glb", "scene a 1"));
    queue.add(source("b.OBJ", "crash"));
    queue.add(source("c.png", "scene c 0"));
    EXPECT_TRUE(queue.isBusy());
    EXPECT_FALSE(queue.progress());
    std::vector<ImportResult> results;
    const std::string errors = printed<Corrade::Utility::Error>([&] { results = queue.finish(); });
    EXPECT_FALSE(queue.isBusy());
    ASSERT_EQ(results.size(), 3u);
    EXPECT_EQ(results[0].source, folder.path("sources/a.glb"));
    EXPECT_THAT(results[0].inserted.roots, ElementsAre("a"));
    EXPECT_EQ(errors, "b.OBJ: the converter crashed (signal 6)\n");
    EXPECT_THAT(results[2].inserted.roots, ElementsAre("c"));
    changes().undoLast();
    EXPECT_TRUE(at("/objects/a"));
    EXPECT_FALSE(at("/objects/c"));
}

TEST_F(ImportQueueTest, OtherFilesAreRefused) {
    EXPECT_EQ(printed<Corrade::Utility::Error>([&] { queue.add("/tmp/a.txt"); }),
        "/tmp/a.txt: files of this kind cannot be imported\n");
    EXPECT_FALSE(queue.isBusy());
}

TEST_F(ImportQueueTest, WarningsAreSaid) {
    EXPECT_EQ(printed([&] { import("scene a 0"); }), "a.glb: a part was left out\n");
}

TEST_F(ImportQueueTest, GoesOnWhileTheProjectIsEdited) {
    queue.add(source("a.glb", "slow 0.4"));
    EXPECT_TRUE(update(150).empty());
    ASSERT_TRUE(queue.progress());
    EXPECT_EQ(queue.progress()->name, "a.glb");
    EXPECT_THAT(queue.progress()->stage, HasSubstr("step "));
    const float before = queue.progress()->fraction;
    EXPECT_GT(before, 0.0f);
    record("/objects/slow", object());
    update(150);
    EXPECT_GT(queue.progress()->fraction, before);
    const std::vector<ImportResult> results = queue.finish();
    ASSERT_EQ(results.size(), 1u);
    EXPECT_THAT(results[0].inserted.roots, ElementsAre("slow-2"));
    EXPECT_EQ(textAt("/objects/slow/name"), "N");
    EXPECT_EQ(textAt("/objects/slow-2/name"), "slow");
}

TEST_F(ImportQueueTest, AnOpenGroupIsNotBrokenIntoTwo) {
    changes().beginGroup();
    record("/objects/mine", object());
    queue.add(source("a.glb", "scene a 0"));
    EXPECT_TRUE(update(300).empty());
    EXPECT_FALSE(at("/objects/a"));
    changes().commit();
    EXPECT_EQ(update(20).size(), 1u);
    changes().undoLast();
    EXPECT_TRUE(at("/objects/mine"));
    EXPECT_FALSE(at("/objects/a"));
}

TEST_F(ImportQueueTest, CancellingGivesUpTheOneThatIsRead) {
    const std::string before = document();
    queue.add(source("a.glb", "hang"));
    queue.add(source("b.glb", "scene b 0"));
    update(50);
    queue.cancel();
    EXPECT_EQ(document(), before);
    const std::vector<ImportResult> results = queue.finish();
    ASSERT_EQ(results.size(), 1u);
    EXPECT_THAT(results[0].inserted.roots, ElementsAre("b"));
}

TEST_F(ImportQueueTest, AnotherProjectGetsNothingOfThem) {
    queue.add(source("a.glb", "slow 0.2"));
    queue.add(source("b.glb", "scene b 0"));
    update(20);
    session.startNew();
    EXPECT_TRUE(update(20).empty());
    EXPECT_FALSE(queue.isBusy());
    EXPECT_EQ(countOf("objects"), 0u);
}

TEST_F(ImportQueueTest, AHundredInARowLeaveNothingBehind) {
    const auto temporary = [] {
        std::size_t count = 0;
        for(const auto& entry: std::filesystem::directory_iterator{std::filesystem::temp_directory_path()})
            count += entry.path().filename().string().compare(0, 15, "vantrel-import-") == 0;
        return count;
    };
    const char* const kinds[]{"scene a 3", "crash", "say rubbish", "scene b 2", "document {}"};
    const std::string files[]{source("0.glb", kinds[0]), source("1.glb", kinds[1]), source("2.glb", kinds[2]),
        source("3.glb", kinds[3]), source("4.glb", kinds[4])};
    const std::size_t filesBefore = openFiles(), foldersBefore = temporary();
    printed<Corrade::Utility::Error>([&] {
        for(int i = 0; i != 100; ++i) queue.importNow(files[i % 5]);
    });
    EXPECT_EQ(openFiles(), filesBefore);
    EXPECT_LE(temporary(), foldersBefore);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(importedFiles(), 2u);
    EXPECT_EQ(countOf("materials"), 4u);
    while(changes().canUndo()) changes().undoLast();
    EXPECT_EQ(countOf("objects"), 0u);
}

} // namespace

} // namespace VantrelEngine
