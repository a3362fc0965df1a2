#include <chrono>
#include <cmath>
#include <filesystem>
#include <limits>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "../../Data/Resources/Test/GlbBuilder.h"
#include "Support/TestFolder.h"
#include "Thumbnails/PictureRaster.h"
#include "VantrelHost/ModelPicture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
namespace fs = std::filesystem;

constexpr Int Edge = 32;

Color4ub at(const std::vector<Color4ub>& pixels, Int x, Int y) { return pixels[std::size_t(y * Edge + x)]; }

const Color4ub Background{48, 48, 48, 255};

// Two triangles across the axis that the camera looks along, as large as the sphere, so far towards the camera.
void drawSquare(PictureRaster& raster, const Color4& color, Float towards, const RasterTexture* texture = nullptr,
    Float cutoff = 0.0f, Float size = 0.5f) {
    const Matrix4 camera = Matrix4::rotationY(Deg{35.0f}) * Matrix4::rotationX(Deg{-25.0f});
    const auto corner = [&](Float x, Float y) {
        const Vector3 position = camera.transformPoint({x * size, y * size, towards});
        return RasterVertex{position, camera.backward(), Vector2{x, y} * 0.5f + Vector2{0.5f}, color};
    };
    raster.draw({corner(-1, -1), corner(1, -1), corner(1, 1)}, texture, cutoff);
    // The other way round: both sides are seen.
    raster.draw({corner(-1, -1), corner(-1, 1), corner(1, 1)}, texture, cutoff);
}

TEST(PictureRasterTest, WhatIsNearerHidesWhatIsBehindInAnyOrder) {
    for(const bool isNearFirst: {false, true}) {
        PictureRaster raster{Edge, {}, 1.0f};
        if(isNearFirst) drawSquare(raster, {1.0f, 0.0f, 0.0f}, 0.3f, nullptr, 0.0f, 0.2f);
        drawSquare(raster, {0.0f, 0.0f, 1.0f}, 0.0f);
        if(!isNearFirst) drawSquare(raster, {1.0f, 0.0f, 0.0f}, 0.3f, nullptr, 0.0f, 0.2f);
        const std::vector<Color4ub> pixels = raster.pixels();
        EXPECT_GT(at(pixels, 16, 16).r(), 150);
        EXPECT_EQ(at(pixels, 16, 16).b(), 0);
        EXPECT_GT(at(pixels, 10, 10).b(), 150);
        EXPECT_EQ(at(pixels, 10, 10).r(), 0);
        EXPECT_EQ(at(pixels, 1, 1), Background);
        EXPECT_EQ(at(pixels, 1, 1).a(), 255);
    }
}

TEST(PictureRasterTest, TexturesLieUpwardsAndHaveHoles) {
    // Below red and a hole, above green and blue.
    const RasterTexture texture{{2, 2}, {{255, 0, 0, 255}, {0, 0, 0, 0}, {0, 255, 0, 255}, {0, 0, 255, 255}}};
    PictureRaster raster{Edge, {}, 1.0f};
    drawSquare(raster, Color4{1.0f}, 0.0f, &texture, 0.5f);
    const std::vector<Color4ub> pixels = raster.pixels();
    EXPECT_GT(at(pixels, 11, 11).r(), 100);
    EXPECT_EQ(at(pixels, 20, 11), Background);
    EXPECT_GT(at(pixels, 11, 20).g(), 100);
    EXPECT_GT(at(pixels, 20, 20).b(), 100);
    // Beyond the image it is there once more, and nothing comes of numbers that are none.
    EXPECT_EQ(texture.at({1.25f, 0.25f}), texture.at({0.25f, 0.25f}));
    EXPECT_EQ(texture.at({-0.25f, 7.75f}), texture.at({0.75f, 0.75f}));
    EXPECT_EQ(texture.at({std::numeric_limits<Float>::quiet_NaN(), 1e30f}).a(), 1.0f);
}

TEST(PictureRasterTest, NothingComesOfTrianglesThatAreNone) {
    constexpr Float nan = std::numeric_limits<Float>::quiet_NaN(), huge = std::numeric_limits<Float>::max();
    PictureRaster raster{Edge, {}, 1.0f};
    for(const Vector3& odd: {Vector3{nan, 0.0f, 0.0f}, Vector3{huge}, Vector3{0.0f, 0.0f, 1e6f}, Vector3{}})
        raster.draw(
            {{odd, {}, {}, Color4{1.0f}}, {{}, {}, {}, Color4{1.0f}}, {{}, {}, {}, Color4{1.0f}}}, nullptr, 0.0f);
    for(const Color4ub& pixel: raster.pixels()) EXPECT_EQ(pixel, Background);
    // A model without a size.
    EXPECT_EQ((PictureRaster{Edge, Vector3{5.0f}, 0.0f}.pixels().size()), std::size_t(Edge * Edge));
}

class ModelPictureTest: public testing::Test {
protected:
    ModelPictureTest() {
        // A triangle that fills the lower left of a square, across the camera's axis well enough.
        folder.write(
            "t.glb", VantrelEngine::Test::meshFile({-1, -1, 0, 1, -1, 0, 1, 1, 0, -1, -1, 0, 1, 1, 0, -1, 1, 0}));
    }
    std::vector<Color4ub> draw(const std::string& sections) {
        JsonDocument document;
        document.Parse(sections.data());
        EXPECT_FALSE(document.HasParseError());
        return drawModelPicture(document, folder.path().string(), Edge, isGivenUp);
    }
    static std::string object(const std::string& more) {
        return "{" + more + R"("components": [{"type": "mesh", "mesh": {"mesh": "t", "material": "m"}}]})";
    }
    static std::string sections(const std::string& objects, const std::string& material = "{}") {
        return R"({"objects": {)" + objects + R"(}, "meshes": {"t": {"file": "t.glb"}}, "materials": {"m": )" +
            material + R"(}, "pipelines": {"p": {"blend": true}}, "textures": {}, "images": {}})";
    }

    const VantrelTest::TestFolder folder;
    std::atomic<bool> isGivenUp{false};
};

TEST_F(ModelPictureTest, ShowsTheModelInItsColour) {
    const std::vector<Color4ub> plain = draw(sections(R"("a": )" + object("")));
    ASSERT_EQ(plain.size(), std::size_t(Edge * Edge));
    EXPECT_NE(at(plain, 16, 16), Background);
    EXPECT_EQ(at(plain, 1, 30), Background);
    const std::vector<Color4ub> red =
        draw(sections(R"("a": )" + object(""), R"({"Lit Placed": {"baseColor": [1, 0, 0, 1]}})"));
    EXPECT_GT(at(red, 16, 16).r(), 100);
    EXPECT_EQ(at(red, 16, 16).g(), 0);
    const std::vector<Color4ub> unlit = draw(sections(R"("a": )" + object(""), R"({"Flat": {"color": [0, 1, 0, 1]}})"));
    EXPECT_GT(at(unlit, 16, 16).g(), 100);
    EXPECT_EQ(at(unlit, 16, 16).r(), 0);
    EXPECT_EQ(draw(sections(R"("a": )" + object(""), R"({"pipeline": "p", "Lit": {"baseColor": [1, 0, 0, 0]}})")),
        std::vector<Color4ub>(std::size_t(Edge * Edge), Background))
        << "what is clear is not seen";
}

TEST_F(ModelPictureTest, ObjectsStandWhereTheirParentsPutThem) {
    // Two squares beside each other; and one of them below a parent, from which it is as far and as large.
    const std::string other = R"(, "c": )" + object(R"("translation": [3, 0, 0],)");
    const std::vector<Color4ub> plain = draw(sections(R"("a": )" + object("") + other));
    EXPECT_EQ(
        draw(sections(R"("a": )" + object(R"("parent": "b", "translation": [-2, 0, 0], "scaling": [0.5, 0.5, 0.5],)") +
            R"(, "b": {"translation": [4, 0, 0], "scaling": [2, 2, 2]})" + other)),
        plain);
    EXPECT_NE(draw(sections(R"("a": )" + object(R"("rotation": [0, 0.7, 0, 0.7],)"))), plain);
    EXPECT_NE(draw(sections(R"("a": )" + object("") + R"(, "b": )" + object(R"("translation": [9, 0, 0],)"))), plain)
        << "all of it fits into the picture";
    // What leads back to itself ends.
    EXPECT_FALSE(draw(sections(R"("a": )" + object(R"("parent": "b",)") + R"(, "b": {"parent": "a"})")).empty());
}

TEST_F(ModelPictureTest, NothingIsDrawnOfWhatIsNotThere) {
    EXPECT_TRUE(draw("{}").empty());
    EXPECT_TRUE(draw("[]").empty());
    EXPECT_TRUE(draw(sections("")).empty());
    EXPECT_TRUE(draw(sections(R"("a": {"components": [{"type": "light"}, 5, {"type": "mesh", "mesh": 3}]})")).empty());
    folder.write("t.glb", "damaged");
    EXPECT_TRUE(draw(sections(R"("a": )" + object(""))).empty());
    fs::remove(folder.path("t.glb"));
    EXPECT_TRUE(draw(sections(R"("a": )" + object(""))).empty());
}

TEST_F(ModelPictureTest, IsGivenUp) {
    isGivenUp = true;
    EXPECT_TRUE(draw(sections(R"("a": )" + object(""))).empty());
}

TEST_F(ModelPictureTest, TheContentTellsWhetherTheFileIsAnother) {
    folder.write("a/a.glb", "one");
    folder.write("b/b.glb", "one");
    folder.write("a/a.obj", "one");
    const std::uint64_t content = modelContent(folder.path("a/a.glb")), obj = modelContent(folder.path("a/a.obj"));
    EXPECT_NE(content, 0u);
    EXPECT_EQ(modelContent(folder.path("b/b.glb")), content);
    EXPECT_NE(obj, content);
    EXPECT_EQ(modelContent(folder.path("missing.glb")), 0u);
    // One file has all; of the others a file beside it may be a part.
    folder.write("a/a.mtl", "Kd 1 0 0");
    EXPECT_EQ(modelContent(folder.path("a/a.glb")), content);
    EXPECT_NE(modelContent(folder.path("a/a.obj")), obj);
    folder.write("a/a.glb", "two");
    EXPECT_NE(modelContent(folder.path("a/a.glb")), content);
}

TEST_F(ModelPictureTest, PicturesAreKept) {
    const std::vector<Color4ub> pixels(std::size_t(Edge * Edge), Color4ub{1, 2, 3, 255});
    keepPicture(folder.path("kept"), 7, Edge, pixels);
    EXPECT_EQ(readKeptPicture(folder.path("kept"), 7, Edge), pixels);
    EXPECT_TRUE(readKeptPicture(folder.path("kept"), 8, Edge).empty());
    EXPECT_TRUE(readKeptPicture("", 7, Edge).empty());
}

}
