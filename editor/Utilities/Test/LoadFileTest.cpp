#include "Vantrel/EditorUtilities/LoadFile.h"

#include <Vantrel/EditorUtilities/Objects.h>

#include "../../Import/Test/ImportFixture.h"
#include "Utilities/DepthRange.h"
#include "Utilities/SceneRadius.h"

namespace VantrelEngine {

namespace {

using testing::HasSubstr;
using LoadFileTest = VantrelTest::ImportFixture;
using VantrelTest::readFile;

TEST(ImagePathTest, TheEndOfTheNameDecides) {
    for(const char* const path: {"a.png", "/x y/b.JPG", "c.jpeg", "d.Tga", "e.bmp", "f.hdr", ".png"})
        EXPECT_TRUE(isImagePath(path)) << path;
    for(const char* const path: {"", "png", "a.glb", "a.png.txt", "a.png/", "a.png/b", "a."})
        EXPECT_FALSE(isImagePath(path)) << path;
}

TEST_F(LoadFileTest, WhatCameWithACopyIsCompiledBeforeIt) {
    const auto parsed = [](const char* text) {
        JsonDocument value;
        value.Parse(text);
        return value;
    };
    changes().recordWithParents("/objects/ball", parsed(R"({"parent": "", "name": "Ball"})"), false);
    changes().recordWithParents("/skins/bones", parsed(R"({"name": "Bones", "joints": ["ball"]})"), false);
    StringArray names;
    names.setSize(1);
    names.set(0, "ball");
    compileAndSelect(session.editor(), names);
    const ResourceNode* const skin = session.data().scene().resourceMaps().find(ResourceKind::Skin, "bones");
    ASSERT_TRUE(skin);
    EXPECT_TRUE(skin->index);
    EXPECT_TRUE(session.data().isSelected(objectOf("ball")));
}

TEST_F(LoadFileTest, AFileIsQueued) {
    const std::string file = source("a.glb", "scene a 1");
    loadFile(file.data(), session.editor(), LoadMode::Import, false);
    EXPECT_FALSE(at("/objects/a"));
    EXPECT_TRUE(queue.isBusy());
    queue.finish();
    EXPECT_TRUE(at("/objects/a"));
}

TEST_F(LoadFileTest, AFileComesToStandWhereItWouldBeDropped) {
    const std::string file = source("a.glb", "scene a 1");
    EXPECT_TRUE(isModelPath(file.data()));
    EXPECT_FALSE(importedBounds(file.data(), session.editor()));
    session.editor().state().viewPointer.place = Magnum::Vector3{5.0f, 0.0f, 0.0f};
    loadFile(file.data(), session.editor(), LoadMode::Import, false);
    // The mouse moves on.
    session.editor().state().viewPointer.place = {};
    queue.finish();
    session.update();
    scene.computeAbsoluteTransformations();
    EXPECT_EQ(scene.absoluteTransformation(objectOf("a")).translation().x(), 5.0f);
    EXPECT_EQ(
        importedBounds(file.data(), session.editor()), (Magnum::Range3D{{-1.0f, 3.0f, -1.0f}, {1.0f, 5.0f, 1.0f}}));
}

TEST_F(LoadFileTest, ATextureIsFoundAlsoWhereItsNameWasTaken) {
    const std::string wall = source("wall.bmp", "scene wall 0");
    EXPECT_TRUE(textureOfImage(wall.data(), session.editor()).isEmpty());
    EXPECT_TRUE(loadImage(wall.data(), session.editor(), false));
    const std::string bytes = readFile(folder.path(textAt("/images/wall-bmp/file")));
    const std::string same = source("same/wall.bmp", bytes);
    for(const char* const name: {"wall.bmp", "wall.bmp 2", "wall.bmp 17"}) {
        changes().recordString("/textures/wall-bmp/name", name, false);
        EXPECT_EQ(std::string{textureOfImage(same.data(), session.editor()).data()}, "wall-bmp") << name;
    }
    for(const char* const name: {"wall.bmp ", "wall.bmp2", "wall.bmp 2a", "my wall.bmp", ""}) {
        changes().recordString("/textures/wall-bmp/name", name, false);
        EXPECT_TRUE(textureOfImage(same.data(), session.editor()).isEmpty()) << name;
    }
}

TEST_F(LoadFileTest, AnImageIsLoadedWhereNameAndBytesAre) {
    // The converter's picture is that of its own name: it is what the source is not.
    const std::string wall = source("wall.bmp", "scene wall 0");
    EXPECT_FALSE(isImageLoaded(wall.data(), session.editor()));
    EXPECT_TRUE(loadImage(wall.data(), session.editor(), false));
    EXPECT_EQ(std::string{session.data().project().resourceByName("textures", "wall.bmp").data()}, "wall-bmp");
    EXPECT_FALSE(isImageLoaded(wall.data(), session.editor()));
    const std::string same = source("same/wall.bmp", readFile(folder.path(textAt("/images/wall-bmp/file"))));
    EXPECT_TRUE(isImageLoaded(same.data(), session.editor()));
    const std::string renamed = source("roof.bmp", readFile(same));
    EXPECT_FALSE(isImageLoaded(renamed.data(), session.editor()));
    source("same/wall.bmp", readFile(same).replace(54, 1, "\x7f"));
    EXPECT_FALSE(isImageLoaded(same.data(), session.editor()));
    EXPECT_FALSE(isImageLoaded(folder.path("missing/wall.bmp").data(), session.editor()));
}

TEST_F(LoadFileTest, WhatIsNoImageIsToldInALine) {
    const std::string broken = source("wall.png", "say error no picture\n");
    EXPECT_EQ(
        printed<Corrade::Utility::Error>([&] { EXPECT_FALSE(loadImage(broken.data(), session.editor(), false)); }),
        "wall.png: no picture\n");
    EXPECT_EQ(printed<Corrade::Utility::Error>([&] { EXPECT_FALSE(loadImage("a.glb", session.editor(), false)); }),
        "a.glb: this is no image\n");
    EXPECT_FALSE(changes().canUndo());
}

TEST_F(LoadFileTest, AHostWithoutImportsSaysSo) {
    ProjectSession other;
    EXPECT_EQ(printed<Corrade::Utility::Error>([&] { loadFile("a.glb", other.editor(), LoadMode::Import, false); }),
        "a.glb: nothing can be imported here\n");
    EXPECT_FALSE(isImageLoaded("a.png", other.editor()));
}

TEST_F(LoadFileTest, TheRadiusIsThatOfAllMeshesBelow) {
    EXPECT_EQ(radiusOf({}, session), 0.0f);
    import("scene box 1");
    // A cube from -1 to 1, as a sphere, in a box.
    EXPECT_NEAR(radiusOf({"box"}, session), 3.0f, 1e-5f);
    record("/objects/box/scaling", "[0.01, 0.01, 0.01]");
    session.update();
    EXPECT_NEAR(radiusOf({"box"}, session), 0.03f, 1e-5f);
    EXPECT_NEAR(radiusOf({"part", "missing"}, session), 0.03f, 1e-5f);
}

TEST_F(LoadFileTest, SmallAndLargeThingsGetPlanesOfTheirOwn) {
    for(const double radius: {0.0001, 0.03, 0.4, 60.0, 3000.0}) {
        EXPECT_TRUE(needsDepthRange(radius));
        const DepthRange range = depthRangeFor(radius);
        EXPECT_LT(range.near, radius * 0.05);
        EXPECT_GT(range.far, radius * 500.0);
        EXPECT_LT(range.far / range.near, 3e5);
    }
    EXPECT_FALSE(needsDepthRange(0.0));
    EXPECT_FALSE(needsDepthRange(3.0));
}

TEST_F(LoadFileTest, ThePlanesAreAPartOfTheImport) {
    const std::string before = document();
    const InsertedImport inserted = import("scene box 1");
    fitDepthRange(inserted.roots, session);
    EXPECT_FALSE(at("/settings/editor"));
    changes().undoLast();
    import("scene tiny 1 0.01");
    fitDepthRange({"tiny"}, session);
    ASSERT_TRUE(at("/settings/editor/camera/far"));
    EXPECT_EQ(at("/settings/editor/camera/near")->GetDouble(), 0.0005);
    EXPECT_EQ(at("/settings/editor/camera/far")->GetDouble(), 50.0);
    changes().undoLast();
    EXPECT_EQ(document(), before);
}

} // namespace

} // namespace VantrelEngine
