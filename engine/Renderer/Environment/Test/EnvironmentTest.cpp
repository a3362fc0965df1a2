// Surroundings in pictures of the renderer.

#include <cstring>

#include "Renderer/Environment/Test/SixDirections.h"
#include "Renderer/Test/RendererFixture.h"
#include "Support/TestFolder.h"

namespace {

using namespace VantrelTest;

struct EnvironmentTest: RendererTest {
    void use(const SceneImage& image) { scene.environment.image = &image; }
    std::uint32_t middle() { return at(frame(), 0.05f, 0.05f); }
    void lookAlong(const Vector3& direction) {
        const Vector3 up = std::abs(direction.y()) > 0.5f ? Vector3::zAxis() : Vector3::yAxis();
        const Matrix4 look = Matrix4::lookAt({}, direction, up);
        scene.localTransformation(cameraObject) = DualQuaternion{Quaternion::fromMatrix(look.rotationScaling())};
        scene.views.projectionMatrix(camera) = Matrix4::perspectiveProjection(30.0_degf, 1.0f, 0.1f, 100.0f);
        scene.setDirty(cameraObject);
    }
    // Of a square that shows what comes from a direction.
    void showLightFrom(const char* function) {
        fragment = std::string{"void main() { vec3 d = material_color().xyz; fragmentColor = vec4("} + function +
            ", 1.0); }\n";
    }
    static void expectColor(std::uint32_t actual, const Color3& expected, const char* name) {
        for(int i = 0; i != 3; ++i) {
            const int value = int(actual >> (24 - 8 * i) & 255);
            if(expected[i] > 0.5f)
                EXPECT_GT(value, 150) << name << ", channel " << i;
            else
                EXPECT_LT(value, 110) << name << ", channel " << i;
        }
    }

    const SceneImage six = sixDirectionsImage();
};

TEST_F(EnvironmentTest, theSkyHasEachDirectionWhereItIs) {
    use(six);
    tell();
    for(const SixthOfAll& one: SixDirections) {
        lookAlong(one.direction);
        expectColor(middle(), one.color, one.name);
    }
    // Counterclockwise seen from above: what was ahead, along -z, is at the left then, along -x.
    scene.environment.rotation = 90.0_degf;
    lookAlong({-1, 0, 0});
    expectColor(middle(), SixDirections[0].color, "turned");
    lookAlong({0, 0, -1});
    expectColor(middle(), SixDirections[1].color, "turned, from the right");
    EXPECT_EQ(renderer.environmentBakes(), 1u);
}

TEST_F(EnvironmentTest, theSkyIsThereWhateverTheProjection) {
    use(six);
    tell();
    lookAlong({1, 0, 0});
    const std::uint32_t color = middle();
    expectColor(color, SixDirections[1].color, "near and far");
    scene.views.projectionMatrix(camera) = Matrix4::perspectiveProjection(30.0_degf, 1.0f, 0.1f, Constants::inf());
    EXPECT_EQ(middle(), color);
    scene.localTransformation(cameraObject) =
        DualQuaternion::translation({400.0f, -90.0f, 1000.0f}) * scene.localTransformation(cameraObject);
    scene.setDirty(cameraObject);
    EXPECT_EQ(middle(), color);
    scene.views.projectionMatrix(camera) = Matrix4::orthographicProjection(Vector2{8.0f}, 0.1f, 100.0f);
    EXPECT_EQ(middle(), color);
}

TEST_F(EnvironmentTest, isNotMirrored) {
    use(six);
    tell();
    lookAlong({0, 0, -1});
    scene.views.projectionMatrix(camera) = Matrix4::perspectiveProjection(120.0_degf, 1.0f, 0.1f, 100.0f);
    const auto picture = frame();
    expectColor(at(picture, 3.9f, 0.05f), SixDirections[1].color, "right");
    expectColor(at(picture, -3.9f, 0.05f), SixDirections[3].color, "left");
    expectColor(at(picture, 0.05f, 3.9f), SixDirections[4].color, "up");
    expectColor(at(picture, 0.05f, -3.9f), SixDirections[5].color, "down");
}

// What is mirrored, blurred or received agrees with what is seen.
TEST_F(EnvironmentTest, surfacesSeeEachDirectionWhereItIs) {
    use(six);
    const Id pipeline = addPipeline("Shows");
    const Id mesh = addMesh(square({}, 4.0f));
    add(mesh, addMaterial(pipeline, {}), {});
    for(const char* const function: {"surroundingLight(d, 0.0)", "surroundingLight(d, 0.15)",
            "surroundingLight(d, 0.3)", "surroundingLight(d, 1.0)*1.2", "ambientLight(d)*1.2"}) {
        showLightFrom(function);
        for(const SixthOfAll& one: SixDirections) {
            resources.materials.back().values = {Vector4{one.direction, 0.0f}};
            tell();
            expectColor(middle(), one.color, (std::string{function} + " " + one.name).c_str());
        }
    }
    EXPECT_EQ(renderer.environmentBakes(), 1u);
}

TEST_F(EnvironmentTest, intensityIsAFactorAndTakesNoBake) {
    const SceneImage even = evenImage({0.1f, 0.2f, 0.4f});
    use(even);
    showLightFrom("ambientLight(d) + surroundingLight(d, 0.5)");
    add(addMesh(square({}, 4.0f)), addMaterial(addPipeline("Shows"), {0, 1, 0, 0}), {});
    tell();
    const std::uint32_t once = middle();
    EXPECT_NEAR(int(once >> 24), 51, 2);
    EXPECT_NEAR(int(once >> 16 & 255), 102, 2);
    EXPECT_NEAR(int(once >> 8 & 255), 204, 2);
    scene.environment.intensity = 0.5f;
    EXPECT_NEAR(int(middle() >> 8 & 255), 102, 2);
    scene.environment.intensity = 0.0f;
    EXPECT_EQ(middle(), Nothing);
    EXPECT_EQ(renderer.environmentBakes(), 1u);
}

// What is white, or a perfect metal, sends back no more light than comes from everywhere, and not much less.
TEST_F(EnvironmentTest, surfacesAddNoLight) {
    const SceneImage even = evenImage(Color3{0.4f});
    use(even);
    const Containers::StringView lit = defaultAsset("Lit.frag");
    fragment = std::string{lit.data(), lit.size()};
    const Id pipeline = addPipeline("Lit");
    resources.pipelines.back().parameters = {
        {"metalness", ParameterType::Float, {}}, {"roughness", ParameterType::Float, {}}};
    add(addMesh(square()), addMaterial(pipeline, {}), {});
    resources.materials.back().textures = {0, 0};
    for(const Float metalness: {0.0f, 1.0f})
        for(const Float roughness: {0.05f, 0.2f, 0.5f, 1.0f}) {
            resources.materials.back().values = {Vector4{metalness}, Vector4{roughness}};
            tell();
            const auto picture = frame();
            const int sky = at(picture, 0.1f, 3.1f) >> 24, surface = at(picture, 0.1f, 0.1f) >> 24;
            EXPECT_LE(surface, sky) << metalness << ", " << roughness;
            // A rough metal mirrors into itself, which is not followed.
            EXPECT_GT(surface, (metalness * roughness > 0.4f ? 0.6f : 0.93f) * sky) << metalness << ", " << roughness;
        }
}

TEST_F(EnvironmentTest, theSkyIsBehindWhatHidesItAndBeforeWhatLetsItThrough) {
    const SceneImage white = evenImage(Color3{0.4f});
    use(white);
    const Id mesh = addMesh(square());
    add(mesh, addMaterial(addPipeline("Plain"), RedColor), {-2, 0, -70});
    const Id blended = addPipeline("Blended", PipelineHeader::DepthTest | PipelineHeader::Blend);
    add(mesh, addMaterial(blended, {0, 0, 1, 0.5f}), {2, 0, -70});
    tell();
    const auto picture = frame();
    EXPECT_EQ(at(picture, -1.9f, 0.1f), Red);
    const std::uint32_t sky = at(picture, 0.1f, 3.1f), mixed = at(picture, 2.1f, 0.1f);
    EXPECT_NE(sky, Nothing);
    EXPECT_NEAR(int(mixed >> 24), int(sky >> 24) / 2, 2);
    EXPECT_NEAR(int(mixed >> 8 & 255), 128 + int(sky >> 24) / 2, 2);
    // Nor is it an object.
    EXPECT_EQ(at(ids(), 0.1f, 3.1f), 0xffffffff);

    scene.environment.isBackground = false;
    EXPECT_EQ(at(frame(), 0.1f, 3.1f), Nothing);
}

TEST_F(EnvironmentTest, aFramebufferThatIsBoundStaysSo) {
    use(six);
    tell();
    scene.computeAbsoluteTransformations();
    scene.views.update();
    renderer.updateMeshVisibility(scene, scene.views.cullingMatrix(camera));
    clear();
    // Computes in framebuffers of its own.
    renderer.updateLights(scene);
    EXPECT_EQ(renderer.environmentBakes(), 1u);
    renderer.render(scene.views, scene);
    EXPECT_NE(at(pixels(), 0.05f, 0.05f), Nothing);
}

TEST_F(EnvironmentTest, withoutItAllIsAsBefore) {
    showLightFrom("ambientLight(d) + surroundingLight(d, 0.5)");
    add(addMesh(square()), addMaterial(addPipeline("Shows"), {0, 1, 0, 0}), {});
    addMaterial(addPipeline("Plain"), RedColor);
    tell();
    const auto before = frame();
    use(six);
    const auto with = frame();
    EXPECT_NE(with, before);
    scene.environment = {};
    EXPECT_EQ(frame(), before);
    // The image is known still.
    use(six);
    EXPECT_EQ(frame(), with);
    EXPECT_EQ(renderer.environmentBakes(), 1u);
}

TEST_F(EnvironmentTest, onlyProgramsThatAskForItAreMadeAgain) {
    addMaterial(addPipeline("Plain"), RedColor);
    tell();
    frame();
    const std::size_t programs = renderer.builtPrograms();
    use(six);
    frame();
    EXPECT_EQ(renderer.builtPrograms(), programs);
}

// Ids and outlines of one with holes are the same with surroundings.
TEST_F(EnvironmentTest, onlyPicturesAreMadeAgain) {
    showLightFrom("ambientLight(d)");
    addMaterial(
        addPipeline("Masked", PipelineHeader::DepthTest | PipelineHeader::DepthWrite | PipelineHeader::AlphaMask),
        RedColor);
    tell();
    frame();
    const std::size_t programs = renderer.builtPrograms();
    use(six);
    frame();
    EXPECT_EQ(renderer.builtPrograms(), programs + 1);
}

TEST_F(EnvironmentTest, anotherPixelIsComputedAnew) {
    SceneImage image = sixDirectionsImage();
    use(image);
    tell();
    frame();
    frame();
    EXPECT_EQ(renderer.environmentBakes(), 1u);
    // The same again, from another file.
    image.revision = 2;
    frame();
    EXPECT_EQ(renderer.environmentBakes(), 1u);
    reinterpret_cast<Vector4*>(image.pixels->data().data())[5000].x() += 0.5f;
    image.revision = 3;
    frame();
    EXPECT_EQ(renderer.environmentBakes(), 2u);
}

TEST_F(EnvironmentTest, resultsAreKeptInAFolder) {
    const TestFolder folder;
    scene.environmentBaking.cacheFolder = folder.path("cache");
    use(six);
    tell();
    const auto picture = frame();
    EXPECT_EQ(renderer.environmentBakes(), 1u);

    const auto drawnByAnother = [&](std::size_t bakes) {
        WebGL2Renderer other;
        other.setViewportSize(camera, Vector2i{Size});
        other.updateMeshVisibility(scene, scene.views.cullingMatrix(camera));
        clear();
        other.updateLights(scene);
        other.render(scene.views, scene);
        EXPECT_EQ(other.environmentBakes(), bakes);
        EXPECT_EQ(pixels(), picture);
    };
    drawnByAnother(0);
    for(const auto& file: std::filesystem::directory_iterator{folder.path("cache")})
        std::filesystem::resize_file(file, 1000);
    drawnByAnother(1);
    drawnByAnother(0);
}

TEST_F(EnvironmentTest, aFolderThatCannotBeUsedIsSaidOnce) {
    const TestFolder folder;
    folder.write("file", "");
    scene.environmentBaking.cacheFolder = folder.path("file");
    use(six);
    tell();
    SceneImage other = evenImage(Color3{1.0f});
    other.revision = 2;
    const std::string lines = linesOf([&] {
        frame();
        use(other);
        frame();
    });
    EXPECT_THAT(lines,
        testing::StartsWith(
            "WebGL2Renderer: the light of an environment cannot be kept in " + folder.path("file") + ": "));
    EXPECT_EQ(std::count(lines.begin(), lines.end(), '\n'), 1);
    EXPECT_EQ(renderer.environmentBakes(), 2u);
}

TEST_F(EnvironmentTest, overSeveralFramesTheOldOneStays) {
    SceneImage other = evenImage({0.4f, 0.1f, 0.1f});
    other.revision = 2;
    use(other);
    tell();
    const std::uint32_t last = middle();
    scene.environment = {};
    const std::uint32_t nothing = middle();
    scene.environmentBaking.isAtOnce = false;
    EXPECT_FALSE(renderer.isBakingEnvironment());
    use(six);
    int frames = 0;
    for(; frames != 100; ++frames) {
        const std::uint32_t color = middle();
        if(!renderer.isBakingEnvironment()) break;
        ASSERT_EQ(color, nothing);
    }
    EXPECT_GT(frames, 5);
    EXPECT_LT(frames, 60);
    expectColor(middle(), SixDirections[0].color, "complete");

    // One is known, and takes the place of another one that is not complete.
    SceneImage third = evenImage(Color3{0.7f});
    third.revision = 3;
    use(third);
    middle();
    EXPECT_TRUE(renderer.isBakingEnvironment());
    use(other);
    EXPECT_EQ(middle(), last);
    EXPECT_FALSE(renderer.isBakingEnvironment());
}

} // namespace
