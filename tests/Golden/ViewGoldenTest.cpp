// What the scene view shows besides the scene, beside pictures that somebody looked at and found right. See
// GoldenTest.cpp for how to write them anew.

#include <cstdlib>
#include <functional>
#include <ostream>
#include <string>

#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/Math/Color.h>
#include <Vantrel/EditorData/EditorData.h>
#include <gmock/gmock.h>
#include <imgui.h>

#include "Abi/Picture.h"
#include "Support/ViewHost.h"
#include "Views/SceneView/RenderMode.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using VantrelProof::Picture;
using VantrelTest::ViewHost;

constexpr int Step = 8;
// Of lines: an installed library smooths them a little more than the stand-in.
constexpr int LineStep = 48;
constexpr double Tolerated = 0.001;
constexpr Vector2i Size{400, 280};

struct Golden {
    const char* name;
    RenderMode mode;
    // What is seen from where the others are, and what is not there without it.
    std::function<void(ViewHost&)> subject, without;
    int step = Step;
};

void PrintTo(const Golden& golden, std::ostream* out) { *out << golden.name; }

Id objectOf(ViewHost& host, const char* id) { return host.session.compiler().objectOf(id); }

void set(ViewHost& host, const char* pointer, const char* json) {
    JsonDocument value;
    value.Parse(json);
    ASSERT_FALSE(value.HasParseError()) << json;
    host.session.changes().recordWithParents(pointer, value, false);
}

// From above a corner of the courtyard.
void placeCamera(ViewHost& host, RenderMode mode) {
    const Containers::Array<char> saved = host.view().saveState(false);
    SceneViewRecord record;
    record.camera = DualQuaternion::translation({5.0f, 3.5f, 7.0f});
    record.orbitDistance = 8.0f;
    record.renderMode = UnsignedInt(mode);
    host.session.data().sceneView = record;
    host.session.data().cameraPitch = -18.0f;
    host.session.data().cameraYaw = 35.0f;
    host.view().restoreState(saved);
}

// Ids of objects one after the other would all look black.
Image2D spread(Image2D ids) {
    for(auto row: ids.pixels<Color4ub>())
        for(Color4ub& color: row) {
            const unsigned id = color.r() | color.g() << 8;
            color = id == NoObject
                ? Color4ub{255}
                : Color4ub{UnsignedByte(37 * id), UnsignedByte(91 * id), UnsignedByte(151 * id), 255};
        }
    return ids;
}

Picture shown(ViewHost& host, RenderMode mode) {
    host.frame();
    const Image2D image = mode == RenderMode::ObjectId ? spread(host.objectIds()) : host.picture();
    Picture picture;
    picture.width = image.size().x();
    picture.height = image.size().y();
    const auto pixels = image.pixels<Color4ub>();
    for(int y = picture.height; y-- > 0;)
        for(const Color4ub color: pixels[y])
            for(const UnsignedByte channel: {color.r(), color.g(), color.b(), color.a()})
                picture.pixels.push_back(channel);
    return picture;
}

class ViewGoldenTest: public testing::TestWithParam<Golden> {};

TEST_P(ViewGoldenTest, isAsItWasFoundRight) {
    const Golden& golden = GetParam();
    ViewHost host{Size};
    ASSERT_EQ(host.session.open(PROJECTS "/Courtyard/project.json").error, "");
    placeCamera(host, golden.mode);
    host.frame();
    if(golden.subject) golden.subject(host);
    const Picture picture = shown(host, golden.mode);

    const std::string file = std::string{GOLDENS} + "/view-" + golden.name + ".png";
    const char* const updating = std::getenv("VANTREL_UPDATE_GOLDENS");
    if(updating && *updating && *updating != '0') {
        ASSERT_TRUE(writePng(file, picture));
    }
    const auto stored = VantrelProof::readPng(file);
    ASSERT_TRUE(stored) << file;
    ASSERT_EQ(stored->width, picture.width);
    ASSERT_EQ(stored->height, picture.height);
    const VantrelProof::Difference difference = compare(*stored, picture, golden.step);
    EXPECT_LE(difference.fraction, Tolerated) << "the largest difference is " << difference.largest;
    if(difference.fraction > Tolerated) writePng(std::string{"view-"} + golden.name + "-actual.png", picture);

    golden.without(host);
    EXPECT_GT(compare(*stored, shown(host, golden.mode), golden.step).fraction, 2 * Tolerated) << "without its subject";
}

std::function<void(ViewHost&)> display(DebugDisplay which, std::uint8_t value) {
    return [=](ViewHost& host) { host.state.display(which) = value; };
}
void select(ViewHost& host) {
    host.session.data().selectObject(objectOf(host, "column2Shaft"), false);
    host.session.data().selectObject(objectOf(host, "column2Capital"), true);
}
void deselect(ViewHost& host) {
    host.session.data().deselectObject(objectOf(host, "column2Shaft"));
    host.session.data().deselectObject(objectOf(host, "column2Capital"));
}
void setPlanes(ViewHost& host, const char* near, const char* far) {
    set(host, "/settings/editor/camera/near", near);
    set(host, "/settings/editor/camera/far", far);
    host.frame();
}
// Culling stays for where the camera was, then it backs off. What was the far plane has to be well before the new one:
// where both meet, rounding decides what is seen of it.
void freezeCulling(ViewHost& host) {
    host.session.data().selectObject(objectOf(host, "crate1"), false);
    setPlanes(host, "0.5", "30");
    host.state.display(DebugDisplay::FreezeCullingFrustum) = 1;
    ImGui::GetIO().MousePos = {200.0f, 150.0f};
    host.frame();
    host.frame();
    host.view().mousePressEvent({MouseButton::Middle, {200, 150}, 0});
    host.view().mouseMoveEvent({{0, 500}, ModifierControl});
    host.view().mouseReleaseEvent({MouseButton::Middle, {200, 150}, 0});
    setPlanes(host, "0.5", "500");
}
void hideGround(ViewHost& host) { set(host, "/objects/ground/components/0/active", "false"); }
const Golden Goldens[]{
    {"shaded", RenderMode::Shaded, {}, hideGround},
    // Without the ground: libraries differ in the edges of triangles that reach far beyond the picture.
    {"mesh-visualization", RenderMode::MeshVisualization, hideGround,
        [](ViewHost& host) {
            for(const char* const crate: {"crate1", "crate2", "crate3"})
                set(host, (std::string{"/objects/"} + crate + "/components/0/active").c_str(), "false");
        },
        LineStep},
    {"object-id", RenderMode::ObjectId, {}, hideGround},
    {"outline", RenderMode::Shaded, select, deselect},
    {"objects", RenderMode::Shaded, display(DebugDisplay::Objects, 1), display(DebugDisplay::Objects, 0)},
    {"overdraw", RenderMode::Shaded, display(DebugDisplay::Overdraw, 1), display(DebugDisplay::Overdraw, 0)},
    {"frozen-culling", RenderMode::Shaded, freezeCulling, display(DebugDisplay::FreezeCullingFrustum, 0)},
    {"collision-shapes", RenderMode::Shaded, display(DebugDisplay::CollisionShapes, 1),
        [](ViewHost& host) {
            for(const char* const object: {"ground", "column1Shaft", "column2Shaft", "column3Shaft", "column4Shaft"})
                set(host, (std::string{"/objects/"} + object + "/components/1/active").c_str(), "false");
        }},
};

INSTANTIATE_TEST_SUITE_P(View, ViewGoldenTest, testing::ValuesIn(Goldens), [](const auto& info) {
    std::string name = info.param.name;
    for(char& c: name)
        if(c == '-') c = '_';
    return name;
});

} // namespace
