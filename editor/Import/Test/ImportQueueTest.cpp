#include "Import/ImportQueue.h"

#include <VantrelHost/ResourceCompiler.h>
#include <dirent.h>
#include <set>
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
            for(ImportResult& result: queue.update(0.01)) results.push_back(std::move(result));
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

TEST_F(ImportQueueTest, WhatWaitsForAGroupIsNotWaitedFor) {
    changes().beginGroup();
    record("/objects/mine", object());
    queue.add(source("a.glb", "scene a 0"));
    EXPECT_TRUE(queue.finish().empty());
    EXPECT_TRUE(queue.isBusy());
    changes().commit();
    EXPECT_EQ(queue.finish().size(), 1u);
    EXPECT_TRUE(at("/objects/a"));
}

TEST_F(ImportQueueTest, NothingIsImportedAtOnceIntoAnOpenGroup) {
    const std::string file = source("a.glb", "scene a 0");
    changes().beginGroup();
    record("/objects/mine", object());
    EXPECT_EQ(printed<Corrade::Utility::Error>([&] { EXPECT_NE(queue.importNow(file).error, ""); }),
        "a.glb: nothing can be imported while something else is being changed\n");
    changes().commit();
    EXPECT_FALSE(at("/objects/a"));
    EXPECT_EQ(queue.importNow(file).error, "");
    changes().undoLast();
    EXPECT_TRUE(at("/objects/mine"));
    EXPECT_FALSE(at("/objects/a"));
}

TEST_F(ImportQueueTest, WaitsForTheEndOfATrial) {
    for(const bool isKept: {true, false}) {
        const std::string name = isKept ? "kept" : "dropped";
        changes().beginTrial(Trial::Gesture);
        record("/objects/mine-" + name, object());
        queue.add(source(name + ".glb", "scene " + name + " 0"));
        EXPECT_TRUE(queue.finish().empty());
        EXPECT_FALSE(at("/objects/" + name));
        isKept ? changes().keepTrial() : changes().dropTrial();
        EXPECT_EQ(queue.finish().size(), 1u);
        EXPECT_TRUE(at("/objects/" + name));
        EXPECT_EQ(bool(at("/objects/mine-" + name)), isKept);
        changes().undoLast();
        EXPECT_FALSE(at("/objects/" + name));
        EXPECT_EQ(bool(at("/objects/mine-" + name)), isKept);
    }
}

TEST_F(ImportQueueTest, WhatIsImportedAtOnceIsPartOfATrial) {
    const std::string before = document();
    for(const bool isKept: {false, true}) {
        changes().beginTrial(Trial::Preview);
        EXPECT_EQ(import("scene a 1").error, "");
        record("/objects/mine", object());
        isKept ? changes().keepTrial() : changes().dropTrial();
        EXPECT_EQ(document() != before, isKept);
    }
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

TEST_F(ImportQueueTest, AModelStandsOnThePlaceThatItIsGiven) {
    // A cube of 2 that is 4 above the object, all of it twice as large.
    const std::string file = source("a.glb", "scene a 1 2");
    EXPECT_FALSE(queue.boundsOf(file));
    const std::string before = document();
    queue.add(file, ImportInto::OpenProject, Magnum::Vector3{10.0f, 20.0f, 30.0f});
    const std::vector<ImportResult> results = queue.finish();
    ASSERT_EQ(results.size(), 1u);
    const Magnum::Range3D bounds{{-2.0f, 6.0f, -2.0f}, {2.0f, 10.0f, 2.0f}};
    EXPECT_EQ(results[0].inserted.bounds, bounds);
    EXPECT_EQ(queue.boundsOf(file), bounds);
    session.update();
    scene.computeAbsoluteTransformations();
    EXPECT_EQ(scene.absoluteTransformation(objectOf("a")).translation(), (Magnum::Vector3{10.0f, 14.0f, 30.0f}));
    changes().undoLast();
    EXPECT_EQ(document(), before);
    EXPECT_FALSE(changes().canUndo());
}

TEST_F(ImportQueueTest, AModelWithoutMeshesStandsThereWithItsOrigin) {
    const std::string file = source("a.glb", "scene a 0");
    queue.add(file, ImportInto::OpenProject, Magnum::Vector3{1.0f, 2.0f, 3.0f});
    queue.finish();
    session.update();
    scene.computeAbsoluteTransformations();
    EXPECT_EQ(scene.absoluteTransformation(objectOf("a")).translation(), (Magnum::Vector3{1.0f, 2.0f, 3.0f}));
    EXPECT_FALSE(queue.boundsOf(file));
}

TEST_F(ImportQueueTest, WhatIsInTheDocumentIsCompiledInSteps) {
    queue.add(source("a.glb", "scene a 3"));
    std::set<std::string> stages;
    std::size_t steps = 0;
    for(int i = 0; i != 2000 && queue.isBusy(); ++i) {
        const bool wasCompiling = queue.isCompiling();
        // A resource a step.
        if(queue.update(0.0).empty() && wasCompiling) ++steps;
        if(!queue.isBusy()) break;
        stages.insert(queue.progress() ? queue.progress()->stage : "");
        if(queue.isCompiling()) {
            EXPECT_TRUE(at("/objects/a"));
            EXPECT_EQ(importedFiles(), 1u);
            // Too late.
            queue.cancel();
        } else
            std::this_thread::sleep_for(std::chrono::milliseconds{1});
    }
    EXPECT_FALSE(queue.isBusy());
    EXPECT_GT(steps, 3u);
    EXPECT_THAT(stages, testing::Contains("compiling resources"));
    EXPECT_EQ(scene.size(), 5u);
    EXPECT_TRUE(session.resourceCompiler().problems().empty());
    EXPECT_EQ(session.data().firstSelectedObject(), objectOf("a"));
}

TEST_F(ImportQueueTest, GivenUpBeforeTheDocumentHasItNothingIsLeft) {
    const std::string before = document();
    queue.add(source("a.glb", "scene a 3"));
    // At each of the stages there are.
    std::size_t cancelled = 0;
    for(int delay = 0; delay != 12; ++delay) {
        for(int i = 0; i != 2000 && !(queue.progress() && queue.progress()->stage == "checking"); ++i) {
            queue.update(0.0);
            std::this_thread::sleep_for(std::chrono::milliseconds{1});
        }
        for(int i = 0; i != delay && !queue.isCompiling(); ++i) {
            queue.update(0.0);
            std::this_thread::sleep_for(std::chrono::microseconds{200});
        }
        if(queue.isCompiling()) break;
        queue.cancel();
        ++cancelled;
        EXPECT_EQ(document(), before);
        EXPECT_FALSE(std::filesystem::exists(folder.path("imported")));
        EXPECT_EQ(importFolders(), 0u);
        queue.add(source("a.glb", "scene a 3"));
    }
    EXPECT_GT(cancelled, 0u);
}

TEST_F(ImportQueueTest, ANewProjectBeginsWhenTheImportIsRead) {
    record("/objects/old", object());
    queue.add(source("later.glb", "scene later 0"));
    queue.add(source("a.glb", "slow 0.1"), ImportInto::NewProject);
    EXPECT_TRUE(queue.isOpening());
    const unsigned number = session.data().projectNumber;
    update(50);
    EXPECT_EQ(session.data().projectNumber, number);
    EXPECT_TRUE(at("/objects/old"));
    const std::vector<ImportResult> results = queue.finish();
    ASSERT_EQ(results.size(), 1u);
    EXPECT_EQ(results[0].into, ImportInto::NewProject);
    EXPECT_FALSE(queue.isOpening());
    EXPECT_EQ(session.data().projectNumber, number + 1);
    EXPECT_EQ(session.path(), "");
    EXPECT_EQ(countOf("objects"), 2u);
    EXPECT_FALSE(at("/objects/old"));
}

TEST_F(ImportQueueTest, WithoutAResultTheOldProjectStays) {
    record("/objects/old", object());
    const std::string before = document();
    const std::string files[]{source("a.glb", "crash"), source("b.glb", "document {\"format\": 2}")};
    for(const std::string& file: files) {
        queue.add(file, ImportInto::NewProject);
        std::vector<ImportResult> results;
        printed<Corrade::Utility::Error>([&] { results = queue.finish(); });
        ASSERT_EQ(results.size(), 1u);
        EXPECT_NE(results[0].inserted.error, "");
        EXPECT_EQ(document(), before);
    }
    // Nor does the next one of that file begin a new project because the one before was cancelled.
    const std::string slow = source("slow.glb", "slow 0.2");
    queue.add(slow, ImportInto::NewProject);
    update(20);
    queue.cancel();
    EXPECT_FALSE(queue.isBusy());
    EXPECT_EQ(document(), before);
    queue.add(slow);
    const std::vector<ImportResult> results = queue.finish();
    ASSERT_EQ(results.size(), 1u);
    EXPECT_EQ(results[0].into, ImportInto::OpenProject);
    EXPECT_TRUE(at("/objects/old"));
}

TEST_F(ImportQueueTest, AProjectThatIsSavedElsewhereMeanwhileHasItsFilesThere) {
    changes().beginGroup();
    queue.add(source("a.glb", "scene a 1"));
    queue.finish();
    changes().commit();
    std::filesystem::create_directory(folder.path("elsewhere"));
    ASSERT_EQ(session.save(folder.path("elsewhere/project.json")), "");
    EXPECT_EQ(queue.finish().size(), 1u);
    EXPECT_EQ(filesIn(folder.path("elsewhere/imported")), 1u);
    EXPECT_FALSE(std::filesystem::exists(folder.path("imported")));
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
    const char* const kinds[]{"scene a 3", "crash", "say rubbish", "scene b 2", "document {}"};
    const std::string files[]{source("0.glb", kinds[0]), source("1.glb", kinds[1]), source("2.glb", kinds[2]),
        source("3.glb", kinds[3]), source("4.glb", kinds[4])};
    const std::size_t filesBefore = openFiles();
    printed<Corrade::Utility::Error>([&] {
        for(int i = 0; i != 100; ++i) queue.importNow(files[i % 5]);
    });
    EXPECT_EQ(openFiles(), filesBefore);
    EXPECT_EQ(importFolders(), 0u);
    EXPECT_EQ(waitpid(-1, nullptr, WNOHANG), -1);
    EXPECT_EQ(importedFiles(), 2u);
    EXPECT_EQ(countOf("materials"), 4u);
    while(changes().canUndo()) changes().undoLast();
    EXPECT_EQ(countOf("objects"), 0u);
}

} // namespace

} // namespace VantrelEngine
