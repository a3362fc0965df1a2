// Pictures of the sample projects beside those that somebody looked at and found right.
//
// Run with VANTREL_UPDATE_GOLDENS=1 to write the stored pictures anew: look at every one that changed before it is
// committed. What a picture shows instead of a stored one is written into the folder of the test's run.

#include <cstdlib>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include "Golden/GoldenProject.h"
#include "Support/OffscreenContext.h"

namespace {

using namespace Magnum;
using namespace VantrelProof;
using VantrelTest::GoldenProject;

constexpr int Step = 8;
constexpr double Tolerated = 0.001;

struct Edit {
    const char* pointer;
    const char* json;
};

struct Golden {
    const char* name;
    const char* project;
    // Before the picture is taken.
    std::vector<Edit> edits;
    // Takes away what the picture is about.
    std::vector<Edit> without;
    Vector2i size{320, 200};
};

std::ostream& operator<<(std::ostream& out, const Golden& golden) { return out << golden.name; }

std::string storedFile(const Golden& golden) { return std::string{GOLDENS} + "/" + golden.name + ".png"; }

bool isUpdating() {
    const char* const variable = std::getenv("VANTREL_UPDATE_GOLDENS");
    return variable && *variable && *variable != '0';
}

void apply(GoldenProject& project, const std::vector<Edit>& edits) {
    for(const Edit& edit: edits) project.set(edit.pointer, edit.json);
}

class GoldenTest: public VantrelTest::GlTest, public testing::WithParamInterface<Golden> {};

TEST_P(GoldenTest, isAsItWasFoundRight) {
    const Golden& golden = GetParam();
    GoldenProject project{std::string{PROJECTS} + "/" + golden.project + "/project.json", golden.size};
    apply(project, golden.edits);
    const Picture picture = project.draw();
    if(isUpdating()) {
        ASSERT_TRUE(writePng(storedFile(golden), picture));
    }
    const auto stored = readPng(storedFile(golden));
    ASSERT_TRUE(stored) << storedFile(golden);
    ASSERT_EQ(stored->width, picture.width);
    ASSERT_EQ(stored->height, picture.height);
    const Difference difference = compare(*stored, picture, Step);
    EXPECT_LE(difference.fraction, Tolerated) << "the largest difference is " << difference.largest;
    if(difference.fraction > Tolerated) writePng(std::string{golden.name} + "-actual.png", picture);

    // What the picture is about is what it shows.
    apply(project, golden.without);
    EXPECT_GT(compare(*stored, project.draw(), Step).fraction, 10 * Tolerated) << "without its subject";
}

constexpr const char* Bloom = "/settings/rendering/bloom";
constexpr Edit NoBloom{"/settings/rendering/bloom/enabled", "false"};
constexpr Edit NoPoint{"/objects/point/components/0/active", "false"};
constexpr Edit NoSpot{"/objects/spot/components/0/active", "false"};
constexpr Edit NoSun{"/objects/sun/components/0/active", "false"};

const Golden Goldens[]{
    {"showcase", "Showcase", {}, {{"/objects/stand/translation", "[0, -5, 0]"}}, {480, 300}},
    {"showcase-corner", "Showcase",
        {{"/objects/camera/translation", "[-3.0, 2.2, 10.5]"}, {"/objects/camera/rotation", "[-0.08, 0.0, 0.0, 1.0]"}},
        {{"/objects/crates/translation", "[0, -5, 0]"}}, {480, 300}},
    // Its shader has few of the parameters.
    {"courtyard", "Courtyard", {}, {NoSun}},
    {"light-point", "Lights", {NoSpot, NoSun}, {NoPoint}},
    {"light-spot", "Lights", {NoPoint, NoSun}, {NoSpot}},
    {"light-sun", "Lights", {NoPoint, NoSpot}, {NoSun}},
    {"light-all", "Lights", {}, {NoSpot}},
    {"light-none", "Lights", {NoPoint, NoSpot, NoSun}, {{"/objects/mirrorBall/components/0/active", "false"}}},
    {"shadow-sun", "Shadows", {NoPoint, NoSpot}, {{"/objects/sun/components/0/light/shadows", "false"}}},
    {"shadow-spot", "Shadows", {NoPoint, NoSun}, {{"/objects/spot/components/0/light/shadows", "false"}}},
    {"shadow-point", "Shadows", {NoSpot, NoSun}, {{"/objects/point/components/0/light/shadows", "false"}}},
    // From above the card.
    {"shadow-mask", "Shadows",
        {NoPoint, NoSpot, {"/objects/camera/translation", "[-3.6, 2.6, 2.6]"},
            {"/objects/camera/rotation", "[-0.4, 0.0, 0.0, 1.0]"}},
        {{"/pipelines/litMask/alphaMask", "false"}}},
    {"shadow-mirrored", "Shadows",
        {NoPoint, NoSpot, {"/objects/camera/translation", "[2.6, 2.4, 3.0]"},
            {"/objects/camera/rotation", "[-0.3, 0.0, 0.0, 1.0]"}},
        {{"/objects/mirroredPanel/components/0/active", "false"}}},
    {"alpha", "Alpha", {}, {{"/pipelines/litBlend/blend", "false"}}},
    {"alpha-mask", "Alpha", {{"/objects/blend/components/0/active", "false"}},
        {{"/pipelines/litMask/alphaMask", "false"}}},
    {"textures", "Textures", {}, {{"/textures/mirror/wrap", "\"repeat\""}}},
    {"textures-normals", "Textures", {{"/objects/camera/translation", "[1.6, 0.3, 3.6]"}},
        {{"/materials/bumpy/Lit/normalScale", "0"}}},
    {"placement", "Placement", {}, {{"/materials/turned1/Lit/normalTextureTurn", "[0.8, 0, 0, 0]"}}, {480, 260}},
    {"placement-prepass", "Placement", {{"/settings/rendering", R"({"usePreZ": true})"}},
        {{"/objects/flipped/scaling", "[0.5, 0.5, 1]"}}},
    {"bloom", "Bloom", {}, {NoBloom}},
    {"bloom-off", "Bloom", {NoBloom}, {{"/objects/tubeLight/components/0/active", "false"}}},
    {"bloom-narrow", "Bloom",
        {{Bloom, R"({"enabled": true, "passes": 1, "kernelSize": 1, "threshold": 1, "intensity": 1})"}}, {NoBloom}},
    {"bloom-wide", "Bloom",
        {{Bloom, R"({"enabled": true, "passes": 4, "kernelSize": 21, "threshold": 1, "intensity": 0.5})"}},
        {{"/settings/rendering/bloom/kernelSize", "5"}}},
    {"bloom-once", "Bloom",
        {{Bloom, R"({"enabled": true, "passes": 1, "kernelSize": 5, "threshold": 0.5, "intensity": 0.5})"}},
        {{"/settings/rendering/bloom/passes", "0"}}},
    {"bloom-exposed", "Bloom", {{"/settings/rendering/hdr", R"({"exposure": 3})"}},
        {{"/settings/rendering/hdr/exposure", "1"}}},
    {"bloom-sky", "Environment",
        {{Bloom, R"({"enabled": true, "passes": 4, "kernelSize": 15, "threshold": 2, "intensity": 0.3})"}}, {NoBloom},
        {320, 200}},
    {"environment", "Environment", {}, {{"/settings/rendering/environment/image", "\"\""}}, {480, 300}},
    {"environment-turned", "Environment", {{"/settings/rendering/environment/rotation", "120"}},
        {{"/settings/rendering/environment/rotation", "0"}}, {320, 200}},
    {"environment-hidden", "Environment",
        {{"/settings/rendering/environment/background", "false"}, {"/settings/rendering/environment/intensity", "0.4"}},
        {{"/settings/rendering/environment/intensity", "1"}}, {320, 200}},
};

INSTANTIATE_TEST_SUITE_P(Projects, GoldenTest, testing::ValuesIn(Goldens), [](const auto& info) {
    std::string name = info.param.name;
    for(char& c: name)
        if(c == '-') c = '_';
    return name;
});

} // namespace
