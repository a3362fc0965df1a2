#include <algorithm>
#include <limits>

#include <Vantrel/EngineData/JsonObject.h>
#include <VantrelHost/ResourceCompiler.h>

#include "Data/Test/SessionFixture.h"
#include "Support/TestFolder.h"

namespace {

using namespace VantrelEngine;
using testing::HasSubstr;
using testing::IsEmpty;

class ProjectSessionTest: public VantrelTest::SessionFixture {
protected:
    std::string path(const char* name) const { return folder.path(name); }
    // Quotes may be written as '.
    std::string write(const char* name, std::string text) {
        for(char& c: text)
            if(c == '\'') c = '"';
        folder.write(name, text);
        return path(name);
    }
    static std::string project(const std::string& objects) { return "{'objects': {" + objects + "}}"; }

    VantrelTest::TestFolder folder;
};

TEST_F(ProjectSessionTest, startsWithAProjectThatCanBeEdited) {
    EXPECT_EQ(session.path(), "");
    EXPECT_EQ(session.editor().state().changeManager, &changes());
    EXPECT_EQ(session.editor().state().assetCompiler, &compiler());
    EXPECT_FALSE(changes().hasUnsavedChanges());
    EXPECT_EQ(scene.size(), 1u);
    for(const char* const pipeline: {"MeshVisualizer", "Text", "Lit", "Flat"}) {
        const auto& pipelines = session.data().scene().resources().pipelines;
        const bool isThere = std::any_of(
            pipelines.begin(), pipelines.end(), [&](const ScenePipeline& known) { return known.name == pipeline; });
        EXPECT_TRUE(isThere) << pipeline;
    }
    record("/objects/a", object());
    session.update();
    EXPECT_EQ(scene.size(), 2u);
    EXPECT_TRUE(changes().hasUnsavedChanges());
}

TEST_F(ProjectSessionTest, everySettingHasADefault) {
    const ValueAccess settings = ValueAccess{session.data().project()}["settings"];
    const ValueAccess rendering = settings["rendering"], bloom = rendering["bloom"];
    const std::string warnings = printed([&] {
        rendering["clearColor"].readValue().asVector4();
        EXPECT_GT(settings["editor"]["camera"]["near"].readValue().asFloat(), 0.0f);
        EXPECT_GT(settings["editor"]["camera"]["far"].readValue().asFloatOrInfinity(), 1.0f);
        bloom["passes"].readValue().asInt();
        bloom["kernelSize"].readValue().asFloat();
        bloom["threshold"].readValue().asFloat();
        bloom["intensity"].readValue().asFloat();
        bloom["enabled"].readValue().asBool();
        EXPECT_GT(rendering["hdr"]["exposure"].readValue().asFloat(), 0.0f);
        const ValueAccess environment = rendering["environment"];
        EXPECT_TRUE(environment["image"].readValue().asString("x").isEmpty());
        EXPECT_EQ(environment["intensity"].readValue().asFloat(), 1.0f);
        environment["rotation"].readValue().asFloat();
        EXPECT_TRUE(environment["background"].readValue().asBool());
        for(const char* const key: {"usePreZ", "useMultiDraw", "useFrustumCulling"})
            rendering[key].readValue().asBool();
        for(const char* const key: {"textureAtlasSize", "compressedTextureAtlasSize"})
            EXPECT_GT(rendering[key].readValue().asVector2i().x(), 0);
        EXPECT_FALSE(settings["physx"]["enable"].readValue().asBool(true));
    });
    EXPECT_EQ(warnings, "");
}

TEST_F(ProjectSessionTest, aNewProjectTakesThePlaceOfTheOpenOne) {
    ASSERT_EQ(
        session
            .open(write("a.json",
                "{'objects': {'a': " + object() + "}, 'settings': {'editor': {'camera': {'pitch': 10, 'yaw': 20}}}}"))
            .error,
        "");
    session.data().selectObject(objectOf("a"), false);
    record("/objects/b", object());
    session.editor().state().display(DebugDisplay::Objects) = 1;
    const auto number = session.data().projectNumber;

    session.startNew();
    EXPECT_EQ(session.path(), "");
    EXPECT_EQ(document(), VantrelTest::jsonText(VantrelEngine::ProjectSession{}.data().project().projectFile()));
    EXPECT_EQ(scene.size(), 1u);
    EXPECT_FALSE(session.data().firstSelectedObject());
    EXPECT_FALSE(changes().hasUnsavedChanges());
    EXPECT_FALSE(changes().canUndo());
    EXPECT_FLOAT_EQ(session.data().cameraPitch, -35.264f);
    EXPECT_FLOAT_EQ(session.data().cameraYaw, 45.0f);
    EXPECT_NE(session.data().projectNumber, number);
    // Files beside the one before are none of its own.
    EXPECT_EQ(session.data().resources().resolveLink({"", "a.json"}), nullptr);
    // What the editor shows is not the project's.
    EXPECT_EQ(session.editor().state().display(DebugDisplay::Objects), 1);
}

TEST_F(ProjectSessionTest, aCameraBeyondItsAnglesIsHeld) {
    ASSERT_EQ(
        session.open(write("a.json", "{'objects': {}, 'settings': {'editor': {'camera': {'pitch': 120, 'yaw': 800}}}}"))
            .error,
        "");
    EXPECT_FLOAT_EQ(session.data().cameraPitch, 90.0f);
    EXPECT_FLOAT_EQ(session.data().cameraYaw, 80.0f);
}

TEST_F(ProjectSessionTest, theSharedInstancesStayWhenAnotherProjectIsOpened) {
    ChangeManager* const log = session.editor().state().changeManager;
    AssetCompiler* const objects = session.editor().state().assetCompiler;
    record("/objects/a", object());
    ASSERT_EQ(session.open(write("p.json", project("'a': " + object()))).error, "");
    EXPECT_EQ(session.editor().state().changeManager, log);
    EXPECT_EQ(&changes(), log);
    EXPECT_EQ(session.editor().state().assetCompiler, objects);
    record("/objects/a/translation", "[1, 0, 0]");
    EXPECT_EQ(update(), (Compiled{1, 0}));
}

TEST_F(ProjectSessionTest, theCameraAndTheKindOfIdsComeFromTheProject) {
    EXPECT_FLOAT_EQ(session.data().cameraPitch, -35.264f);
    EXPECT_FLOAT_EQ(session.data().cameraYaw, 45.0f);
    const std::string uuid = "01234567-89ab-cdef-0123-456789abcdef";
    ASSERT_EQ(session
                  .open(write("p.json",
                      "{'objects': {'" + uuid + "': " + object() +
                          "}, 'settings': {'editor': {'camera': {'pitch': -10, 'yaw': 20}}}}"))
                  .error,
        "");
    EXPECT_EQ(session.data().cameraPitch, -10.0f);
    EXPECT_EQ(session.data().cameraYaw, 20.0f);
    EXPECT_EQ(session.data().objectIdMode, 1);
    ASSERT_EQ(session.open(write("q.json", project("'a': " + object()))).error, "");
    EXPECT_FLOAT_EQ(session.data().cameraYaw, 45.0f);
    EXPECT_EQ(session.data().objectIdMode, 0);
}

TEST_F(ProjectSessionTest, whatIsBesideAProjectThatMovesIsLookedForThere) {
    folder.write("other/mesh.glb", "not one");
    const std::string text = "{'objects': {}, 'meshes': {'m': {'name': 'M', 'file': 'mesh.glb'}}}";
    EXPECT_THAT(printed([&] { ASSERT_EQ(session.open(write("p.json", text)).error, ""); }),
        HasSubstr("ResourceCompiler: meshes/m: mesh.glb"));
    ASSERT_EQ(session.resourceCompiler().problems().size(), 1u);
    const std::string before = session.resourceCompiler().problems()[0].reason;
    printed([&] { EXPECT_EQ(session.save(path("other/p.json")), ""); });
    ASSERT_EQ(session.resourceCompiler().problems().size(), 1u);
    EXPECT_NE(session.resourceCompiler().problems()[0].reason, before);
}

TEST_F(ProjectSessionTest, aParentThatIsCompiledAwayDirectlyLeavesItsChildrenToTheNextFrame) {
    record("/objects/p", object());
    record("/objects/c", object("p"));
    session.update();
    remove("/objects/p");
    const Corrade::Containers::StringView ids[]{"p"};
    compiler().compileObjects(ids, true);
    EXPECT_EQ(objectOf("c"), RootObject);
    printed([this] { session.update(); });
    EXPECT_NE(objectOf("c"), RootObject);
    EXPECT_EQ(parentOf("c"), "");
}

TEST_F(ProjectSessionTest, opensEditsSavesAndOpensAgain) {
    const std::string file = write("p.json", project("'a': " + object() + ", 'b': " + object("a")));
    const OpenedProject opened = session.open(file);
    EXPECT_EQ(opened.error, "");
    EXPECT_THAT(opened.problems, IsEmpty());
    EXPECT_EQ(parentOf("b"), "a");
    EXPECT_FALSE(changes().canUndo());
    EXPECT_FALSE(changes().hasUnsavedChanges());
    EXPECT_EQ(session.editor().state().changeManager, &changes());

    record("/objects/b/name", "'Other'");
    EXPECT_TRUE(changes().hasUnsavedChanges());
    EXPECT_EQ(session.save(file), "");
    EXPECT_FALSE(changes().hasUnsavedChanges());
    changes().undoLast();
    EXPECT_TRUE(changes().hasUnsavedChanges());
    record("/objects/b/name", "'Third'");
    EXPECT_TRUE(changes().hasUnsavedChanges());

    EXPECT_EQ(session.open(file).error, "");
    EXPECT_EQ(scene.objectNames.nameOf(objectOf("b")), "Other");
    EXPECT_FALSE(changes().canUndo());
}

TEST_F(ProjectSessionTest, anotherProjectTakesThePlaceOfTheFirst) {
    const std::string input = ", 'components': [{'type': 'input', 'input': {'type': 'mouse'}}]";
    ASSERT_EQ(session.open(write("1.json", project("'a': " + object("", input) + ", 'b': " + object("a")))).error, "");
    session.data().selectObject(objectOf("b"), true);
    record("/objects/b/translation", "[1, 2, 3]");
    ASSERT_EQ(session.open(write("2.json", project("'b': " + object() + ", 'c': " + object("b")))).error, "");
    EXPECT_EQ(scene.size(), 3u);
    EXPECT_EQ(objectOf("a"), RootObject);
    EXPECT_EQ(parentOf("c"), "b");
    EXPECT_EQ(parentOf("b"), "");
    EXPECT_EQ(scene.inputs.size(), 0u);
    EXPECT_EQ(session.data().selection().countSet(), 0u);
    session.update();
    EXPECT_EQ(scene.size(), 3u);
}

TEST_F(ProjectSessionTest, aProjectThatIsRefusedLeavesTheSessionAsItWas) {
    const std::string file = write("good.json", project("'a': " + object()));
    ASSERT_EQ(session.open(file).error, "");
    record("/objects/a/name", "'Edited'");
    const std::string before = document();
    std::string deep;
    for(int i = 0; i != 600; ++i) deep += "[";
    for(const std::string& bad: {write("truncated.json", "{'objects': {"), write("list.json", "[]"),
            write("deep.json", "{'x': " + deep), write("text.json", "{'objects': 'none'}"), path("missing.json")}) {
        const OpenedProject opened = session.open(bad);
        EXPECT_THAT(opened.error, HasSubstr(bad)) << bad;
        EXPECT_EQ(document(), before);
        EXPECT_TRUE(changes().canUndo());
        EXPECT_EQ(session.path(), file);
        EXPECT_NE(objectOf("a"), RootObject);
    }
}

TEST_F(ProjectSessionTest, aProjectThatWasRepairedIsNotSavedOverItsFileUnasked) {
    const std::string text = "{\"objects\":{\"a\":{\"parent\":\"a\",\"name\":\"A\"}}}";
    const std::string file = write("p.json", text);
    const OpenedProject opened = session.open(file);
    ASSERT_EQ(opened.error, "");
    EXPECT_TRUE(isRepaired(opened.problems));
    record("/objects/a/name", "'B'");
    EXPECT_THAT(session.save(file), HasSubstr("repair"));
    EXPECT_EQ(VantrelTest::readFile(file), text);
    EXPECT_TRUE(changes().hasUnsavedChanges());
    EXPECT_EQ(session.save(path("copy.json")), "");
    EXPECT_FALSE(changes().hasUnsavedChanges());
    EXPECT_EQ(session.save(file, ProjectStore::Repaired::Overwrite), "");
    EXPECT_NE(VantrelTest::readFile(file), text);
    EXPECT_EQ(VantrelTest::readFile(file + ".bak"), text);
}

TEST_F(ProjectSessionTest, aSaveThatFailsLeavesTheMark) {
    record("/objects/a", object());
    EXPECT_NE(session.save(path("missing/p.json")), "");
    EXPECT_TRUE(changes().hasUnsavedChanges());
    EXPECT_EQ(session.path(), "");
}

TEST_F(ProjectSessionTest, anEditThatCouldNotBeOpenedAgainIsRefused) {
    record("/objects/a", object());
    record("/objects/b", object("a"));
    session.update();
    const std::string before = document();
    const std::string errors = printed<Corrade::Utility::Error>([&] {
        record("/objects/a/parent", "'b'");
        record("/objects/a/parent", "'a'");
        const JsonValue infinite{std::numeric_limits<double>::infinity()};
        changes().recordChange("/objects/a/translation/0", &infinite, false);
        changes().recordChange("/objects", nullptr, false);
    });
    EXPECT_EQ(std::count(errors.begin(), errors.end(), '\n'), 4) << errors;
    EXPECT_EQ(document(), before);
    EXPECT_EQ(update(), (Compiled{0, 0}));
}

TEST_F(ProjectSessionTest, filesAreFoundBesideTheProject) {
    folder.write("fonts/f.bin", "text");
    ASSERT_EQ(session.open(write("p.json", project(""))).error, "");
    std::string reason;
    const auto file = session.data().resources().read({"", "fonts/f.bin"}, 100, reason);
    ASSERT_TRUE(file) << reason;
    EXPECT_EQ(std::string(file->data(), file->size()), "text");
    EXPECT_FALSE(session.data().resources().read({"", "../p.json"}, 100, reason));
}

} // namespace
