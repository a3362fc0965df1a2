#include "Import/InsertImport.h"

#include <VantrelHost/ResourceCompiler.h>
#include <sys/stat.h>

#include "ImportFixture.h"

namespace VantrelEngine {

namespace {

using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using InsertImportTest = VantrelTest::ImportFixture;
using VantrelTest::readFile;

TEST_F(InsertImportTest, AnImportIsOneStepThatUndoTakesAwayAndRedoBringsBack) {
    const std::string before = document();
    const InsertedImport inserted = import("scene box 2");
    EXPECT_EQ(inserted.error, "");
    EXPECT_EQ(inserted.objectCount, 3u);
    ASSERT_THAT(inserted.roots, ElementsAre("box"));
    const std::string after = document();
    EXPECT_NE(after, before);
    EXPECT_EQ(session.data().firstSelectedObject(), objectOf("box"));
    EXPECT_EQ(session.data().selection().countSet(), 1u);

    changes().undoLast();
    EXPECT_EQ(document(), before);
    EXPECT_FALSE(changes().canUndo());
    session.update();
    EXPECT_EQ(session.data().selection().countSet(), 0u);
    changes().redoLast();
    EXPECT_EQ(document(), after);
    EXPECT_FALSE(changes().canRedo());
    session.update();
    EXPECT_EQ(scene.size(), 4u);
}

TEST_F(InsertImportTest, ReferencesFollowTheNewIds) {
    record("/objects/part", object());
    record("/materials/paint", "{'name': 'Other', 'pipeline': 'lit'}");
    import("scene box 2");
    EXPECT_EQ(textAt("/objects/part-2/parent"), "box");
    EXPECT_EQ(textAt("/objects/part-3/parent"), "box");
    EXPECT_EQ(textAt("/objects/part-2/skin"), "bones");
    EXPECT_EQ(textAt("/skins/bones/joints/0"), "box");
    EXPECT_EQ(textAt("/objects/part-2/components/0/mesh/mesh"), "cube");
    EXPECT_EQ(textAt("/objects/part-2/components/0/mesh/material"), "paint-2");
    EXPECT_EQ(textAt("/materials/paint-2/name"), "Paint");
    // The project has both of them under ids of its own.
    EXPECT_EQ(textAt("/materials/paint-2/pipeline"), "flat");
    EXPECT_EQ(countOf("shaders"), 4u);
    EXPECT_EQ(textAt("/materials/paint-2/Flat/colorTexture"), "box-bmp");
    EXPECT_EQ(textAt("/textures/box-bmp/image"), "box-bmp");
}

TEST_F(InsertImportTest, FilesAreBelowTheProjectsFolderAndUndoLeavesThem) {
    import("scene box 1");
    const std::string file = textAt("/images/box-bmp/file");
    EXPECT_THAT(file, testing::MatchesRegex("imported/[0-9a-f]{64}\\.bmp"));
    EXPECT_TRUE(std::filesystem::is_regular_file(folder.path(file)));
    EXPECT_EQ(importedFiles(), 1u);
    const SceneResources& resources = session.data().scene().resources();
    ASSERT_EQ(resources.images.size(), 2u);
    EXPECT_EQ(resources.images[1].pixels->size(), (Magnum::Vector2i{1, 1}));
    changes().undoLast();
    EXPECT_EQ(importedFiles(), 1u);
}

TEST_F(InsertImportTest, WhatACopyLeftBehindIsNoObstacle) {
    import("scene box 1");
    const std::string file = textAt("/images/box-bmp/file");
    changes().undoLast();
    std::filesystem::remove(folder.path(file));
    folder.write(file + ".new", "cut");
    EXPECT_EQ(import("scene box 1").error, "");
    EXPECT_TRUE(std::filesystem::exists(folder.path(file)));
}

TEST_F(InsertImportTest, TheSameFileOnceMoreAddsObjectsAlone) {
    import("scene box 1");
    struct stat first, second;
    ASSERT_EQ(stat(folder.path(textAt("/images/box-bmp/file")).data(), &first), 0);
    const std::size_t sections[]{countOf("images"), countOf("textures"), countOf("shaders"), countOf("pipelines"),
        countOf("materials"), countOf("meshes")};
    EXPECT_THAT(import("scene box 1").roots, ElementsAre("box-2"));
    EXPECT_THAT(sections,
        ElementsAre(countOf("images"), countOf("textures"), countOf("shaders"), countOf("pipelines"),
            countOf("materials"), countOf("meshes")));
    EXPECT_EQ(countOf("objects"), 4u);
    EXPECT_EQ(textAt("/objects/box-2/name"), "box 2");
    EXPECT_EQ(textAt("/objects/part-2/name"), "Part");
    EXPECT_EQ(textAt("/objects/part-2/skin"), "bones-2");
    EXPECT_EQ(importedFiles(), 1u);
    ASSERT_EQ(stat(folder.path(textAt("/images/box-bmp/file")).data(), &second), 0);
    EXPECT_EQ(first.st_ino, second.st_ino);
}

TEST_F(InsertImportTest, WhatOnlyHasTheNameInCommonGetsAnotherOne) {
    import("scene box 1");
    record("/materials/paint/Flat/color", "[0, 0, 1, 1]");
    record("/shaders/flat/variant", "0");
    import("scene box 1");
    EXPECT_EQ(textAt("/materials/paint-2/name"), "Paint 2");
    EXPECT_EQ(textAt("/shaders/flat-2/name"), "Flat 2");
    EXPECT_EQ(textAt("/pipelines/flat-2/shader"), "flat-2");
    // The values stand under the shader's name.
    EXPECT_EQ(textAt("/materials/paint-2/Flat 2/colorTexture"), "box-bmp");
    EXPECT_FALSE(at("/materials/paint-2/Flat"));
    // And are found again under the names that they have now.
    import("scene box 1");
    EXPECT_EQ(countOf("shaders"), 5u);
    EXPECT_EQ(countOf("materials"), 4u);
}

TEST_F(InsertImportTest, AProjectOfUuidsGetsUuids) {
    record("/objects/01234567-89ab-cdef-0123-456789abcdef", object());
    ASSERT_EQ(session.save(folder.path("project.json")), "");
    ASSERT_EQ(session.open(folder.path("project.json")).error, "");
    const InsertedImport inserted = import("scene box 1");
    ASSERT_EQ(inserted.roots.size(), 1u);
    EXPECT_THAT(inserted.roots[0],
        testing::MatchesRegex("[0-9a-f]{8}-[0-9a-f]{4}-4[0-9a-f]{3}-[89ab][0-9a-f]{3}-[0-9a-f]{12}"));
    EXPECT_NE(import("scene box 1").roots[0], inserted.roots[0]);
}

TEST_F(InsertImportTest, AnImageOfTheSurroundingsIsUsedWhereThereIsNone) {
    const std::string sky = R"(document {"format": 1, "images": {"i": {"name": "sky.hdr", "file": "files/a.bmp"}},
"textures": {"t": {"name": "sky.hdr", "image": "i"}}, "environment": "i"})";
    const std::string before = document();
    EXPECT_EQ(import(sky).error, "");
    EXPECT_EQ(textAt("/settings/rendering/environment/image"), "sky-hdr");
    EXPECT_TRUE(at("/settings/rendering/environment/background")->GetBool());
    changes().undoLast();
    EXPECT_EQ(document(), before);
    record("/settings/rendering/environment", "{'image': 'mine'}");
    import(sky);
    EXPECT_EQ(textAt("/settings/rendering/environment/image"), "mine");
}

TEST_F(InsertImportTest, TooManyObjectsChangeNothing) {
    JsonDocument objects;
    std::string json = "{", quoted = object();
    for(char& c: quoted)
        if(c == '\'') c = '"';
    for(int i = 0; i != 65533; ++i) json += (i ? ",\"o" : "\"o") + std::to_string(i) + "\":" + quoted;
    objects.Parse((json + "}").data());
    changes().recordChange("/objects", &objects, false);
    const std::string before = document();
    const std::string line = printed<Corrade::Utility::Error>(
        [&] { EXPECT_EQ(import("scene box 1").error, "the project has no room for so many objects"); });
    EXPECT_EQ(document(), before);
    EXPECT_FALSE(std::filesystem::exists(folder.path("imported")));
    EXPECT_EQ(import("scene box 0").error, "");
}

TEST_F(InsertImportTest, AFolderThatCannotBeWrittenChangesNothing) {
    // In the place of the folder.
    folder.write("imported", "mine");
    const std::string before = document();
    std::string error;
    const std::string line = printed<Corrade::Utility::Error>([&] { error = import("scene box 1").error; });
    EXPECT_THAT(line, AllOf(testing::StartsWith("a.glb: imported/0"), HasSubstr("cannot be put below")));
    EXPECT_EQ(document(), before);
    EXPECT_EQ(readFile(folder.path("imported")), "mine");
    std::filesystem::remove(folder.path("imported"));
    std::filesystem::create_symlink("/tmp", folder.path("imported"));
    printed<Corrade::Utility::Error>([&] { error = import("scene box 1").error; });
    EXPECT_THAT(error, HasSubstr("cannot be put below"));
}

TEST_F(InsertImportTest, AnotherFileOfTheSameNameIsNotWrittenOver) {
    import("scene box 1");
    const std::string file = textAt("/images/box-bmp/file");
    changes().undoLast();
    folder.write(file, "mine");
    const std::string before = document();
    std::string error;
    printed<Corrade::Utility::Error>([&] { error = import("scene box 1").error; });
    EXPECT_THAT(error, HasSubstr("another file is there already"));
    EXPECT_EQ(readFile(folder.path(file)), "mine");
    EXPECT_EQ(document(), before);
}

TEST_F(InsertImportTest, SavedAndOpenedAgainItIsTheSame) {
    import("scene box 2");
    ASSERT_EQ(session.save(folder.path("project.json")), "");
    const std::string saved = document();
    ASSERT_EQ(session.open(folder.path("project.json")).error, "");
    EXPECT_EQ(document(), saved);
    EXPECT_TRUE(session.resourceCompiler().problems().empty());
    EXPECT_EQ(scene.size(), 4u);
}

} // namespace

} // namespace VantrelEngine
