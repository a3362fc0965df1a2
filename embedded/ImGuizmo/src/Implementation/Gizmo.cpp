#include "Implementation/Gizmo.h"

#include <imgui.h>
#include <imgui_internal.h>

#include "Implementation/Painter.h"
#include "Implementation/Picking.h"

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

Vector2d mousePosition() {
    const ImVec2 position = ImGui::GetMousePos();
    return {Double(position.x), Double(position.y)};
}

} // namespace

void Gizmo::beginFrame() {
    setList(ImGui::GetBackgroundDrawList());
    _shown = {};
    _frame = ImGui::GetFrameCount();
    // The frames of another context may be fewer.
    if(_session && (_session->lastFrame < _frame - 1 || _session->lastFrame > _frame)) _session = {};
}

bool Gizmo::hasBegunFrame() const { return _frame == ImGui::GetFrameCount(); }

// Asked for now: between frames, some versions of the library cannot tell these lists.
void Gizmo::setList(ImDrawList* list) {
    _list = list;
    _isOfNoWindow = list == ImGui::GetBackgroundDrawList() || list == ImGui::GetForegroundDrawList();
}

void Gizmo::enable(bool isEnabled) {
    _isEnabled = isEnabled;
    if(!isEnabled) _session = {};
}

bool Gizmo::isReachable() const {
    if(!_isEnabled || !ImGui::IsMousePosValid() || !_rect.contains(mousePosition())) return false;
    const ImGuiWindow* const window = ImGui::GetCurrentContext()->HoveredWindow;
    const bool isListUnderMouse = window ? window->DrawList == _list : _isOfNoWindow;
    // Of this frame: nothing is left of what the mouse has just gone away from.
    return isListUnderMouse && !ImGui::GetCurrentContext()->HoveredId;
}

Handle Gizmo::handleUnderMouse() const {
    if(_session) return isUsing() ? _session->drag.handle : Handle{};
    return _shown && isReachable() ? handleAt(_shown->layout, _shown->operation, mousePosition()) : Handle{};
}

// The sides of a drag's beginning stay until it ends.
std::optional<Gizmo::Shown> Gizmo::shownAt(const Request& request, const Matrix4d& matrix) const {
    const Axes axes = axesOf(matrix, request.operation & SCALE ? LOCAL : request.mode);
    const Vector3d position = matrix.translation();
    const Double pixels = axisPixels(_rect, _clipSpaceSize);
    Vector3d sides{1.0};
    if(isUsing())
        sides = _session->drag.sides;
    else if(_isFlipAllowed)
        sides = longerSides(request.camera, position, axes, pixels);
    const std::optional<Layout> layout =
        layoutOf(request.camera, position, axes, sides, pixels, request.operation & ROTATE);
    return layout ? std::optional{Shown{*layout, request.operation}} : std::nullopt;
}

std::optional<Gizmo::Session> Gizmo::begun(const Request& request) const {
    if(_session || !_shown || !ImGui::IsMouseClicked(ImGuiMouseButton_Left) || ImGui::IsAnyItemActive()) return {};
    const Handle handle = handleUnderMouse();
    if(!handle) return {};
    const std::optional<Drag> drag = beginDrag(handle, _shown->layout, request.camera, request.matrix, mousePosition());
    return drag ? std::optional{Session{*drag, {}, {}, _id, _frame}} : std::nullopt;
}

std::optional<Edit> Gizmo::continued(const Request& request) {
    _session->lastFrame = _frame;
    if(!ImGui::IsMousePosValid()) return {};
    const Drag& drag = _session->drag;
    _session->followed = follow(drag, _session->followed, request.camera, mousePosition());
    const Motion before = _session->taken;
    _session->taken = snapped(drag, _session->followed, request.snap);
    if(_session->taken == before) return {};
    return edited(drag, before, _session->taken, request.matrix);
}

std::optional<Edit> Gizmo::manipulate(const Request& request) {
    if(isUsing() && !hasHandle(request.operation, _session->drag.handle)) _session = {};
    _shown = shownAt(request, request.matrix);
    if(!_session) _session = begun(request);
    std::optional<Edit> edit;
    if(isUsing()) {
        edit = continued(request);
        if(edit) _shown = shownAt(request, edit->matrix);
        if(!ImGui::IsMouseDown(ImGuiMouseButton_Left)) _session = {};
    }
    if(_shown) draw(request, ImGui::IsAnyItemActive() ? Handle{} : handleUnderMouse());
    return edit;
}

void Gizmo::draw(const Request& request, Handle hovered) const {
    const bool isDragged = isUsing();
    const Look look{request.operation, _isEnabled, hovered, isDragged ? &_session->drag : nullptr,
        isDragged ? _session->taken : Motion{}};
    const Style& style = GetStyle();
    Brush brush{*_list, _rect};
    if(isDragged) paintTrail(brush, request.camera, _shown->layout, look, style);
    paintHandles(brush, request.camera, _shown->layout, look, style);
    if(isDragged) paintValue(brush, _rect, mousePosition(), look, style);
}

}
