#include <cmath>
#include <random>
#include <set>

#include <Magnum/GL/Context.h>
#include <Magnum/GL/Extensions.h>

#include "Renderer/Test/RendererFixture.h"

using namespace VantrelTest;

namespace {

constexpr std::uint32_t Depth = PipelineHeader::DepthTest | PipelineHeader::DepthWrite;

struct PictureTest: RendererTest {
    PictureTest() {
        plain = addPipeline("Plain");
        mesh = addMesh(square());
    }

    // Many meshes of several pipelines, some of them mirrored, behind each other and outside of the picture.
    void addMany(std::size_t count) {
        std::mt19937 random{7};
        const auto number = [&](Float limit) { return std::uniform_real_distribution<Float>{-limit, limit}(random); };
        const Id pipelines[]{plain, addPipeline("Double", Depth | PipelineHeader::DoubleSided),
            addPipeline("Blended", PipelineHeader::DepthTest | PipelineHeader::Blend | PipelineHeader::DoubleSided),
            addPipeline("Masked", Depth | PipelineHeader::AlphaMask)};
        const Id meshes[]{mesh, addMesh(shapeMesh(MeshShape::Cube)), addMesh(shapeMesh(MeshShape::Cone)),
            addMesh(square({0.3f, 0.0f, 0.0f}, 0.2f))};
        std::vector<Id> materials;
        for(int i = 0; i != 12; ++i)
            materials.push_back(addMaterial(pipelines[i % 4],
                {std::abs(number(1.0f)), std::abs(number(1.0f)), std::abs(number(1.0f)), i % 4 == 2 ? 0.5f : 1.0f}));
        for(std::size_t i = 0; i != count; ++i) {
            const Float size = 0.2f + std::abs(number(0.5f));
            add(meshes[i % 4], materials[i % 7 + i % 5], {number(6.0f), number(6.0f), number(6.0f)},
                Vector3{i % 3 ? size : -size, size, size});
        }
        tell();
    }

    static bool canMultiDraw() {
        return GL::Context::current().isExtensionSupported<GL::Extensions::ARB::shader_draw_parameters>();
    }

    Id plain, mesh;
};

TEST_F(PictureTest, aMeshIsWhereItsObjectStands) {
    const Id object = add(mesh, addMaterial(plain, RedColor), {2.0f, -1.0f, 0.0f});
    tell();
    std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, 2.0f, -1.0f), Red);
    EXPECT_EQ(std::count(picture.begin(), picture.end(), Red), 64);
    EXPECT_EQ(std::count(picture.begin(), picture.end(), Nothing), Size * Size - 64);

    // The edges, half a pixel to each side.
    EXPECT_EQ(at(picture, 1.5f + 0.06f, -1.0f), Red);
    EXPECT_EQ(at(picture, 1.5f - 0.06f, -1.0f), Nothing);

    move(object, {-2.0f, 3.0f, 1.0f});
    picture = frame();
    EXPECT_EQ(at(picture, 2.0f, -1.0f), Nothing);
    EXPECT_EQ(at(picture, -2.0f, 3.0f), Red);
    EXPECT_EQ(std::count(picture.begin(), picture.end(), Red), 64);
}

TEST_F(PictureTest, objectsFollowTheirParentsAndScalings) {
    const Id parent = add(mesh, addMaterial(plain, RedColor), {1.0f, 0.0f, 0.0f}, {2.0f, 1.0f, 1.0f});
    const Id child = scene.addObject(parent);
    scene.localTransformation(child) = DualQuaternion::translation({1.0f, 2.0f, 0.0f});
    const Id component = scene.meshes.addComponent(child);
    scene.meshes.mesh(component) = mesh;
    scene.meshes.material(component) = addMaterial(plain, GreenColor);
    scene.meshes.setGroup(component, plain, 0);
    scene.meshes.activate(component);
    tell();
    const std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, 1.9f, 0.0f), Red);
    EXPECT_EQ(at(picture, 2.1f, 0.0f), Nothing);
    // 1 + 2 * 1 to the right, and as wide as the parent.
    EXPECT_EQ(at(picture, 2.1f, 2.0f), Green);
    EXPECT_EQ(at(picture, 1.9f, 2.0f), Nothing);
}

TEST_F(PictureTest, whatIsNearerHidesWhatIsFarther) {
    const Id red = add(mesh, addMaterial(plain, RedColor), {});
    add(mesh, addMaterial(plain, GreenColor), {0.5f, 0.0f, -1.0f});
    tell();
    EXPECT_EQ(at(frame(), 0.25f, 0.0f), Red);
    move(red, {0.0f, 0.0f, -2.0f});
    EXPECT_EQ(at(frame(), 0.25f, 0.0f), Green);
}

TEST_F(PictureTest, facesAreSeenFromTheirFrontUnlessBothSidesAre) {
    const Id doubleSided = addPipeline("Double", Depth | PipelineHeader::DoubleSided);
    const Vector3 mirrored{-1.0f, 1.0f, 1.0f};
    add(mesh, addMaterial(plain, RedColor), {-3.0f, 0.0f, 0.0f});
    const Id back = add(mesh, addMaterial(plain, RedColor), {-1.0f, 0.0f, 0.0f});
    // A mirrored front is a front.
    add(mesh, addMaterial(plain, GreenColor), {1.0f, 0.0f, 0.0f}, mirrored);
    const Id backOfDouble = add(mesh, addMaterial(doubleSided, BlueColor), {3.0f, 0.0f, 0.0f});
    for(const Id object: {back, backOfDouble})
        scene.localTransformation(object) =
            scene.localTransformation(object) * DualQuaternion::rotation(180.0_degf, Vector3::yAxis());
    tell();
    for(const bool isMultiDraw: {true, false}) {
        renderer.setMultiDrawEnabled(isMultiDraw);
        const std::vector<std::uint32_t> picture = frame();
        EXPECT_EQ(at(picture, -3.0f, 0.0f), Red);
        EXPECT_EQ(at(picture, -1.0f, 0.0f), Nothing);
        EXPECT_EQ(at(picture, 1.0f, 0.0f), Green);
        EXPECT_EQ(at(picture, 3.0f, 0.0f), Blue);
        const std::vector<std::uint32_t> numbers = ids();
        for(const Float x: {-3.0f, -1.0f, 1.0f, 3.0f})
            EXPECT_EQ(at(numbers, x, 0.0f) == 0xffffffffu, at(picture, x, 0.0f) == Nothing) << x;
    }
}

TEST_F(PictureTest, isTheSameWithoutMultiDraw) {
    addMany(400);
    const std::vector<std::uint32_t> picture = frame();
    const std::size_t calls = renderer.drawCalls();
    const std::uint64_t triangles = renderer.triangles();
    renderer.setMultiDrawEnabled(false);
    EXPECT_EQ(frame(), picture);
    if(canMultiDraw())
        EXPECT_GT(renderer.drawCalls(), calls);
    else
        EXPECT_EQ(renderer.drawCalls(), calls);
    EXPECT_EQ(renderer.triangles(), triangles);
    // More than a few colours: it is a picture.
    EXPECT_GT(std::set<std::uint32_t>(picture.begin(), picture.end()).size(), 50u);
}

TEST_F(PictureTest, isTheSameWithoutCulling) {
    addMany(400);
    const std::vector<std::uint32_t> picture = frame();
    const std::size_t visible = renderer.visibleMeshes().size();
    const std::uint64_t triangles = renderer.triangles();
    EXPECT_LT(visible, 320u);
    renderer.setFrustumCullingEnabled(false);
    EXPECT_EQ(frame(), picture);
    EXPECT_EQ(renderer.visibleMeshes().size(), 400u);
    EXPECT_GT(renderer.triangles(), triangles);
}

TEST_F(PictureTest, isTheSameWithDepthDrawnFirst) {
    addMany(400);
    const std::vector<std::uint32_t> picture = frame();
    const std::size_t calls = renderer.drawCalls();
    renderer.setDepthPrePassEnabled(true);
    EXPECT_EQ(frame(), picture);
    EXPECT_GT(renderer.drawCalls(), calls);
}

// In a perspective, too, where the places of vertices are rounded.
TEST_F(PictureTest, isTheSameWithDepthDrawnFirstInAPerspective) {
    addMany(400);
    scene.views.projectionMatrix(camera) = Matrix4::perspectiveProjection(35.0_degf, 1.0f, 0.1f, Constants::inf());
    const std::vector<std::uint32_t> picture = frame();
    renderer.setDepthPrePassEnabled(true);
    EXPECT_EQ(frame(), picture);
    renderer.setFrustumCullingEnabled(false);
    EXPECT_EQ(frame(), picture);
}

TEST_F(PictureTest, eachGroupIsOneCallWithMultiDraw) {
    addMany(400);
    frame();
    // Four groups, each with and without mirrored ones, and of what blends more: the order decides.
    std::size_t groups = 0;
    for(std::size_t i = 0; i != scene.meshes.groupsCount(); ++i) groups += scene.meshes.groupSize(i) != 0;
    EXPECT_EQ(groups, 4u);
    resources.pipelines[3].header.flags &= ~PipelineHeader::Blend;
    tell();
    frame();
    // Else one a mesh, of which each has four.
    EXPECT_EQ(renderer.drawCalls(), canMultiDraw() ? 8u : 32u);
}

TEST_F(PictureTest, blendedMeshesAreDrawnFromTheFarthestToTheNearest) {
    const Id blended = addPipeline("Blended", PipelineHeader::DepthTest | PipelineHeader::Blend);
    const Id other = addPipeline("Other", PipelineHeader::DepthTest | PipelineHeader::Blend);
    const Vector4 half{0.0f, 0.0f, 0.0f, 0.5f};
    const Id red = add(mesh, addMaterial(blended, RedColor - half), {0.0f, 0.0f, 2.0f});
    const Id green = add(mesh, addMaterial(other, GreenColor - half), {0.0f, 0.0f, 1.0f});
    const Id blue = add(mesh, addMaterial(blended, BlueColor - half), {0.0f, 0.0f, 0.0f});
    tell();
    // Half of the nearest, a quarter of the next.
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), 0x804020ffu);
    move(blue, {0.0f, 0.0f, 3.0f});
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), 0x402080ffu);
    move(green, {0.0f, 0.0f, 4.0f});
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), 0x208040ffu);
    // The order of pipelines comes first: with it, the one that is drawn later is on top wherever it is.
    move(red, {0.0f, 0.0f, 5.0f});
    resources.pipelines[other].header.order = 1;
    tell();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), 0x408020ffu);
}

TEST_F(PictureTest, opaqueMeshesAreDrawnBeforeBlendedOnes) {
    const Id blended = addPipeline("Blended", Depth | PipelineHeader::Blend);
    add(mesh, addMaterial(blended, RedColor - Vector4{0.0f, 0.0f, 0.0f, 0.4f}), {0.0f, 0.0f, 1.0f});
    add(mesh, addMaterial(plain, GreenColor), {});
    tell();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), 0x996600ffu);
}

TEST_F(PictureTest, pipelinesDrawInTheirOrder) {
    const Id first = addPipeline("First", PipelineHeader::DepthWrite, 3), last = addPipeline("Last", 0, 9);
    add(mesh, addMaterial(last, RedColor), {0.0f, 0.0f, -3.0f});
    add(mesh, addMaterial(first, GreenColor), {});
    tell();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Red);
    std::swap(resources.pipelines[first].header.order, resources.pipelines[last].header.order);
    tell();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), Green);
}

TEST_F(PictureTest, depthIsWrittenAndTestedAsThePipelineSays) {
    const Id noTest = addPipeline("NoTest", PipelineHeader::DepthWrite, 1);
    const Id noWrite = addPipeline("NoWrite", PipelineHeader::DepthTest);
    add(mesh, addMaterial(plain, RedColor), {0.0f, 0.0f, 1.0f});
    add(mesh, addMaterial(noTest, GreenColor), {});
    add(mesh, addMaterial(noWrite, BlueColor), {2.0f, 0.0f, 1.0f});
    const Id later = addPipeline("Later", Depth, 1);
    add(mesh, addMaterial(later, GreenColor), {2.0f, 0.0f, 0.0f});
    tell();
    const std::vector<std::uint32_t> picture = frame();
    EXPECT_EQ(at(picture, 0.0f, 0.0f), Green);
    EXPECT_EQ(at(picture, 2.0f, 0.0f), Green);
}

// The shader of a masked pipeline makes holes; what is behind is seen, and picked, through them.
TEST_F(PictureTest, masksMakeHolesInPictureIdsAndFlatColours) {
    fragment = "in vec3 worldPosition;\n"
               "void main() {\n"
               "#ifdef ALPHA_MASK\n"
               "    if(worldPosition.x < 0.0) discard;\n"
               "#endif\n"
               "    fragmentColor = material_color();\n"
               "}\n";
    const Id masked = addPipeline("Masked", Depth | PipelineHeader::AlphaMask);
    const Id front = add(mesh, addMaterial(masked, RedColor), {0.0f, 0.0f, 1.0f});
    const Id back = add(mesh, addMaterial(plain, GreenColor), {});
    tell();
    for(const bool isDepthFirst: {false, true}) {
        renderer.setDepthPrePassEnabled(isDepthFirst);
        const std::vector<std::uint32_t> picture = frame();
        EXPECT_EQ(at(picture, -0.25f, 0.0f), Green);
        EXPECT_EQ(at(picture, 0.25f, 0.0f), Red);
    }
    const std::vector<std::uint32_t> numbers = ids();
    EXPECT_EQ(at(numbers, -0.25f, 0.0f), std::uint32_t(back) << 24 | 0xff);
    EXPECT_EQ(at(numbers, 0.25f, 0.0f), std::uint32_t(front) << 24 | 0xff);

    clear();
    UnsignedLong word = UnsignedLong{1} << front;
    EXPECT_EQ(renderer.drawFlat(scene.views, camera, scene, BitSetView{{&word, 1}, 64}, Color4{BlueColor}), 1u);
    const std::vector<std::uint32_t> flat = pixels();
    EXPECT_EQ(at(flat, -0.25f, 0.0f), Nothing);
    EXPECT_EQ(at(flat, 0.25f, 0.0f), Blue);
}

TEST_F(PictureTest, idsAreTheTwoBytesOfTheObject) {
    const Id material = addMaterial(plain, RedColor);
    // The objects have ids above 255, too.
    std::vector<Id> objects;
    for(int i = 0; i != 1024; ++i)
        objects.push_back(
            add(mesh, material, {Float(i % 32) / 4.0f - 3.875f, Float(i / 32) / 4.0f - 3.875f, 0.0f}, Vector3{0.125f}));
    tell();
    update();
    for(const bool isMultiDraw: {true, false}) {
        renderer.setMultiDrawEnabled(isMultiDraw);
        const std::vector<std::uint32_t> numbers = ids();
        for(int i = 0; i != 1024; ++i) {
            const std::uint32_t pixel =
                at(numbers, Float(i % 32) / 4.0f - 3.875f - 0.05f, Float(i / 32) / 4.0f - 3.875f - 0.05f);
            ASSERT_EQ(pixel >> 24 | (pixel >> 16 & 0xff) << 8, objects[std::size_t(i)]) << i;
            ASSERT_EQ(pixel & 0xffff, 0x00ffu);
        }
    }
    EXPECT_GT(objects.back(), 1000);
}

TEST_F(PictureTest, noObjectIsAllOnes) {
    add(mesh, addMaterial(plain, RedColor), {3.0f, 3.0f, 0.0f});
    tell();
    update();
    EXPECT_EQ(at(ids(), 0.0f, 0.0f), 0xffffffffu);
}

TEST_F(PictureTest, drawsTheObjectsOfASetInOneColour) {
    const Id material = addMaterial(plain, RedColor);
    const Id objects[]{add(mesh, material, {-2.0f, 0.0f, 0.0f}), add(mesh, material, {}),
        add(mesh, material, {2.0f, 0.0f, 0.0f}), add(mesh, material, {100.0f, 0.0f, 0.0f})};
    tell();
    update();
    UnsignedLong word = UnsignedLong{1} << objects[0] | UnsignedLong{1} << objects[2] | UnsignedLong{1} << objects[3];
    clear();
    // The last one is out of sight.
    EXPECT_EQ(renderer.drawFlat(scene.views, camera, scene, BitSetView{{&word, 1}, 64}, Color4{GreenColor}), 2u);
    const std::vector<std::uint32_t> picture = pixels();
    EXPECT_EQ(at(picture, -2.0f, 0.0f), Green);
    EXPECT_EQ(at(picture, 0.0f, 0.0f), Nothing);
    EXPECT_EQ(at(picture, 2.0f, 0.0f), Green);
    EXPECT_EQ(std::count(picture.begin(), picture.end(), Green), 128);

    word = 0;
    EXPECT_EQ(renderer.drawFlat(scene.views, camera, scene, BitSetView{{&word, 1}, 64}, Color4{GreenColor}), 0u);
}

TEST_F(PictureTest, aViewMayHaveTheMatricesOfAnother) {
    add(mesh, addMaterial(plain, RedColor), {2.0f, 0.0f, 0.0f});
    const Id otherObject = scene.addObject(RootObject);
    scene.localTransformation(otherObject) = DualQuaternion::translation({2.0f, 0.0f, 20.0f});
    const Id other = scene.views.addComponent(otherObject);
    scene.views.projectionMatrix(other) = scene.views.projectionMatrix(camera);
    scene.views.activate(other);
    tell();
    renderer.setViewBufferForView(camera, other);
    scene.views.update();
    update();
    clear(Color4{1.0f});
    renderer.drawObjectIds(scene.views, camera, scene);
    EXPECT_NE(at(pixels(), 0.0f, 0.0f), 0xffffffffu);
    renderer.setViewBufferForView(camera, camera);
    EXPECT_EQ(at(ids(), 0.0f, 0.0f), 0xffffffffu);
}

// Its order, too: of two that blend, the camera and the other view have another one in front.
TEST_F(PictureTest, whatBlendsIsSortedForTheMatricesThatDraw) {
    const Id blended =
        addPipeline("Blended", PipelineHeader::DepthTest | PipelineHeader::Blend | PipelineHeader::DoubleSided);
    const Vector4 half{0.0f, 0.0f, 0.0f, 0.5f};
    add(mesh, addMaterial(blended, RedColor - half), {0.0f, 0.0f, 1.0f});
    add(mesh, addMaterial(blended, GreenColor - half), {});
    const Id behindObject = scene.addObject(RootObject);
    scene.localTransformation(behindObject) =
        DualQuaternion::rotation(180.0_degf, Vector3::yAxis()) * DualQuaternion::translation({0.0f, 0.0f, 20.0f});
    const Id behind = scene.views.addComponent(behindObject);
    scene.views.projectionMatrix(behind) = scene.views.projectionMatrix(camera);
    tell();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), 0x804000ffu);
    scene.views.activate(behind);
    scene.views.update();
    scene.views.setActive(behind, false);
    renderer.setViewBufferForView(camera, behind);
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), 0x408000ffu);
}

TEST_F(PictureTest, shadersKnowTheCameraAndTheViewport) {
    fragment = "void main() { fragmentColor = vec4(cameraPosition.z/40.0, viewportSize.x/128.0, 0.0, 1.0); }\n";
    add(mesh, addMaterial(plain, RedColor), {});
    tell();
    EXPECT_EQ(at(frame(), 0.0f, 0.0f), 0x808000ffu);
}

} // namespace
