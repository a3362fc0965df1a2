#pragma once

#include <string>
#include <vector>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <gtest/gtest.h>
#include <imgui.h>

#include "Support/ViewHost.h"
#include "Views/SceneView/GizmoSettings.h"

namespace VantrelTest {

// The scene view with objects, seen along the negative z axis from (0, 0, 10), and a hand on its gizmo.
class GizmoTest: public testing::Test {
protected:
    static constexpr int KeyEscape = 256;

    GizmoTest();

    void record(const std::string& path, std::string json);
    void remove(const std::string& path) { changes().recordChange(path.c_str(), nullptr, false); }
    // Arrays as JSON: three numbers, x y z w, three numbers.
    void addObject(const std::string& id, const std::string& parent = "", const std::string& translation = "[0, 0, 0]",
        const std::string& rotation = "[0, 0, 0, 1]", const std::string& scaling = "[1, 1, 1]",
        const std::string& components = "");
    void addCube(const std::string& id, const std::string& translation, const std::string& scaling = "[1, 1, 1]");
    void select(const std::vector<std::string>& ids);

    VantrelEngine::Id objectOf(const std::string& id) { return host.session.compiler().objectOf(id.c_str()); }
    Magnum::Matrix4 worldOf(const std::string& id);
    Magnum::Vector3 positionOf(const std::string& id) { return worldOf(id).translation(); }
    Magnum::Vector3 scalingOf(const std::string& id) { return data().scene().main().localScaling(objectOf(id)); }
    // The value of an object's key.
    std::string documentOf(const std::string& id, const std::string& key);
    std::string document();
    // All that is known of the log.
    std::string undoLog();
    // How many steps of undo there are.
    int steps();
    VantrelEngine::ChangeManager& changes() { return host.session.changes(); }
    VantrelEngine::EditorData& data() { return host.session.data(); }

    // As a module that is loaded again takes it over.
    void setCamera(const Magnum::Vector3& position);
    void setGizmo(const VantrelEngine::GizmoSettings& settings);
    void setOperation(
        VantrelEngine::GizmoOperation operation, VantrelEngine::GizmoSpace space = VantrelEngine::GizmoSpace::World);
    // As it would be taken over.
    VantrelEngine::SceneViewRecord saved();

    // Window points of a place in the scene.
    Magnum::Vector2 pointOf(const Magnum::Vector3& position) const;
    // What the last picture has under a window point.
    VantrelEngine::Id objectAt(const Magnum::Vector2& point);
    // Of the gizmo, window points.
    Magnum::Float axisLength() const;

    void moveTo(const Magnum::Vector2& point);
    Magnum::Vector2 mouse() const { return {ImGui::GetIO().MousePos.x, ImGui::GetIO().MousePos.y}; }
    void press();
    void release();
    void click(const Magnum::Vector2& point);
    void pressRight() {
        host.view().mousePressEvent({VantrelEngine::MouseButton::Right, Magnum::Vector2i{mouse()}, 0});
    }
    void pressKey(int key, unsigned modifiers = 0) { host.view().keyPressEvent({key, modifiers, false}); }
    // From a point, by a way, in so many frames.
    void grab(const Magnum::Vector2& from);
    void drag(const Magnum::Vector2& from, const Magnum::Vector2& way, int frames = 10);
    // The handle in the middle of an object's gizmo.
    void dragMiddle(const std::string& id, const Magnum::Vector2& way, int frames = 10) {
        drag(pointOf(positionOf(id)), way, frames);
    }
    // Whether a press there takes a handle. What is selected stays so.
    bool canGrab(const Magnum::Vector2& point);
    // Of the ring that is farthest from an object's place, window points; the object is selected and can be turned.
    Magnum::Float outerRadius(const Magnum::Vector3& position);
    // The outer ring about a place, against the clock. Returns the angle of the whole points that come nearest.
    Magnum::Rad turn(const Magnum::Vector3& position, Magnum::Deg angle, int frames = 20);
    bool isOnTrial() { return changes().trial() != VantrelEngine::Trial::None; }

    ViewHost host{{480, 400}};

private:
    // From outside: each library has its ring at another distance.
    Magnum::Float findOuterRadius(const Magnum::Vector3& position);

    Magnum::Vector3 _camera;
    std::vector<std::string> _selected;
};

// But for a part of the largest number.
void expectNear(const Magnum::Vector3& actual, const Magnum::Vector3& expected, float tolerance = 1.0e-4f);
void expectNear(const Magnum::Matrix4& actual, const Magnum::Matrix4& expected, float tolerance = 1.0e-4f);

}
