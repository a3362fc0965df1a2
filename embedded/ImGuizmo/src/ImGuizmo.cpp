#include <ImGuizmo.h>

#include <algorithm>
#include <cmath>

#include <Corrade/Utility/Assert.h>

#include "Implementation/Gizmo.h"

namespace ImGuizmo {

using namespace Implementation;

namespace {

Gizmo& gizmo() {
    static Gizmo gizmo;
    return gizmo;
}

bool isFinite(const float* matrix) {
    return std::all_of(matrix, matrix + 16, [](float number) { return std::isfinite(number); });
}

void copy(const Matrix4d& from, float* to) {
    std::transform(from.data(), from.data() + 16, to, [](double number) { return float(number); });
}

} // namespace

void SetImGuiContext(ImGuiContext* context) { ImGui::SetCurrentContext(context); }

void BeginFrame() { gizmo().beginFrame(); }

void SetDrawlist(ImDrawList* list) { gizmo().setList(list ? list : ImGui::GetWindowDrawList()); }

void SetRect(float x, float y, float width, float height) {
    gizmo().setRect({{double(x), double(y)}, {double(width), double(height)}});
}

void SetOrthographic(bool) {}

void SetGizmoSizeClipSpace(float size) { gizmo().setSize(double(size)); }

void AllowAxisFlip(bool isAllowed) { gizmo().allowFlip(isAllowed); }

bool Manipulate(const float* view, const float* projection, OPERATION operation, MODE mode, float* matrix,
    float* deltaMatrix, const float* snap, const float* localBounds, const float* boundsSnap) {
    CORRADE_ASSERT(!localBounds && !boundsSnap, "ImGuizmo::Manipulate(): there are no bounds to edit", false);
    CORRADE_ASSERT(gizmo().hasBegunFrame(), "ImGuizmo::Manipulate(): there was no BeginFrame() in this frame", false);
    if(deltaMatrix) copy(Matrix4d{}, deltaMatrix);
    const std::optional<Camera> camera = Camera::create(view, projection, gizmo().rect());
    if(!camera || !isFinite(matrix)) return false;
    Matrix4d before;
    std::copy_n(matrix, 16, before.data());
    const std::optional<Edit> edit = gizmo().manipulate({*camera, operation, mode, before, snap});
    if(!edit) return false;
    float out[16], delta[16];
    copy(edit->matrix, out);
    copy(edit->delta, delta);
    if(!isFinite(out) || !isFinite(delta)) return false;
    std::copy_n(out, 16, matrix);
    if(deltaMatrix) std::copy_n(delta, 16, deltaMatrix);
    return true;
}

bool IsOver() { return bool(gizmo().handleUnderMouse()); }

bool IsOver(OPERATION operation) { return hasHandle(operation, gizmo().handleUnderMouse()); }

bool IsUsing() { return gizmo().isUsing(); }

bool IsUsingAny() { return gizmo().isUsingAny(); }

void Enable(bool isEnabled) { gizmo().enable(isEnabled); }

void SetID(int id) { gizmo().setId(id); }

}
