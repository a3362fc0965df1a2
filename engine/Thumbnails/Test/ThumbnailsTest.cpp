#include <VantrelHost/Thumbnails.h>

#include <algorithm>
#include <chrono>
#include <filesystem>
#include <utility>

#include <Corrade/Containers/StringStl.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EditorData/EditorSceneData.h>
#include <Vantrel/EngineData/ResourceManager.h>
#include <VantrelHost/EngineAssets.h>
#include <gtest/gtest.h>

#include "Data/Resources/MeshShape.h"
#include "Support/OffscreenContext.h"
#include "Support/TestFolder.h"
#include "Thumbnails/ThumbnailFiles.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;

constexpr Int Edge = 64;
constexpr Color4ub Ground{107, 107, 107, 255}, OtherGround{158, 158, 158, 255};

// A scene of a project with a cube, a material and an image.
struct ThumbnailsTest: VantrelTest::GlTest {
    ThumbnailsTest() {
        addEngineAssets(files);
        SceneMesh mesh;
        setShape(mesh, MeshShape::Cube);
        add(resources.meshes, ResourceKind::Mesh, "cube", std::move(mesh));
        SceneShader shader;
        shader.header.stage = ShaderStage::Mesh;
        shader.vertex = {"default", "Dynamic.vert"};
        shader.fragment = {"default", "Flat.frag"};
        add(resources.shaders, ResourceKind::Shader, "flat", std::move(shader));
        ScenePipeline pipeline;
        pipeline.shader = 1;
        pipeline.parameters = {
            {"color", ParameterType::Color, Vector4{1.0f}}, {"colorTexture", ParameterType::Texture, {}}};
        add(resources.pipelines, ResourceKind::Pipeline, "flat", std::move(pipeline));
        SceneMaterial material;
        material.pipeline = 1;
        material.values = {{1.0f, 0.0f, 0.0f, 1.0f}, {}};
        material.textures = {0, 0};
        add(resources.materials, ResourceKind::Material, "paint", std::move(material));
        SceneImage image;
        setColor(image, {40, 10}, {0, 0, 255, 255});
        add(resources.images, ResourceKind::Image, "banner", std::move(image));
    }

    template<class T> void add(std::vector<T>& list, ResourceKind kind, const char* id, T resource) {
        resource.id = id;
        scene.resourceMaps().node(kind, id).index = Id(list.size());
        list.push_back(std::move(resource));
    }
    static void setShape(SceneMesh& mesh, MeshShape shape) {
        mesh.data = shapeMesh(shape);
        ++mesh.revision;
        const MeshBounds bounds = meshBounds(*mesh.data);
        mesh.bounds = bounds.box;
        mesh.radius = bounds.radius;
    }
    static void setColor(SceneImage& image, const Vector2i& size, const Color4ub& color) {
        Corrade::Containers::Array<char> texels{Corrade::NoInit, std::size_t(size.product()) * sizeof(color)};
        std::fill_n(reinterpret_cast<Color4ub*>(texels.data()), size.product(), color);
        image.header.size = size;
        ++image.revision;
        image.pixels.emplace(PixelFormat::RGBA8Unorm, size, std::move(texels));
    }

    // A frame of somebody who shows this one and has nothing else to do; whether there was a new picture.
    bool frame(Thumbnails& of, ResourceKind kind, const char* id) {
        of.beginFrame();
        of.ask(kind, id);
        return of.isWorkWaiting() && of.work();
    }
    std::vector<Color4ub> picture(Thumbnails& of, ResourceKind kind, const char* id) {
        for(int i = 0; i != 5; ++i) frame(of, kind, id);
        std::vector<Color4ub> pixels = of.read(kind, id);
        EXPECT_EQ(pixels.size(), std::size_t(Edge * Edge)) << id;
        pixels.resize(std::size_t(Edge * Edge));
        return pixels;
    }
    static Color4ub at(const std::vector<Color4ub>& pixels, Int x, Int y) { return pixels[std::size_t(y * Edge + x)]; }

    VantrelTest::TestFolder folder;
    EditorSceneData scene;
    SceneResources& resources = scene.resources();
    ResourceManager files;
    Thumbnails thumbnails{scene, files, folder.path("cache"), Edge, 4};
};

TEST_F(ThumbnailsTest, aMeshIsSeenAsAWhole) {
    const std::vector<Color4ub> pixels = picture(thumbnails, ResourceKind::Mesh, "cube");
    const Color4ub background = at(pixels, 0, 0);
    for(Int i = 0; i != Edge; ++i)
        for(const Color4ub& border:
            {at(pixels, i, 0), at(pixels, i, Edge - 1), at(pixels, 0, i), at(pixels, Edge - 1, i)})
            EXPECT_EQ(border, background) << i;
    // The top, and the two faces below it, each in its own light.
    const Int middle = Edge / 2;
    const Color4ub top = at(pixels, middle, middle + 14), left = at(pixels, middle - 8, middle - 6),
                   right = at(pixels, middle + 14, middle - 4);
    for(const Color4ub& face: {top, left, right}) EXPECT_NE(face, background);
    EXPECT_GT(left.r(), right.r() + 20);
    EXPECT_NE(top, right);
    // Nearly as large as the picture.
    const auto covered =
        std::count_if(pixels.begin(), pixels.end(), [&](const Color4ub& p) { return p != background; });
    EXPECT_GT(covered, Edge * Edge / 4);
}

TEST_F(ThumbnailsTest, aMeshIsFramedWhereverItLies) {
    const std::vector<Color4ub> before = picture(thumbnails, ResourceKind::Mesh, "cube");
    SceneMesh& mesh = resources.meshes[1];
    for(Vector3& position: mesh.data->mutableAttribute<Vector3>(Trade::MeshAttribute::Position))
        position = position * 100.0f + Vector3{700.0f, -300.0f, 40.0f};
    const MeshBounds bounds = meshBounds(*mesh.data);
    mesh.bounds = bounds.box;
    mesh.radius = bounds.radius;
    ++mesh.revision;
    scene.revisions().touch(Aspect::MeshData);
    const std::vector<Color4ub> after = picture(thumbnails, ResourceKind::Mesh, "cube");
    std::size_t different = 0;
    for(std::size_t i = 0; i != before.size(); ++i) different += Math::abs(before[i].r() - after[i].r()) > 8;
    EXPECT_LT(different, before.size() / 100);
    EXPECT_EQ(thumbnails.drawn(), 2u);
}

TEST_F(ThumbnailsTest, aMaterialIsASphereInItsColour) {
    const std::vector<Color4ub> pixels = picture(thumbnails, ResourceKind::Material, "paint");
    EXPECT_EQ(at(pixels, Edge / 2, Edge / 2), (Color4ub{255, 0, 0, 255}));
    EXPECT_EQ(at(pixels, 5, Edge / 2), (Color4ub{255, 0, 0, 255}));
    for(const Int x: {1, Edge - 2})
        for(const Int y: {1, Edge - 2}) EXPECT_LT(at(pixels, x, y).r(), 100);
}

TEST_F(ThumbnailsTest, aMaterialShowsItsTexture) {
    SceneTexture texture;
    texture.header = {1, 1};
    add(resources.textures, ResourceKind::Texture, "banner", std::move(texture));
    resources.materials[1].values[0] = Vector4{1.0f};
    resources.materials[1].textures[1] = 1;
    EXPECT_EQ(at(picture(thumbnails, ResourceKind::Material, "paint"), Edge / 2, Edge / 2), (Color4ub{0, 0, 255, 255}));
    // What it is made of is followed to the image.
    setColor(resources.images[1], {40, 10}, {0, 255, 0, 255});
    scene.revisions().touch(Aspect::Images);
    EXPECT_EQ(at(picture(thumbnails, ResourceKind::Material, "paint"), Edge / 2, Edge / 2), (Color4ub{0, 255, 0, 255}));
}

TEST_F(ThumbnailsTest, anImageKeepsItsShape) {
    const std::vector<Color4ub> pixels = picture(thumbnails, ResourceKind::Image, "banner");
    for(Int y = 0; y != Edge; ++y) {
        const bool isImage = y >= 24 && y < 40;
        for(const Int x: {0, 20, Edge - 1})
            EXPECT_EQ(at(pixels, x, y) == (Color4ub{0, 0, 255, 255}), isImage) << x << " " << y;
    }
    EXPECT_EQ(at(pixels, 0, 0), Ground);
    EXPECT_EQ(at(pixels, 8, 0), OtherGround);
}

TEST_F(ThumbnailsTest, whatLetsThroughShowsTheGround) {
    setColor(resources.images[1], {8, 8}, {255, 0, 0, 0});
    const std::vector<Color4ub> pixels = picture(thumbnails, ResourceKind::Image, "banner");
    EXPECT_EQ(at(pixels, 0, 0), Ground);
    EXPECT_EQ(at(pixels, 8, 0), OtherGround);
}

TEST_F(ThumbnailsTest, nothingIsMadeBeforeSomebodyWorks) {
    for(int i = 0; i != 3; ++i) {
        thumbnails.beginFrame();
        EXPECT_FALSE(thumbnails.ask(ResourceKind::Mesh, "cube"));
        EXPECT_TRUE(thumbnails.isWorkWaiting());
    }
    EXPECT_EQ(thumbnails.drawn(), 0u);
    EXPECT_TRUE(thumbnails.work());
    EXPECT_TRUE(thumbnails.ask(ResourceKind::Mesh, "cube"));
}

TEST_F(ThumbnailsTest, oneAtATimeAndOnce) {
    const auto ask = [this] {
        thumbnails.beginFrame();
        return int(bool(thumbnails.ask(ResourceKind::Mesh, "cube"))) +
            int(bool(thumbnails.ask(ResourceKind::Material, "paint"))) +
            int(bool(thumbnails.ask(ResourceKind::Image, "banner")));
    };
    for(int i = 0; i != 3; ++i) {
        EXPECT_EQ(ask(), i);
        EXPECT_TRUE(thumbnails.work());
        EXPECT_EQ(thumbnails.drawn(), std::size_t(i + 1));
    }
    EXPECT_EQ(ask(), 3);
    thumbnails.work();
    for(int i = 0; i != 3; ++i) {
        EXPECT_EQ(ask(), 3);
        EXPECT_FALSE(thumbnails.isWorkWaiting());
    }
    EXPECT_EQ(thumbnails.drawn(), 3u);
}

TEST_F(ThumbnailsTest, whatNobodyAsksForAnyMoreIsNotMade) {
    thumbnails.beginFrame();
    thumbnails.ask(ResourceKind::Mesh, "cube");
    for(int i = 0; i != 4; ++i) thumbnails.beginFrame();
    EXPECT_FALSE(thumbnails.work());
    EXPECT_EQ(thumbnails.drawn(), 0u);
    EXPECT_FALSE(thumbnails.isWorkWaiting());
}

TEST_F(ThumbnailsTest, onlyWhatBecameAnotherIsMadeAgain) {
    picture(thumbnails, ResourceKind::Mesh, "cube");
    picture(thumbnails, ResourceKind::Material, "paint");
    // Something was compiled again to the same.
    scene.revisions().touch(Aspect::Materials);
    picture(thumbnails, ResourceKind::Mesh, "cube");
    picture(thumbnails, ResourceKind::Material, "paint");
    EXPECT_EQ(thumbnails.drawn(), 2u);
    EXPECT_EQ(thumbnails.loaded(), 0u);
    resources.materials[1].values[0] = {0.0f, 1.0f, 0.0f, 1.0f};
    scene.revisions().touch(Aspect::Materials);
    // The old one is shown meanwhile.
    thumbnails.beginFrame();
    EXPECT_TRUE(thumbnails.ask(ResourceKind::Material, "paint"));
    EXPECT_EQ(at(thumbnails.read(ResourceKind::Material, "paint"), Edge / 2, Edge / 2).r(), 255);
    EXPECT_EQ(at(picture(thumbnails, ResourceKind::Material, "paint"), Edge / 2, Edge / 2), (Color4ub{0, 255, 0, 255}));
    picture(thumbnails, ResourceKind::Mesh, "cube");
    EXPECT_EQ(thumbnails.drawn(), 3u);
}

TEST_F(ThumbnailsTest, pixelsAndVerticesThatStayAreGoneThroughOnce) {
    SceneTexture texture;
    texture.header = {1, 1};
    add(resources.textures, ResourceKind::Texture, "banner", std::move(texture));
    resources.materials[1].textures[1] = 1;
    const auto showAll = [&] {
        picture(thumbnails, ResourceKind::Mesh, "cube");
        picture(thumbnails, ResourceKind::Material, "paint");
        picture(thumbnails, ResourceKind::Image, "banner");
    };
    showAll();
    EXPECT_EQ(thumbnails.hashed(), 2u) << "the mesh, and the image of both others";
    for(const Aspect aspect: {Aspect::Materials, Aspect::Images, Aspect::MeshData}) {
        scene.revisions().touch(aspect);
        showAll();
    }
    EXPECT_EQ(thumbnails.hashed(), 2u);
    setShape(resources.meshes[1], MeshShape::Sphere);
    scene.revisions().touch(Aspect::MeshData);
    showAll();
    EXPECT_EQ(thumbnails.hashed(), 3u);
    EXPECT_EQ(thumbnails.drawn(), 4u);
    setColor(resources.images[1], {40, 10}, {0, 255, 0, 255});
    scene.revisions().touch(Aspect::Images);
    showAll();
    EXPECT_EQ(thumbnails.hashed(), 4u);
    EXPECT_EQ(thumbnails.drawn(), 6u);
}

TEST_F(ThumbnailsTest, aChangeThatOthersHaveTakenNoticeOfIsNone) {
    picture(thumbnails, ResourceKind::Mesh, "cube");
    scene.revisions().touch(Aspect::Settings);
    thumbnails.beginFrame();
    scene.revisions().acknowledge();
    thumbnails.beginFrame();
    thumbnails.ask(ResourceKind::Mesh, "cube");
    EXPECT_FALSE(thumbnails.isWorkWaiting());
}

TEST_F(ThumbnailsTest, whatIsGoneOrCannotBeShownHasNone) {
    picture(thumbnails, ResourceKind::Mesh, "cube");
    scene.resourceMaps().node(ResourceKind::Mesh, "cube").index = 0;
    scene.revisions().touch(Aspect::Meshes);
    for(const auto& asked:
        {std::pair{ResourceKind::Mesh, "cube"}, {ResourceKind::Mesh, "nobody"}, {ResourceKind::Shader, "flat"}}) {
        for(int i = 0; i != 4; ++i) frame(thumbnails, asked.first, asked.second);
        thumbnails.beginFrame();
        EXPECT_FALSE(thumbnails.ask(asked.first, asked.second));
        EXPECT_FALSE(thumbnails.isWorkWaiting());
        EXPECT_TRUE(thumbnails.read(asked.first, asked.second).empty());
    }
}

TEST_F(ThumbnailsTest, thereIsRoomForThoseThatAreShown) {
    for(int i = 0; i != 8; ++i) {
        SceneImage image;
        setColor(image, {4, 4}, {UnsignedByte(20 * i), 0, 0, 255});
        add(resources.images, ResourceKind::Image, std::to_string(i).c_str(), std::move(image));
    }
    const auto show = [this](int first, int end) {
        for(int round = 0; round != 12; ++round) {
            thumbnails.beginFrame();
            for(int i = first; i != end; ++i) thumbnails.ask(ResourceKind::Image, std::to_string(i).c_str());
            if(thumbnails.isWorkWaiting()) thumbnails.work();
        }
        int shown = 0;
        for(int i = first; i != end; ++i) {
            const std::vector<Color4ub> pixels = thumbnails.read(ResourceKind::Image, std::to_string(i).c_str());
            if(pixels.empty()) continue;
            EXPECT_EQ(at(pixels, 1, 1).r(), 20 * i);
            ++shown;
        }
        return shown;
    };
    EXPECT_EQ(show(0, 4), 4);
    // The first four have to go; they come back from the folder.
    EXPECT_EQ(show(4, 8), 4);
    EXPECT_EQ(thumbnails.drawn(), 8u);
    EXPECT_EQ(show(0, 4), 4);
    EXPECT_EQ(thumbnails.drawn(), 8u);
    EXPECT_EQ(thumbnails.loaded(), 4u);
    // More than there is room for: some are shown, and nobody works for ever.
    EXPECT_EQ(show(0, 8), 4);
    EXPECT_FALSE(thumbnails.isWorkWaiting());
}

struct ThumbnailFilesTest: ThumbnailsTest {
    ThumbnailFilesTest() { first = picture(thumbnails, ResourceKind::Material, "paint"); }

    std::filesystem::path file() {
        return std::filesystem::directory_iterator { folder.path("cache") } -> path();
    }

    std::vector<Color4ub> first;
    Thumbnails others{scene, files, folder.path("cache"), Edge, 4};
};

TEST_F(ThumbnailFilesTest, comeBackInAnotherRun) {
    EXPECT_EQ(picture(others, ResourceKind::Material, "paint"), first);
    EXPECT_EQ(others.drawn(), 0u);
    EXPECT_EQ(others.loaded(), 1u);
}

TEST_F(ThumbnailFilesTest, damagedOnesAreMadeAgain) {
    const std::string whole = VantrelTest::readFile(file());
    std::vector<std::string> damages{whole.substr(0, whole.size() / 2), whole.substr(0, 4), std::string{}, "text"};
    // The decoder takes more for a picture than is one.
    for(std::size_t i = 0; i < whole.size(); i += whole.size() / 20) {
        damages.push_back(whole);
        damages.back()[i] = char(whole[i] ^ 1);
    }
    for(const std::string& damaged: damages) {
        VantrelTest::writeFile(file(), damaged);
        Thumbnails others{scene, files, folder.path("cache"), Edge, 4};
        EXPECT_EQ(picture(others, ResourceKind::Material, "paint"), first);
        EXPECT_EQ(others.drawn(), 1u);
        EXPECT_EQ(VantrelTest::readFile(file()), whole);
    }
}

TEST_F(ThumbnailFilesTest, theOldestGoWhereThereAreTooMany) {
    const std::filesystem::path kept = file();
    for(const char* const name: {"cache/a.png", "cache/b.png"}) {
        folder.write(name, "old");
        std::filesystem::last_write_time(
            folder.path(name), std::filesystem::last_write_time(kept) - std::chrono::hours{1});
    }
    tidyThumbnails(folder.path("cache"), 3);
    EXPECT_TRUE(std::filesystem::exists(folder.path("cache/a.png")));
    tidyThumbnails(folder.path("cache"), 1);
    EXPECT_FALSE(std::filesystem::exists(folder.path("cache/a.png")));
    EXPECT_FALSE(std::filesystem::exists(folder.path("cache/b.png")));
    EXPECT_TRUE(std::filesystem::exists(kept));
}

TEST_F(ThumbnailFilesTest, aFolderThatCannotBeMadeIsNone) {
    folder.write("file", "");
    for(const std::string& name: {folder.path("file/cache"), std::string{}}) {
        Thumbnails others{scene, files, name, Edge, 4};
        EXPECT_EQ(picture(others, ResourceKind::Material, "paint"), first);
        EXPECT_EQ(others.drawn(), 1u);
    }
}

} // namespace
