#include "GizmoFixture.h"

#include <algorithm>
#include <cmath>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/Math/Functions.h>
#include <Vantrel/EngineData/JsonObject.h>

#include "Support/JsonText.h"

namespace VantrelTest {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using namespace Math::Literals;

namespace {

// Where no ring that is seen edge-on is near.
const Vector2 Direction{std::sqrt(0.5f), -std::sqrt(0.5f)};

}

GizmoTest::GizmoTest() {
    record("/meshes/cube", "{'name': 'Cube', 'primitive': 'cube'}");
    data().cameraPitch = data().cameraYaw = 0.0f;
    setCamera({0.0f, 0.0f, 10.0f});
}

void GizmoTest::record(const std::string& path, std::string json) {
    std::replace(json.begin(), json.end(), '\'', '"');
    JsonDocument value;
    value.Parse(json.c_str());
    ASSERT_FALSE(value.HasParseError()) << json;
    changes().recordWithParents(path.c_str(), value, false);
}

void GizmoTest::addObject(const std::string& id, const std::string& parent, const std::string& translation,
    const std::string& rotation, const std::string& scaling, const std::string& components) {
    record("/objects/" + id,
        "{'parent': '" + parent + "', 'name': '" + id + "', 'translation': " + translation +
            ", 'rotation': " + rotation + ", 'scaling': " + scaling + ", 'components': [" + components + "]}");
    host.session.update();
}

void GizmoTest::addCube(const std::string& id, const std::string& translation, const std::string& scaling) {
    addObject(id, "", translation, "[0, 0, 0, 1]", scaling,
        "{'type': 'mesh', 'active': true, 'mesh': {'mesh': 'cube', 'material': 'flat', 'skin': ''}}");
}

void GizmoTest::select(const std::vector<std::string>& ids) {
    _selected = ids;
    data().selection().clear();
    for(const std::string& id: ids) data().selectObject(objectOf(id), true);
    host.frame();
}

Matrix4 GizmoTest::worldOf(const std::string& id) {
    return data().scene().main().absoluteTransformationAsMatrixSafe(objectOf(id));
}

std::string GizmoTest::documentOf(const std::string& id, const std::string& key) {
    return jsonText(*data().project().valueByPointer(("/objects/" + id + "/" + key).c_str()));
}

std::string GizmoTest::document() { return jsonText(data().project().projectFile()); }

std::string GizmoTest::undoLog() {
    std::string text = std::to_string(changes().lastChange()) + (changes().hasUnsavedChanges() ? " unsaved\n" : "\n");
    for(const Change& change: changes().changes())
        text += std::to_string(change.group) + ' ' + change.path.data() + ' ' +
            (change.newValue ? jsonText(*change.newValue) : "nothing") + '\n';
    return text;
}

int GizmoTest::steps() {
    int count = 0, last = 0;
    for(std::int32_t i = 0; i <= changes().lastChange(); ++i) {
        const int group = changes().changes()[std::size_t(i)].group;
        if(group < 0 || group != last) ++count;
        last = group;
    }
    return count;
}

SceneViewRecord GizmoTest::saved() {
    host.view().saveState(false);
    return *data().sceneView;
}

void GizmoTest::setCamera(const Vector3& position) {
    _camera = position;
    const Containers::Array<char> state = host.view().saveState(false);
    data().sceneView->camera = DualQuaternion::translation(position);
    host.view().restoreState(state);
    host.frame();
    host.frame();
}

void GizmoTest::setGizmo(const GizmoSettings& settings) {
    const Containers::Array<char> state = host.view().saveState(false);
    SceneViewRecord& record = *data().sceneView;
    record.gizmoOperation = UnsignedInt(settings.gizmoOperation);
    record.gizmoSpace = UnsignedInt(settings.gizmoSpace);
    record.snapTranslationEnabled = settings.snapTranslationEnabled;
    record.snapRotationEnabled = settings.snapRotationEnabled;
    record.snapScaleEnabled = settings.snapScaleEnabled;
    record.snapTranslation = settings.snapTranslation;
    record.snapRotation = settings.snapRotation;
    record.snapScale = settings.snapScale;
    host.view().restoreState(state);
    host.frame();
}

void GizmoTest::setOperation(GizmoOperation operation, GizmoSpace space) {
    GizmoSettings settings;
    settings.gizmoOperation = operation;
    settings.gizmoSpace = space;
    setGizmo(settings);
}

Vector2 GizmoTest::pointOf(const Vector3& position) const {
    const Vector2 size{host.state.sceneViewFramebuffer->viewport().size()};
    const Vector2 window{ImGui::GetIO().DisplaySize.x, ImGui::GetIO().DisplaySize.y};
    const Vector3 seen = position - _camera;
    // The camera sees 90 degrees from left to right.
    return window - size * 0.5f + Vector2{seen.x(), -seen.y()} / -seen.z() * size.x() * 0.5f;
}

Id GizmoTest::objectAt(const Vector2& point) {
    return host.objectAt({Int(point.x()), Int(ImGui::GetIO().DisplaySize.y - 1.0f - point.y())});
}

Float GizmoTest::axisLength() const {
    return Math::max(0.15f * Float(host.state.sceneViewFramebuffer->viewport().size().min()), 64.0f);
}

void GizmoTest::moveTo(const Vector2& anywhere) {
    // The UI library knows whole points only.
    const Vector2 point = Math::round(anywhere);
    ImGui::GetIO().MousePos = {point.x(), point.y()};
    host.platform.cursor = Vector2d{point};
    host.frame();
}

void GizmoTest::press() {
    ImGui::GetIO().MouseDown[0] = true;
    host.view().mousePressEvent({MouseButton::Left, Vector2i{mouse()}, 0});
    host.frame();
}

void GizmoTest::release() {
    ImGui::GetIO().MouseDown[0] = false;
    host.view().mouseReleaseEvent({MouseButton::Left, Vector2i{mouse()}, 0});
    host.frame();
}

void GizmoTest::grab(const Vector2& from) {
    moveTo(from);
    host.frame();
    press();
}

void GizmoTest::click(const Vector2& point) {
    grab(point);
    release();
}

void GizmoTest::drag(const Vector2& from, const Vector2& way, int frames) {
    grab(from);
    for(int i = 1; i <= frames; ++i) moveTo(from + way * (Float(i) / Float(frames)));
    release();
}

bool GizmoTest::canGrab(const Vector2& point) {
    grab(point);
    const bool isHeld = host.state.isHandleHeld;
    release();
    // A click beside the handles has chosen something else.
    select(_selected);
    return isHeld;
}

Float GizmoTest::outerRadius(const Vector3& position) {
    static Float lengths = 0.0f;
    if(lengths == 0.0f) lengths = findOuterRadius(position) / axisLength();
    return lengths * axisLength();
}

Float GizmoTest::findOuterRadius(const Vector3& position) {
    const Vector2 middle = pointOf(position);
    Float outer = 1.8f * axisLength();
    while(outer > 0.0f && !canGrab(middle + Direction * outer)) outer -= 2.0f;
    Float inner = outer;
    while(inner > 0.0f && canGrab(middle + Direction * inner)) inner -= 2.0f;
    EXPECT_GT(inner, 0.5f * axisLength()) << "there is no ring";
    return (outer + inner) * 0.5f;
}

Rad GizmoTest::turn(const Vector3& position, Deg angle, int frames) {
    const Vector2 middle = pointOf(position);
    const Float radius = outerRadius(position);
    const auto place = [&](Rad at) {
        return Math::round(middle + Vector2{std::cos(Float(at)), -std::sin(Float(at))} * radius);
    };
    const Rad start = 45.0_degf, way = angle;
    grab(place(start));
    for(int i = 1; i <= frames; ++i) moveTo(place(start + way * (Float(i) / Float(frames))));
    release();
    const auto angleOf = [&](const Vector2& point) {
        return std::atan2(middle.y() - point.y(), point.x() - middle.x());
    };
    return Rad{angleOf(place(start + way)) - angleOf(place(start))};
}

void expectNear(const Vector3& actual, const Vector3& expected, float tolerance) {
    const float largest = std::max(1.0f, Math::abs(expected).max());
    for(std::size_t i = 0; i != 3; ++i) EXPECT_NEAR(actual[i], expected[i], tolerance * largest) << "component " << i;
}

void expectNear(const Matrix4& actual, const Matrix4& expected, float tolerance) {
    for(std::size_t i = 0; i != 4; ++i) {
        SCOPED_TRACE("column " + std::to_string(i));
        expectNear(actual[i].xyz(), expected[i].xyz(), tolerance);
    }
}

}
