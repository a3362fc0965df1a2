#pragma once

#include <algorithm>
#include <cmath>
#include <string>

#include <Magnum/Math/Color.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <gtest/gtest.h>
#include <imgui.h>

#include "Support/ViewHost.h"

namespace VantrelTest {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;

// Pixels that differ by more than the rounding of a colour.
inline std::size_t differences(const Image2D& a, const Image2D& b) {
    EXPECT_EQ(a.size(), b.size());
    std::size_t count = 0;
    const auto pa = a.pixels<Color4ub>(), pb = b.pixels<Color4ub>();
    for(std::size_t y = 0; y != pa.size()[0]; ++y)
        for(std::size_t x = 0; x != pa.size()[1]; ++x)
            for(int c = 0; c != 4; ++c)
                if(std::abs(int(pa[y][x][c]) - int(pb[y][x][c])) > 2) {
                    ++count;
                    break;
                }
    return count;
}

// The view in a host without a window, with a project of cubes.
struct SceneViewFixture: testing::Test {
    SceneViewFixture() {
        record("/meshes/cube", "{'name': 'Cube', 'primitive': 'cube'}");
        host.platform.cursor = {160.0, 120.0};
    }

    void record(const char* path, std::string json) {
        std::replace(json.begin(), json.end(), '\'', '"');
        JsonDocument value;
        value.Parse(json.c_str());
        ASSERT_FALSE(value.HasParseError()) << json;
        host.session.changes().recordWithParents(path, value, false);
    }
    void addObject(const std::string& id, const std::string& translation, const std::string& components) {
        record(("/objects/" + id).c_str(),
            "{'parent': '', 'name': '" + id + "', 'translation': " + translation +
                ", 'rotation': [0, 0, 0, 1], 'scaling': [1, 1, 1], 'components': [" + components + "]}");
    }
    void addCube(const std::string& id, const std::string& translation = "[0, 0, 0]") {
        addObject(id, translation,
            "{'type': 'mesh', 'active': true, 'mesh': {'mesh': 'cube', 'material': 'flat', 'skin': ''}}");
    }
    void addPointLight(const std::string& id, const std::string& translation) {
        addObject(id, translation,
            "{'type': 'light', 'active': true, 'light': {'type': 'point', 'color': [1, 0.5, 0], 'intensity': 10}}");
    }
    Id objectOf(const char* id) { return host.session.compiler().objectOf(id); }
    EditorData& data() { return host.session.data(); }

    // The mouse over the picture, as the UI and the window system tell it.
    void hover(const Vector2i& position = {160, 120}) {
        ImGui::GetIO().MousePos = {Float(position.x()), Float(position.y())};
        host.platform.cursor = Vector2d{position};
        host.frame();
        host.frame();
    }
    void press(MouseButton button, unsigned modifiers = 0) {
        host.view().mousePressEvent({button, Vector2i{host.platform.cursor}, modifiers});
    }
    void release(MouseButton button, unsigned modifiers = 0) {
        host.view().mouseReleaseEvent({button, Vector2i{host.platform.cursor}, modifiers});
    }
    void pressKey(int key, unsigned modifiers = 0) { host.view().keyPressEvent({key, modifiers, false}); }
    void releaseKey(int key) { host.view().keyReleaseEvent({key, 0, false}); }
    DualQuaternion cameraNow() {
        host.view().saveState(false);
        return data().sceneView->camera;
    }

    ViewHost host;
};

} // namespace VantrelTest
