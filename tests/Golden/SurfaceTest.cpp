// What has to look alike, and exact colours: without stored pictures.

#include <array>
#include <cmath>

#include <Magnum/Math/Constants.h>
#include <gmock/gmock.h>

#include "Golden/GoldenProject.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Magnum;
using namespace VantrelProof;
using VantrelTest::GoldenProject;

typedef VantrelTest::GlTest SurfaceTest;

const std::string Lights = std::string{PROJECTS} + "/Lights/project.json";
const std::string Textures = std::string{PROJECTS} + "/Textures/project.json";
const std::string Placement = std::string{PROJECTS} + "/Placement/project.json";
constexpr Vector2i Size{160, 100};

constexpr const char* TurnedAround = "[0, 1, 0, 0]";

double difference(const Picture& a, const Picture& b) { return compare(a, b, 8).fraction; }

std::array<int, 4> pixel(const Picture& picture, int x, int y) {
    const std::uint8_t* const bytes = picture.pixels.data() + (std::size_t(y) * std::size_t(picture.width) + x) * 4;
    return {bytes[0], bytes[1], bytes[2], bytes[3]};
}

TEST_F(SurfaceTest, doubleSidedOnesLookAlikeFromBehind) {
    GoldenProject project{Lights, Size};
    const Picture picture = project.draw();
    project.set("/objects/wall/rotation", TurnedAround);
    EXPECT_GT(difference(project.draw(), picture), 0.2) << "nothing is seen from behind";
    project.set("/pipelines/lit/doubleSided", "true");
    EXPECT_LT(difference(project.draw(), picture), 0.001);
}

// The plate says where the right of its texture is; that of the plane has to be found.
constexpr const char* Plates[]{"\"plate\"", "\"plane\""};

struct BumpsTest: VantrelTest::GlTest, testing::WithParamInterface<const char*> {
    BumpsTest() {
        project.set("/objects/camera/translation", "[4, 0.2, 2.6]");
        project.set("/objects/bumpyBall/components/0/active", "false");
        project.set("/objects/bumpyPanel/components/0/mesh/mesh", GetParam());
    }

    GoldenProject project{Textures, Size};
};

// A grid of round bumps is its own mirror image.
TEST_P(BumpsTest, ofMirroredOnesStayBumps) {
    const Picture picture = project.draw();
    project.set("/objects/bumpyPanel/scaling", "[-0.9, 0.9, 1]");
    EXPECT_LT(difference(project.draw(), picture), 0.003);
    project.set("/objects/bumpyPanel/scaling", "[-0.9, -0.9, 1]");
    EXPECT_LT(difference(project.draw(), picture), 0.003);
    project.set("/materials/bumpy/Lit/normalScale", "-1");
    EXPECT_GT(difference(project.draw(), picture), 0.05) << "dents are no bumps";
}

TEST_P(BumpsTest, areDentsFromBehind) {
    project.set("/objects/bumpyPanel/rotation", "[0, 0, 0, 1]");
    project.set("/materials/bumpy/Lit/normalScale", "-1");
    const Picture dents = project.draw();
    project.set("/materials/bumpy/Lit/normalScale", "1");
    project.set("/objects/bumpyPanel/rotation", TurnedAround);
    project.set("/pipelines/lit/doubleSided", "true");
    EXPECT_LT(difference(project.draw(), dents), 0.003);
}

INSTANTIATE_TEST_SUITE_P(Plates, BumpsTest, testing::ValuesIn(Plates));

// What is opaque, has holes, blends, is mirrored; with bloom and without.
TEST_F(SurfaceTest, depthDrawnFirstIsNotSeen) {
    for(const char* const name: {"Alpha", "Placement", "Bloom"}) {
        GoldenProject project{std::string{PROJECTS} + "/" + name + "/project.json", Size};
        const Picture picture = project.draw();
        const std::size_t calls = project.renderer().drawCalls();
        project.set("/settings/rendering/usePreZ", "true");
        EXPECT_EQ(project.draw().pixels, picture.pixels) << name;
        EXPECT_GT(project.renderer().drawCalls(), calls) << name;
    }
}

// A quarter of a turn brings a grid of round bumps upon itself: only light from elsewhere would tell.
TEST_F(SurfaceTest, bumpsThatTurnStayBumps) {
    GoldenProject project{Placement, Size};
    project.set("/objects/camera/translation", "[-2.6, 0, 1.2]");
    project.set("/objects/plain1/components/0/mesh/material", "\"turned1\"");
    const char* const turn = "/materials/turned1/Lit/normalTextureTurn";
    project.set(turn, "[0, 0, 0, 0]");
    const Picture picture = project.draw();
    for(const char* const angle: {"[1.5707963, 0, 0, 0]", "[3.1415927, 0, 0, 0]"}) {
        project.set(turn, angle);
        EXPECT_LT(difference(project.draw(), picture), 0.003) << angle;
    }
    project.set("/materials/turned1/Lit/normalScale", "-1");
    EXPECT_GT(difference(project.draw(), picture), 0.05) << "dents are no bumps";
}

// One texture coordinate the other way around, and the card with it.
TEST_F(SurfaceTest, bumpsOfMirroredTexturesStayBumps) {
    GoldenProject project{Placement, Size};
    project.set("/objects/camera/translation", "[-2.6, 0, 1.2]");
    const Picture picture = project.draw();
    project.set("/objects/plain1/components/0/mesh/material", "\"mirrored1\"");
    EXPECT_LT(difference(project.draw(), picture), 0.003);
    project.set("/objects/plain1/scaling", "[-0.5, 0.5, 1]");
    EXPECT_LT(difference(project.draw(), picture), 0.003);
}

TEST_F(SurfaceTest, tangentsAreFoundWhereTheyAreNotGiven) {
    GoldenProject project{Textures, Size};
    const Picture picture = project.draw();
    project.set("/objects/bumpyPanel/components/0/mesh/mesh", "\"plane\"");
    EXPECT_LT(difference(project.draw(), picture), 0.001);
}

TEST_F(SurfaceTest, flatColorsAreExact) {
    GoldenProject project{Lights, Size};
    project.set("/materials/white", R"({"name": "White", "pipeline": "flat", "Flat": {"color": [0.5, 0.25, 1.0, 1]}})");
    EXPECT_THAT(pixel(project.draw(), 80, 10), testing::ElementsAre(188, 137, 255, 255));
}

// Of a byte of the screen; below the shoulder of the tone mapping the light itself.
double linear(int byte) {
    const double value = byte / 255.0;
    return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
}

// A sun and the camera straight in front of the rough wall: of the light the body reflects its colour less the 4 % that
// the surface mirrors, over pi; of what is mirrored microfacets of this roughness send a quarter over pi back.
TEST_F(SurfaceTest, lightIsAsBrightAsTheFormulaSays) {
    GoldenProject project{Lights, Size};
    project.set("/materials/white/Lit", R"({"baseColor": [0.3, 0.2, 0.1, 1], "roughness": 1})");
    project.set("/objects/camera/translation", "[0, 2.5, 1]");
    project.set("/objects/camera/rotation", "[0, 0, 0, 1]");
    project.set("/objects/sun/rotation", "[0.7071068, 0, 0, 0.7071068]");
    project.set("/objects/sun/components/0/light/color", "[1, 1, 1]");
    for(const char* const light: {"point", "spot", "sun"})
        project.set(("/objects/" + std::string{light} + "/components/0/light/intensity").c_str(), "0");
    const auto dark = pixel(project.draw(), 80, 50);
    constexpr double Intensity = 4.0, Colors[]{0.3, 0.2, 0.1};
    project.set("/objects/sun/components/0/light/intensity", "4");
    const auto bright = pixel(project.draw(), 80, 50);
    for(std::size_t channel = 0; channel != 3; ++channel) {
        const double expected = Intensity * (Colors[channel] * 0.96 + 0.04 * 0.25) / Math::Constants<double>::pi();
        EXPECT_NEAR(linear(bright[channel]) - linear(dark[channel]), expected, 0.03 * expected);
    }
}

TEST_F(SurfaceTest, emissionIsThereWithoutLight) {
    GoldenProject project{Lights, Size};
    project.set(
        "/materials/white/Lit", R"({"baseColor": [0, 0, 0], "roughness": 1, "emissiveColor": [0.5, 0.25, 0.05]})");
    for(const char* const light: {"point", "spot", "sun"})
        project.set(("/objects/" + std::string{light} + "/components/0/light/intensity").c_str(), "0");
    const auto color = pixel(project.draw(), 80, 10);
    // A little of the surroundings is mirrored by all surfaces.
    EXPECT_NEAR(color[0], 188, 4);
    EXPECT_NEAR(color[1], 137, 5);
    EXPECT_NEAR(color[2], 63, 10);
}

} // namespace
