#include "MouseDrag.h"

#include <cstdio>
#include <cstdlib>

#include <Vantrel/EditorData/EditorData.h>
#include <imgui.h>

#include "BenchProject.h"
#include "GridProject.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

// Window points. Small, so that the objects stay in the picture.
constexpr Float Step = 2.0f;
// Frames after which the mouse is known to be where it is.
constexpr int FramesToHover = 2;

}

void BenchMouse::moveTo(const Vector2& position) {
    const Vector2 movement = position - _position;
    _position = position;
    ImGui::GetIO().MousePos = {position.x(), position.y()};
    _view.host().platform.cursor = Vector2d{position};
    _view.host().view().mouseMoveEvent({Vector2i{movement}, 0});
}

void BenchMouse::press(MouseButton button) {
    ImGui::GetIO().MouseDown[int(button)] = true;
    _view.host().view().mousePressEvent({button, Vector2i{_position}, 0});
}

void BenchMouse::release(MouseButton button) {
    ImGui::GetIO().MouseDown[int(button)] = false;
    _view.host().view().mouseReleaseEvent({button, Vector2i{_position}, 0});
}

Vector2 placeInWindow(BenchView& view, const Vector3& point) {
    const Vector2 size{view.pictureSize()};
    const Vector3 clip = gridToClip(view.pictureSize()).transformPoint(point);
    // The picture is at the lower end of the window.
    const Vector2 origin = Vector2{view.windowSize()} - size;
    return origin + Vector2{0.5f + 0.5f * clip.x(), 0.5f - 0.5f * clip.y()} * size;
}

MouseDrag::MouseDrag(BenchView& view, std::size_t count): _view{view}, _mouse{view} {
    ProjectSession& session = view.host().session;
    session.data().selection().clear();
    for(const std::string& path: spreadPaths(session, count)) {
        const std::string id = path.substr(path.rfind('/') + 1);
        session.data().selectObject(session.compiler().objectOf({id.data(), id.size()}), true);
    }
}

Vector2 MouseDrag::middle() const {
    ProjectSession& session = _view.host().session;
    Scene& scene = session.data().scene().main();
    const BitSetView selected = session.data().selection();
    Vector3d sum;
    for(std::size_t object = selected.findFirstSet(); object != selected.size();
        object = selected.findFirstSet(object + 1))
        sum += Vector3d{scene.absoluteTransformation(Id(object)).translation()};
    return placeInWindow(_view, Vector3{sum / Double(selected.countSet())});
}

double MouseDrag::begin() {
    _start = middle();
    _mouse.moveTo(_start);
    for(int i = 0; i != FramesToHover; ++i) frame();
    _mouse.press(MouseButton::Left);
    frame();
    const double seconds = move();
    if(_view.host().session.changes().trial() == Trial::Gesture) return seconds;
    std::fprintf(
        stderr, "vantrel-bench: the gizmo cannot be grabbed at %.1f, %.1f\n", double(_start.x()), double(_start.y()));
    std::exit(1);
}

double MouseDrag::moveOn() { return move(); }

void MouseDrag::moveMouse() { _mouse.moveTo(_start + Vector2{++_moves % 2 ? Step : 2.0f * Step, Step}); }

double MouseDrag::move() {
    moveMouse();
    return frame();
}

void MouseDrag::end() {
    _mouse.release(MouseButton::Left);
    frame();
}

// As the editor does it.
double MouseDrag::frame() {
    return _view.frameSeconds() + secondsOf([&] { _view.host().session.steps().update(); });
}

}
