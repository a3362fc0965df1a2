#include <VantrelHost/ProjectStore.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>

#include <Corrade/Containers/StringStl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Data/Project/Test/DocumentTestSupport.h"
#include "Vantrel/EngineData/ProjectFile.h"

#include "Support/MeddledCalls.h"
#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;
using VantrelTest::readFile;
using VantrelTest::writeFile;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::StartsWith;
namespace fs = std::filesystem;

constexpr const char* Whole = R"({
  "objects": {
    "a/b~{}%": {
      "name": "Tree",
      "parent": "",
      "translation": [0, 0.5, -0.0]
    }
  },
  "settings": {
    "editor": {
      "camera": {
        "far": 1e39
      }
    }
  }
}
)";

struct ProjectStoreTest: testing::Test {
    std::string text() { return jsonText(file.projectFile()); }

    VantrelTest::TestFolder testFolder;
    const fs::path folder = testFolder.path();
    const std::string path = folder / "project.json";
    ProjectFile file;
    ProjectStore store{file};
};

TEST_F(ProjectStoreTest, opensAndSavesTheSame) {
    writeFile(path, Whole);
    const OpenedProject opened = store.open(path);
    EXPECT_EQ(opened.error, "");
    EXPECT_THAT(opened.problems, IsEmpty());
    EXPECT_EQ(store.path(), path);
    EXPECT_STREQ(file.valueByPointer("/objects/a~1b~0{}%/name")->GetString(), "Tree");
    EXPECT_EQ(store.save(path), "");
    EXPECT_EQ(readFile(path), Whole);
    EXPECT_EQ(readFile(path + ".bak"), Whole);
}

TEST_F(ProjectStoreTest, hasDefaults) {
    EXPECT_EQ(file.getValue("/settings/editor/camera/near", true)->GetDouble(), 0.05);
    EXPECT_FALSE(file.getValue("/settings/editor/camera/near", false));
}

TEST_F(ProjectStoreTest, aNewProject) {
    writeFile(path, R"({"objects":{"x":{"parent":"x"}}})");
    store.open(path);
    store.startNew();
    EXPECT_EQ(store.path(), "");
    EXPECT_EQ(store.repairCount(), 0u);
    EXPECT_TRUE(file.valueByPointer("/pipelines/lit"));
    EXPECT_FALSE(file.valueByPointer("/objects/x"));
    const std::string before = text();
    // The file still holds what the repair took away.
    EXPECT_THAT(store.save(path), HasSubstr("the file is kept as it is"));
    EXPECT_EQ(store.path(), "");
    EXPECT_EQ(store.save(path, ProjectStore::Repaired::Overwrite), "");
    EXPECT_EQ(store.path(), path);
    EXPECT_EQ(store.save(path), "");
    EXPECT_EQ(store.open(path).error, "");
    EXPECT_EQ(text(), before);
}

TEST_F(ProjectStoreTest, aFileThatWasRepairedStaysKeptAfterASaveElsewhere) {
    const std::string repaired = R"({"objects":{"x":{"parent":"x"}}})";
    writeFile(path, repaired);
    ASSERT_EQ(store.open(path).error, "");
    ASSERT_EQ(store.save(path + ".copy"), "");
    EXPECT_THAT(store.save(path), HasSubstr("was repaired in 1 place"));
    EXPECT_EQ(store.path(), path + ".copy");
    EXPECT_EQ(store.save(path + ".copy"), "");
    EXPECT_EQ(store.save(path, ProjectStore::Repaired::Overwrite), "");
    EXPECT_EQ(store.save(path), "");
}

TEST_F(ProjectStoreTest, aFileThatWasRefusedIsNotWrittenOverUnasked) {
    for(const char* const refused: {"{\"objects\":3}", "{\"objects\":{"}) {
        writeFile(path, refused);
        ASSERT_NE(store.open(path).error, "");
        EXPECT_THAT(store.save(path), HasSubstr("could not be opened, the file is kept as it is")) << refused;
        // Mended by other means.
        writeFile(path, R"({"objects":{}})");
        ASSERT_EQ(store.open(path).error, "");
        EXPECT_EQ(store.save(path), "") << refused;
    }
}

TEST_F(ProjectStoreTest, whatIsRefusedLeavesTheProjectAsItWas) {
    writeFile(path, Whole);
    store.open(path);
    const std::string before = text(), other = folder / "other.json";
    for(const char* contents: {"{", "[]", R"({"objects":[]})", R"({"objects":{"a":1,"b":2,"c":{"parent":"c"}}})"}) {
        writeFile(other, contents);
        const OpenedProject opened = store.open(other);
        EXPECT_THAT(opened.error, StartsWith(other + ": "));
        EXPECT_EQ(text(), before);
        EXPECT_EQ(store.path(), path);
        EXPECT_EQ(store.repairCount(), 0u);
        EXPECT_EQ(readFile(other), contents);
    }
    const OpenedProject opened = store.open(other);
    EXPECT_EQ(opened.error, other + ": objects/a: not an object (and 1 more)");
    EXPECT_THAT(linesOf(opened.problems),
        ElementsAre("X objects/a: not an object", "X objects/b: not an object",
            "R objects/c/parent: \"c\" makes the object its own ancestor, it went to the root"));
    EXPECT_EQ(store.open(folder / "gone.json").error, (folder / "gone.json").string() + ": No such file or directory");
}

TEST_F(ProjectStoreTest, whatWasRepairedIsNotSavedOverItsFileUnasked) {
    const std::string repairable = R"({"objects":{"a":{"parent":"a","name":"x","name":"y"}}})";
    writeFile(path, repairable);
    fs::create_directory(folder / "sub");
    fs::create_symlink("../project.json", folder / "sub" / "link.json");
    EXPECT_EQ(store.open(path).error, "");
    EXPECT_EQ(store.repairCount(), 2u);
    const std::string reason = ": the project was repaired in 2 places when it was opened, the file is kept as it is";
    for(const std::string& same:
        {path, (folder / "sub" / "link.json").string(), (folder / "sub/../project.json").string()}) {
        EXPECT_TRUE(store.keeps(same));
        EXPECT_EQ(store.save(same), same + reason);
        EXPECT_EQ(readFile(path), repairable);
    }
    EXPECT_FALSE(fs::exists(path + ".bak"));

    // Elsewhere it may go, and is what its file says from then on.
    EXPECT_EQ(store.save(folder / "copy.json"), "");
    EXPECT_EQ(store.path(), folder / "copy.json");
    EXPECT_EQ(store.save(folder / "copy.json"), "");
    EXPECT_EQ(readFile(path), repairable);

    EXPECT_EQ(store.open(path).error, "");
    EXPECT_EQ(store.save(path, ProjectStore::Repaired::Overwrite), "");
    EXPECT_EQ(readFile(path + ".bak"), repairable);
    EXPECT_FALSE(store.keeps(path));
    EXPECT_EQ(store.save(path), "");
    EXPECT_THAT(store.open(path).problems, IsEmpty());
}

TEST_F(ProjectStoreTest, whatSomebodyElseWroteIsNotSavedOverUnasked) {
    writeFile(path, Whole);
    EXPECT_FALSE(store.changedOutside()) << "there is no project";
    ASSERT_EQ(store.open(path).error, "");
    EXPECT_EQ(store.fingerprint(), fingerprintOf(Whole));
    EXPECT_FALSE(store.changedOutside());
    // The same again is no change, whatever its time.
    writeFile(path, Whole);
    fs::last_write_time(path, fs::file_time_type::clock::now() + std::chrono::seconds{5});
    EXPECT_FALSE(store.changedOutside());

    const std::string theirs = std::string{Whole} + "\n";
    writeFile(path, theirs);
    fs::create_symlink("project.json", folder / "link.json");
    EXPECT_EQ(store.changedOutside(), fingerprintOf(theirs));
    for(const std::string& same: {path, (folder / "link.json").string()}) {
        EXPECT_TRUE(store.keeps(same));
        EXPECT_THAT(store.save(same), HasSubstr("changed by somebody else since it was opened or saved"));
        EXPECT_EQ(readFile(path), theirs);
    }
    EXPECT_EQ(store.save(folder / "copy.json"), "") << "elsewhere it may go";
    EXPECT_FALSE(store.changedOutside());

    ASSERT_EQ(store.open(path).error, "");
    writeFile(path, Whole);
    EXPECT_TRUE(store.changedOutside());
    EXPECT_EQ(store.save(path, ProjectStore::Repaired::Overwrite), "");
    EXPECT_EQ(readFile(path + ".bak"), Whole);
    EXPECT_FALSE(store.changedOutside());
    // One that is gone cannot be written over.
    fs::remove(path);
    EXPECT_FALSE(store.changedOutside());
    EXPECT_EQ(store.save(path), "");
}

TEST_F(ProjectStoreTest, whatSomebodyElseWritesDuringTheSaveIsNotSavedOverUnasked) {
    const std::string theirs = std::string{Whole} + "\n";
    VantrelTest::MeddledCalls calls;
    ProjectFile projectFile;
    ProjectStore meddled{projectFile, &calls};
    writeFile(path, Whole);
    ASSERT_EQ(meddled.open(path).error, "");
    calls.meddle = [&] { writeFile(path, theirs); };
    EXPECT_THAT(meddled.save(path), HasSubstr("changed by somebody else just now"));
    EXPECT_EQ(readFile(path), theirs);
    EXPECT_TRUE(meddled.keeps(path));
    calls.meddle = [&] { writeFile(path, theirs + "\n"); };
    EXPECT_EQ(meddled.save(path, ProjectStore::Repaired::Overwrite), "");
    EXPECT_EQ(readFile(path + ".bak"), theirs + "\n");
    EXPECT_FALSE(meddled.changedOutside());
    // A name that was free.
    const std::string copy = folder / "copy.json";
    calls.meddle = [&] { writeFile(copy, theirs); };
    EXPECT_THAT(meddled.save(copy), HasSubstr("changed by somebody else just now"));
    EXPECT_EQ(readFile(copy), theirs);
    EXPECT_EQ(meddled.path(), path);
}

TEST_F(ProjectStoreTest, aFileIsKeptForAReason) {
    writeFile(path, Whole);
    store.open(path);
    store.keep(path, "it is somebody's");
    EXPECT_TRUE(store.keeps(path));
    EXPECT_EQ(store.save(path), path + ": it is somebody's, the file is kept as it is");
    EXPECT_EQ(store.save(path, ProjectStore::Repaired::Overwrite), "");
    EXPECT_EQ(store.save(path), "");
}

TEST_F(ProjectStoreTest, whatCannotBeWrittenLeavesTheFileWhole) {
    writeFile(path, Whole);
    store.open(path);
    file.valueByPointer("/objects/a~1b~0{}%/translation/1")->SetDouble(std::nan(""));
    EXPECT_EQ(store.save(path), path + ": objects/a/b~{}%/translation/1: the number is not finite");
    EXPECT_EQ(readFile(path), Whole);
    EXPECT_FALSE(fs::exists(path + ".bak"));
}

TEST_F(ProjectStoreTest, whatCannotBeReplacedIsSaid) {
    store.startNew();
    const std::string nowhere = folder / "gone" / "project.json";
    EXPECT_THAT(store.save(nowhere), StartsWith(nowhere + ": cannot create "));
    fs::create_directory(path);
    EXPECT_THAT(store.save(path), StartsWith(path + ": cannot "));
    EXPECT_EQ(store.path(), "");
}

TEST_F(ProjectStoreTest, aSymbolicLinkStaysOne) {
    writeFile(folder / "target.json", Whole);
    fs::create_symlink("target.json", path);
    EXPECT_EQ(store.open(path).error, "");
    file.valueByPointer("/objects/a~1b~0{}%/name")->SetString("Bush");
    EXPECT_EQ(store.save(path), "");
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_THAT(readFile(folder / "target.json"), HasSubstr("Bush"));
}

TEST_F(ProjectStoreTest, guardsTheEditsOfWhatIsOpen) {
    ASSERT_TRUE(file.editGuard());
    writeFile(path, R"({"objects":{"a":{"parent":""},"b":{"parent":"a"}}})");
    store.open(path);
    const JsonDocument parent = parsedValue("\"b\"");
    EXPECT_NE(file.editGuard()->whyRefused(file, "/objects/a/parent", &parent), "");
    // What the guard remembers is of the project that is open.
    writeFile(path, R"({"objects":{"a":{"parent":""},"b":{"parent":""}}})");
    store.open(path);
    EXPECT_EQ(file.editGuard()->whyRefused(file, "/objects/a/parent", &parent), "");
}

TEST_F(ProjectStoreTest, findsTheObjectsOfWhatIsOpen) {
    const auto objects = [](const std::string& prefix) {
        std::string text;
        for(int i = 0; i != 100; ++i)
            text += (i ? ",\"" : "\"") + prefix + std::to_string(i) + R"(":{"name":"","parent":""})";
        return "{\"objects\":{" + text + "}}";
    };
    for(const char* prefix: {"first", "second"}) {
        writeFile(path, objects(prefix));
        ASSERT_EQ(store.open(path).error, "");
        EXPECT_TRUE(file.valueByPointer(std::string{"/objects/"} + prefix + "50"));
    }
    EXPECT_FALSE(file.valueByPointer("/objects/first50"));
}

TEST_F(ProjectStoreTest, theGuardGoesWithTheStore) {
    ProjectFile other;
    {
        ProjectStore guarding{other};
        EXPECT_TRUE(other.editGuard());
    }
    EXPECT_FALSE(other.editGuard());
}

} // namespace
