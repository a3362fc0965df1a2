#include <cmath>

#include <Magnum/GL/Context.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/Math/Constants.h>
#include <Vantrel/EngineData/LightManager.h>
#include <Vantrel/EngineData/ViewManager.h>

#include "Renderer/Meshes/FrustumCulling.h"
#include "Renderer/Test/RendererFixture.h"

using namespace VantrelTest;

namespace {

constexpr std::uint32_t Depth = PipelineHeader::DepthTest | PipelineHeader::DepthWrite;

// Before a floor across the camera's axis, in the plane of its own places; things are in front of it. Fragments are as
// red as light comes to them.
struct ShadowsTest: RendererTest {
    ShadowsTest() {
        // The same 8 by 8 units at the origin.
        const Matrix4 projection = Matrix4::perspectiveProjection(Deg{2.0f * Math::atan(0.2f)}, 1.0f, 1.0f, 60.0f);
        scene.views.projectionMatrix(camera) = projection;
        scene.views.near(camera) = 1.0f;
        scene.views.far(camera) = 60.0f;
        fragment = "in vec3 worldPosition;\n"
                   "void main() {\n"
                   "#ifdef ALPHA_MASK\n"
                   "    if(fract(worldPosition.y) > 0.5) discard;\n"
                   "#endif\n"
                   "    vec3 direction, incoming, sum = vec3(0.0);\n"
                   "    for(int i = 0; i != lightCount(); ++i)\n"
                   "        if(lightAt(i, worldPosition, vec3(0.0, 0.0, 1.0), direction, incoming)) sum += incoming;\n"
                   "    fragmentColor = vec4(sum.r, 0.0, 0.0, 1.0);\n"
                   "}\n";
        plain = addPipeline("Plain");
        material = addMaterial(plain, Vector4{1.0f});
        mesh = addMesh(square());
        floor = add(mesh, material, {}, Vector3{30.0f});
    }

    Id addLight(LightType type, const DualQuaternion& place, Float range = 60.0f, Float texelSize = 0.05f) {
        const Id object = scene.addObject(RootObject);
        scene.localTransformation(object) = place;
        scene.setDirty(object);
        const Id light = scene.lights.addComponent(object);
        scene.lights.setLightType(light, type);
        scene.lights.color(light) = Vector4{1.0f};
        scene.lights.parameters(light) = {60.0f, 59.0f, 1.0f};
        scene.lights.shadowRange(light) = range;
        scene.lights.shadowParameters(light) = {0.0f, 0.0f, texelSize, 1.0f};
        scene.lights.activate(light);
        return light;
    }
    // Shines onto the floor, from so far to the side where the floor is 1 away.
    Id addSun(Float aside = 0.0f) {
        return addLight(LightType::Sun,
            DualQuaternion::rotation(Math::atan(aside), Vector3::yAxis()) *
                DualQuaternion::rotation(90.0_degf, Vector3::xAxis()));
    }

    std::vector<std::uint32_t> shadowFrame() {
        update();
        renderer.updateShadows(scene, scene.views);
        clear();
        framebuffer.bind();
        renderer.render(scene.views, scene);
        return pixels();
    }
    std::size_t dark(const std::vector<std::uint32_t>& picture) {
        return std::size_t(
            std::count_if(picture.begin(), picture.end(), [](std::uint32_t pixel) { return pixel >> 24 < 0x80; }));
    }
    static int light(const std::vector<std::uint32_t>& picture, Float x, Float y) {
        return int(at(picture, x, y) >> 24);
    }
    // Meshes whose spheres reach into the maps as they were fitted last, of each map again.
    std::size_t inMaps() {
        std::size_t count = 0;
        for(const LightShadow& shadow: scene.lights.shadows()) {
            const FrustumPlanes frustum{shadow.matrix};
            for(const Id object: scene.meshes.objects().prefix(scene.meshes.numActiveComponents())) {
                const Vector3 center = scene.absoluteTransformation(object).translation();
                const Float radius = std::sqrt(0.5f) * scene.absoluteScaling(object).max();
                bool isInside = true;
                for(const Vector4& plane: frustum.planes)
                    isInside = isInside && Math::dot(plane.xyz(), center) + plane.w() >= -radius;
                count += isInside;
            }
        }
        return count;
    }

    Id plain, material, mesh, floor;
};

// What the lights see can be looked at, and is compared with as before afterwards.
TEST_F(ShadowsTest, mapsAreShownWhereTheyAreAskedFor) {
    renderer.debug().textureOverlay = renderer.debug().shadowAtlas = true;
    const std::vector<std::uint32_t> without = [&] {
        tell();
        return shadowFrame();
    }();
    addSun(1.0f);
    add(mesh, material, {0.0f, 0.0f, 3.0f});
    tell();
    const std::vector<std::uint32_t> shown = shadowFrame();
    renderer.debug().textureOverlay = false;
    const std::vector<std::uint32_t> after = shadowFrame();
    renderer.debug().textureOverlay = true;
    EXPECT_EQ(shadowFrame(), shown);
    // Grey is nowhere else: the floor is as red as it is lit.
    const auto greys = [](const std::vector<std::uint32_t>& picture) {
        return std::count_if(picture.begin(), picture.end(),
            [](std::uint32_t pixel) { return (pixel >> 24) == (pixel >> 16 & 0xff) && (pixel >> 24) > 0x10; });
    };
    EXPECT_EQ(greys(without), 0);
    EXPECT_EQ(greys(after), 0);
    EXPECT_EQ(greys(shown), 14 * 14);
    // Behind the sheet the same shadow.
    EXPECT_GT(dark(after), 20u);
    for(std::size_t i = Size * Size / 4; i != shown.size(); ++i) ASSERT_EQ(shown[i], after[i]) << i;
}

TEST_F(ShadowsTest, lightsWithoutShadowsCostNothing) {
    const Id sun = addSun();
    scene.lights.parameters(sun).z() = 0.0f;
    add(mesh, material, {0.0f, 0.0f, 2.0f});
    tell();
    shadowFrame();
    const std::size_t programs = renderer.builtPrograms();
    const std::uint64_t bytes = renderer.uploadedBytes();
    EXPECT_EQ(dark(shadowFrame()), 0u);
    EXPECT_EQ(renderer.drawnShadowMaps(), 0u);
    EXPECT_EQ(renderer.builtPrograms(), programs);
    EXPECT_EQ(renderer.uploadedBytes(), bytes);
}

TEST_F(ShadowsTest, programsAreBuiltAnewOnce) {
    const Id sun = addSun();
    scene.lights.parameters(sun).z() = 0.0f;
    tell();
    shadowFrame();
    const std::size_t programs = renderer.builtPrograms();
    scene.lights.parameters(sun).z() = 1.0f;
    for(int i = 0; i != 3; ++i) shadowFrame();
    EXPECT_EQ(renderer.builtPrograms(), programs + 1) << "only that of the picture";
}

TEST_F(ShadowsTest, programsThatDoNotAskForLightsStay) {
    fragment = "void main() { fragmentColor = material_color(); }\n";
    tell();
    shadowFrame();
    const std::size_t programs = renderer.builtPrograms();
    addSun();
    shadowFrame();
    EXPECT_EQ(renderer.drawnShadowMaps(), 1u);
    EXPECT_EQ(renderer.builtPrograms(), programs);
}

TEST_F(ShadowsTest, programsStayWhileTheLightIsHiddenOrFarAway) {
    const Id sun = addSun(1.0f);
    add(mesh, material, {0.0f, 0.0f, 2.0f});
    tell();
    const std::vector<std::uint32_t> picture = shadowFrame();
    const std::size_t programs = renderer.builtPrograms();
    scene.lights.setActive(sun, false);
    EXPECT_EQ(dark(shadowFrame()), std::size_t(Size) * Size) << "no light at all";
    scene.lights.setActive(sun, true);
    EXPECT_EQ(shadowFrame(), picture);
    // What the camera sees begins behind them.
    scene.lights.shadowRange(sun) = 0.5f;
    EXPECT_EQ(dark(shadowFrame()), 0u);
    EXPECT_EQ(renderer.drawnShadowMaps(), 0u);
    scene.lights.shadowRange(sun) = 60.0f;
    EXPECT_EQ(shadowFrame(), picture);
    EXPECT_EQ(renderer.builtPrograms(), programs);
}

// Without that, a framebuffer of depths alone is incomplete before OpenGL 4.1.
TEST_F(ShadowsTest, nothingIsReadFromTheFramebufferOfTheMaps) {
    addSun();
    tell();
    shadowFrame();
    std::size_t count = 0;
    for(GLuint name = 1; name != 100; ++name) {
        if(!glIsFramebuffer(name)) continue;
        GL::Context::current().resetState(GL::Context::State::EnterExternal);
        glBindFramebuffer(GL_READ_FRAMEBUFFER, name);
        GLint color = GL_NONE, read = GL_NONE;
        glGetFramebufferAttachmentParameteriv(
            GL_READ_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_FRAMEBUFFER_ATTACHMENT_OBJECT_TYPE, &color);
        glGetIntegerv(GL_READ_BUFFER, &read);
        GL::Context::current().resetState(GL::Context::State::Framebuffers);
        if(color != GL_NONE) continue;
        ++count;
        EXPECT_EQ(read, GL_NONE);
    }
    EXPECT_EQ(count, 1u);
}

TEST_F(ShadowsTest, aShadowIsWhereTheLightDoesNotCome) {
    addSun(1.0f);
    add(mesh, material, {0.0f, 0.0f, 2.0f});
    tell();
    const std::vector<std::uint32_t> picture = shadowFrame();
    // From 2 above, 2 to the side, as large as what throws it.
    EXPECT_EQ(light(picture, -2.0f, 0.0f), 0);
    // Half a pixel, and a texel and a half.
    for(const Float edge: {0.5f + 0.15f, 0.5f - 0.15f}) {
        const int expected = edge < 0.5f ? 0 : 255;
        EXPECT_EQ(light(picture, -2.0f - edge, 0.0f), expected) << edge;
        EXPECT_EQ(light(picture, -2.0f + edge, 0.0f), expected) << edge;
        EXPECT_EQ(light(picture, -2.0f, edge), expected) << edge;
        EXPECT_EQ(light(picture, -2.0f, -edge), expected) << edge;
    }
    EXPECT_NEAR(double(dark(picture)), 64.0, 10.0);
}

TEST_F(ShadowsTest, spotsAndPointsThrowThem) {
    add(mesh, material, {1.0f, 1.0f, 2.0f});
    for(const LightType type: {LightType::Spot, LightType::Point}) {
        const Id lamp = addLight(type,
            DualQuaternion::translation({0.0f, 0.0f, 4.0f}) * DualQuaternion::rotation(90.0_degf, Vector3::xAxis()),
            20.0f, 0.02f);
        scene.lights.color(lamp).w() = 1000.0f;
        tell();
        const std::vector<std::uint32_t> picture = shadowFrame();
        // Twice as far away, and twice as large.
        EXPECT_EQ(light(picture, 2.0f, 2.0f), 0) << int(type);
        EXPECT_EQ(light(picture, 2.8f, 1.2f), 0) << int(type);
        EXPECT_EQ(light(picture, 3.3f, 2.0f), 255) << int(type);
        EXPECT_EQ(light(picture, 0.7f, 2.0f), 255) << int(type);
        EXPECT_EQ(light(picture, -2.0f, -2.0f), 255) << int(type);
        scene.lights.setActive(lamp, false);
    }
}

TEST_F(ShadowsTest, pointsSeeAllAround) {
    const Id doubleSided = addPipeline("Double", Depth | PipelineHeader::DoubleSided);
    const Id both = addMaterial(doubleSided, Vector4{1.0f});
    const Id lamp = addLight(LightType::Point, DualQuaternion::translation({0.0f, 0.0f, 3.0f}), 40.0f, 0.2f);
    scene.lights.color(lamp).w() = 1000.0f;
    tell();
    EXPECT_EQ(dark(shadowFrame()), 0u);
    // Half across the edge between two or three of the faces; there is no gap.
    const Vector3 aside[]{{1.0f, 0.0f, -1.0f}, {-1.0f, 0.0f, -1.0f}, {0.0f, 1.0f, -1.0f}, {1.0f, 1.0f, -1.0f}};
    for(const Vector3& way: aside) {
        const Id object = add(mesh, both, Vector3{0.0f, 0.0f, 3.0f} + way, Vector3{0.8f});
        tell();
        const std::vector<std::uint32_t> picture = shadowFrame();
        EXPECT_EQ(light(picture, 3.0f * way.x(), 3.0f * way.y()), 0) << way.x() << " " << way.y();
        EXPECT_EQ(light(picture, -3.0f * way.x(), -3.0f * way.y()), 255);
        // 0.8 at a distance of 1 is 2.4 at one of 3.
        for(const Float offset: {-0.5f, 0.5f})
            EXPECT_EQ(light(picture, 2.4f * way.x(), 2.4f * way.y() + offset), 0) << offset;
        scene.deleteObjects(object);
    }
}

TEST_F(ShadowsTest, whatThrowsAShadow) {
    const Id masked = addPipeline("Masked", Depth | PipelineHeader::AlphaMask);
    const Id blended = addPipeline("Blended", Depth | PipelineHeader::Blend);
    const Id doubleSided = addPipeline("Double", Depth | PipelineHeader::DoubleSided);
    const DualQuaternion turned = DualQuaternion::rotation(180.0_degf, Vector3::yAxis());
    addSun(1.0f);
    // Far to the side of what is seen; shadows fall into the picture.
    const auto addOne = [&](Id pipeline, Float y, bool isTurned, const Vector3& scaling) {
        const Id object = add(mesh, addMaterial(pipeline, Vector4{1.0f}), {8.0f, y, 8.0f}, scaling);
        if(isTurned) scene.localTransformation(object) = scene.localTransformation(object) * turned;
    };
    addOne(plain, 3.25f, false, Vector3{0.5f});
    addOne(plain, 2.25f, true, Vector3{0.5f});
    addOne(plain, 1.25f, false, {-0.5f, 0.5f, 0.5f});
    addOne(plain, 0.25f, true, {-0.5f, 0.5f, 0.5f});
    addOne(doubleSided, -0.75f, true, Vector3{0.5f});
    addOne(blended, -1.75f, false, Vector3{0.5f});
    addOne(masked, -3.0f, false, Vector3{1.5f});
    for(const bool isMultiDraw: {true, false}) {
        renderer.setMultiDrawEnabled(isMultiDraw);
        tell();
        const std::vector<std::uint32_t> picture = shadowFrame();
        EXPECT_EQ(light(picture, 0.0f, 3.25f), 0) << "the front";
        EXPECT_EQ(light(picture, 0.0f, 2.25f), 255) << "the back";
        EXPECT_EQ(light(picture, 0.0f, 1.25f), 0) << "a mirrored front";
        EXPECT_EQ(light(picture, 0.0f, 0.25f), 255) << "a mirrored back";
        EXPECT_EQ(light(picture, 0.0f, -0.75f), 0) << "the back of both sides";
        EXPECT_EQ(light(picture, 0.0f, -1.75f), 255) << "what lets light through";
        EXPECT_EQ(light(picture, 0.0f, -2.75f), 0) << "what a mask leaves";
        EXPECT_EQ(light(picture, 0.0f, -3.25f), 255) << "a hole";
    }
}

TEST_F(ShadowsTest, onlyWhatIsInAMapIsDrawn) {
    const Id sun = addSun(0.5f);
    scene.lights.shadowParameters(sun).w() = 3.0f;
    for(int x = 0; x != 40; ++x)
        for(int z = 0; z != 40; ++z) add(mesh, material, {Float(8 * x - 160), 0.0f, Float(20 - 8 * z)});
    tell();
    shadowFrame();
    EXPECT_EQ(renderer.drawnShadowMaps(), 3u);
    EXPECT_EQ(renderer.drawnShadowCasters(), inMaps());
    EXPECT_GT(inMaps(), 20u);
    EXPECT_LT(inMaps(), 1600u);
}

TEST_F(ShadowsTest, mapsStayAsLongAsNothingInThemMoves) {
    const DualQuaternion down = DualQuaternion::rotation(90.0_degf, Vector3::xAxis());
    addLight(LightType::Spot, DualQuaternion::translation({-3.0f, 0.0f, 4.0f}) * down, 10.0f);
    const Id other = addLight(LightType::Spot, DualQuaternion::translation({30.0f, 0.0f, 4.0f}) * down, 10.0f);
    addLight(LightType::Point, DualQuaternion::translation({0.0f, 60.0f, 0.0f}), 5.0f);
    const Id object = add(mesh, material, {-3.0f, 0.0f, 2.0f});
    tell();
    shadowFrame();
    EXPECT_EQ(renderer.drawnShadowMaps(), 8u);
    const auto frameDraws = [&] {
        shadowFrame();
        return renderer.drawnShadowMaps();
    };
    const std::uint64_t bytes = renderer.uploadedBytes();
    EXPECT_EQ(frameDraws(), 0u) << "nothing moved";
    EXPECT_EQ(renderer.uploadedBytes(), bytes);
    move(object, {-3.5f, 0.0f, 2.0f});
    EXPECT_EQ(frameDraws(), 1u) << "where it is";
    move(object, {30.0f, 0.0f, 2.0f});
    EXPECT_EQ(frameDraws(), 2u) << "where it was, and where it is";
    move(object, {30.0f, 0.0f, 50.0f});
    EXPECT_EQ(frameDraws(), 1u) << "where it was";
    move(object, {31.0f, 0.0f, 50.0f});
    EXPECT_EQ(frameDraws(), 0u) << "in no map";
    move(object, {0.0f, 61.0f, 0.0f});
    EXPECT_EQ(frameDraws(), 5u) << "upwards, and, as far as its sphere reaches, to four sides";
    move(scene.lights.object(other), {40.0f, 0.0f, 4.0f});
    EXPECT_EQ(frameDraws(), 1u) << "a light moved";
    scene.lights.color(other) = Vector4{2.0f};
    EXPECT_EQ(frameDraws(), 0u) << "another colour";
    scene.deleteObjects(object);
    EXPECT_GE(frameDraws(), 4u) << "where it was";
    EXPECT_EQ(frameDraws(), 0u);
    tellDraws();
    EXPECT_EQ(frameDraws(), 8u) << "draws changed";
    renderer.updateMaterials(view(resources.materials), view(resources.pipelines));
    EXPECT_EQ(frameDraws(), 8u) << "materials changed";
}

// One light a frame, those first that are seen most, and in the end the same picture as at once.
TEST_F(ShadowsTest, whatIsTooMuchForAFrameComesLater) {
    add(mesh, material, {0.0f, 0.0f, 2.0f});
    addLight(LightType::Point, DualQuaternion::translation({0.0f, 0.0f, -200.0f}), 1.0f);
    const Id near = addLight(LightType::Point, DualQuaternion::translation({-2.0f, 0.0f, 5.0f}), 12.0f);
    scene.lights.color(near).w() = 10.0f;
    scene.lights.color(addSun(0.5f)).w() = 0.3f;
    tell();
    const auto expectDrawn = [&](std::size_t maps, bool areWaiting) {
        EXPECT_EQ(renderer.drawnShadowMaps(), maps);
        EXPECT_EQ(renderer.areShadowsWaiting(), areWaiting);
    };
    renderer.setShadowWork(1);
    const std::vector<std::uint32_t> first = shadowFrame();
    expectDrawn(1, true);
    shadowFrame();
    expectDrawn(6, true);
    const std::vector<std::uint32_t> last = shadowFrame();
    expectDrawn(6, false);
    EXPECT_TRUE(first != last);

    renderer.setShadowWork(1000);
    tellDraws();
    EXPECT_TRUE(shadowFrame() == last);
    expectDrawn(13, false);
    // Until it is drawn again, what was there is shown.
    renderer.setShadowWork(1);
    tellDraws();
    for(int i = 0; i != 3; ++i) EXPECT_TRUE(shadowFrame() == last) << i;
    expectDrawn(6, false);
    // Everyone has their turn, also where the first one always has something to be drawn.
    for(const std::size_t maps: {1u, 6u}) {
        tellDraws();
        shadowFrame();
        expectDrawn(maps, true);
    }
}

// While the camera moves and turns, the picture from where another one stays keeps each pixel.
TEST_F(ShadowsTest, edgesStandStillWhileTheCameraMoves) {
    const Id sun = addSun(0.7f);
    scene.lights.shadowParameters(sun) = {0.0f, 0.0f, 0.1f, 1.0f};
    const Id object = add(mesh, material, {0.3f, 0.2f, 2.0f}, {2.0f, 3.0f, 1.0f});
    scene.localTransformation(object) =
        scene.localTransformation(object) * DualQuaternion::rotation(20.0_degf, Vector3::zAxis());
    tell();

    DynamicSceneGraph graph{2, 1, 1};
    ViewManager views;
    graph.setComponentManager(0, views);
    const Id moving = graph.addObject(RootObject), view = views.addComponent(moving);
    views.projectionMatrix(view) = scene.views.projectionMatrix(camera);
    views.near(view) = 1.0f;
    views.far(view) = 60.0f;
    views.activate(view);
    update();
    std::vector<std::uint32_t> first;
    std::size_t redrawn = 0;
    for(int i = 0; i != 40; ++i) {
        graph.localTransformation(moving) = DualQuaternion::translation({0.037f * Float(i), 0.0f, 20.0f}) *
            DualQuaternion::rotation(Deg{0.3f * Float(i)}, Vector3::yAxis());
        graph.setDirty(moving);
        graph.computeAbsoluteTransformations();
        views.update();
        renderer.updateShadows(scene, views);
        redrawn += renderer.drawnShadowMaps();
        clear();
        renderer.render(scene.views, scene);
        const std::vector<std::uint32_t> picture = pixels();
        if(!i) first = picture;
        for(std::size_t pixel = 0; pixel != picture.size(); ++pixel)
            ASSERT_NEAR(double(picture[pixel] >> 24), double(first[pixel] >> 24), 8.0) << i << ": " << pixel;
    }
    EXPECT_GT(dark(first), 50u);
    EXPECT_GT(redrawn, 1u) << "the map did not move along";
    EXPECT_LT(redrawn, 20u) << "it is there for several places";
}

// Without any bias of the project, at any slope and with large texels.
TEST_F(ShadowsTest, surfacesDoNotShadowThemselves) {
    tell();
    for(const Float aside: {0.0f, 0.3f, 1.0f, 3.0f, 8.0f})
        for(const Float texelSize: {0.02f, 0.3f}) {
            const Id sun = addSun(aside);
            scene.lights.shadowParameters(sun).z() = texelSize;
            EXPECT_EQ(dark(shadowFrame()), 0u) << aside << ", " << texelSize;
            scene.lights.setActive(sun, false);
        }
}

// Of something that stands on the floor, the shadow begins where it stands.
TEST_F(ShadowsTest, shadowsDoNotComeOff) {
    addSun(1.0f);
    const Id cube = addMesh(shapeMesh(MeshShape::Cube));
    add(cube, material, {0.0f, 0.0f, 1.0f});
    tell();
    // The cube's own side faces the light; its shadow lies from -3 to -1.
    const std::vector<std::uint32_t> picture = shadowFrame();
    for(const Float x: {-1.3f, -2.0f, -2.7f}) EXPECT_EQ(light(picture, x, 0.0f), 0) << x;
}

// What is nearer than the bias throws none, and what is farther does.
TEST_F(ShadowsTest, theBiasIsALength) {
    const Id sun = addSun(1.0f);
    add(mesh, material, {0.0f, 2.0f, 0.5f});
    add(mesh, material, {0.0f, -2.0f, 0.9f});
    tell();
    std::vector<std::uint32_t> picture = shadowFrame();
    EXPECT_EQ(light(picture, -0.75f, 2.0f), 0);
    EXPECT_EQ(light(picture, -1.1f, -2.0f), 0);
    // Along the light, a height of 0.5 is 0.71, and one of 0.9 is 1.27.
    scene.lights.shadowParameters(sun).x() = 1.0f;
    picture = shadowFrame();
    EXPECT_EQ(light(picture, -0.75f, 2.0f), 255);
    EXPECT_EQ(light(picture, -1.1f, -2.0f), 0);
    // Along the normal, it is the height.
    scene.lights.shadowParameters(sun).x() = 0.0f;
    scene.lights.shadowParameters(sun).y() = 0.7f;
    picture = shadowFrame();
    EXPECT_EQ(light(picture, -0.75f, 2.0f), 255);
    EXPECT_EQ(light(picture, -0.6f, -2.0f), 0);
}

TEST_F(ShadowsTest, fadeAtTheEndOfTheirRange) {
    const Id sun = addSun(1.0f);
    add(mesh, material, {0.0f, 0.0f, 2.0f});
    tell();
    for(const auto& [range, least, most]:
        {std::make_tuple(60.0f, 0, 0), std::make_tuple(21.2f, 80, 180), std::make_tuple(19.0f, 255, 255)}) {
        scene.lights.shadowRange(sun) = range;
        const int value = light(shadowFrame(), -2.0f, 0.0f);
        EXPECT_GE(value, least) << range;
        EXPECT_LE(value, most) << range;
    }
}

TEST_F(ShadowsTest, aRangeOfNothingIsNoShadow) {
    const Id sun = addSun(1.0f), other = addSun(-1.0f);
    scene.lights.color(other).w() = 0.0f;
    add(mesh, material, {0.0f, 0.0f, 2.0f});
    tell();
    // Beside one that has shadows, and alone.
    for(const bool isOtherActive: {true, false}) {
        scene.lights.setActive(other, isOtherActive);
        for(const Float range: {0.0f, -3.0f, Constants::nan()}) {
            scene.lights.shadowRange(sun) = range;
            EXPECT_EQ(dark(shadowFrame()), 0u) << range;
        }
    }
}

TEST_F(ShadowsTest, lackOfRoomIsSaidOnce) {
    for(int i = 0; i != 180; ++i) {
        const Id lamp = addLight(LightType::Point, DualQuaternion::translation({Float(i), 0.0f, 4.0f}), 10.0f, 1.0f);
        scene.lights.color(lamp).w() = 1000.0f;
    }
    add(mesh, material, {175.0f, 0.0f, 2.0f});
    tell();
    std::vector<std::uint32_t> picture;
    const auto lines = linesOf([&] {
        shadowFrame();
        picture = shadowFrame();
    });
    EXPECT_EQ(dark(picture), 0u);
    EXPECT_EQ(lines, "WebGL2Renderer: no room for 56 of 1080 shadow maps: their lights shine through everything\n");
    EXPECT_EQ(renderer.drawnShadowMaps(), 0u);
}

} // namespace
