#include "GizmoWindow.h"

#include <algorithm>

#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Vector4.h>
#include <gtest/gtest.h>

namespace GizmoTest {

using namespace Magnum;
using namespace Math::Literals;

void prepareContext(const Vector2& size) {
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr;
    io.DisplaySize = {size.x(), size.y()};
    io.ConfigWindowsMoveFromTitleBarOnly = true;
    // Nothing is drawn, but the library wants its letters.
#if IMGUI_VERSION_NUM >= 19200
    io.BackendFlags |= ImGuiBackendFlags_RendererHasTextures;
#else
    unsigned char* pixels;
    int width, height;
    io.Fonts->GetTexDataAsRGBA32(&pixels, &width, &height);
#endif
}

GizmoWindow::GizmoWindow(const Vector2& size):
    view{Matrix4::lookAt({3.0f, 4.0f, 5.0f}, {}, Vector3::yAxis()).inverted()},
    projection{Matrix4::perspectiveProjection(60.0_degf, size.x() / size.y(), 0.1f, 100.0f)}, rect{{}, size},
    windowSize{size}, _context{ImGui::CreateContext()}, _size{size} {
    ImGui::SetCurrentContext(_context);
    ImGuizmo::SetImGuiContext(_context);
    prepareContext(size);
    moveTo({1.0f, 1.0f});
    // A gizmo that an earlier test left in use is used no more.
    ImGuizmo::Enable(false);
    ImGuizmo::Enable(true);
    ImGuizmo::SetOrthographic(false);
}

GizmoWindow::~GizmoWindow() { ImGui::DestroyContext(_context); }

// The library takes whole pixels only.
void GizmoWindow::moveTo(const Vector2& position) { placeMouse(Math::round(position)); }

#if IMGUI_VERSION_NUM >= 18700
void GizmoWindow::placeMouse(const Vector2& position) { ImGui::GetIO().AddMousePosEvent(position.x(), position.y()); }
void GizmoWindow::setButton(int button, bool isDown) { ImGui::GetIO().AddMouseButtonEvent(button, isDown); }
#else
void GizmoWindow::placeMouse(const Vector2& position) { ImGui::GetIO().MousePos = {position.x(), position.y()}; }
void GizmoWindow::setButton(int button, bool isDown) { ImGui::GetIO().MouseDown[button] = isDown; }
#endif

GizmoWindow::Frame GizmoWindow::frame() {
    ImGui::GetIO().DeltaTime = 1.0f / 60.0f;
    ImGui::NewFrame();
    ImGuizmo::BeginFrame();
    Frame out;
    if(isBehindAllWindows)
        manipulate(out);
    else
        showWindow(out);
    if(isCovered) {
        ImGui::SetNextWindowPos({0.0f, 0.0f});
        ImGui::SetNextWindowSize({_size.x(), _size.y()});
        ImGui::Begin("cover", nullptr, ImGuiWindowFlags_NoDecoration);
        ImGui::End();
    }
    ImGui::Render();
    return out;
}

void GizmoWindow::showWindow(Frame& frame) {
    ImGui::SetNextWindowPos({0.0f, 0.0f});
    ImGui::SetNextWindowSize({windowSize.x(), windowSize.y()});
    ImGui::Begin("view", nullptr, ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoBringToFrontOnFocus);
    if(content) content();
    manipulate(frame);
    ImGui::End();
}

void GizmoWindow::manipulate(Frame& frame) {
    ImDrawList* const list = isBehindAllWindows ? ImGui::GetBackgroundDrawList() : ImGui::GetWindowDrawList();
    _list = list;
    vertices = 0;
    if(!isShown) return;
    const int before = list->VtxBuffer.Size, clipRectanglesBefore = list->_ClipRectStack.Size;
    ImGuizmo::SetDrawlist(isBehindAllWindows ? list : nullptr);
    ImGuizmo::SetRect(rect.left(), rect.bottom(), rect.sizeX(), rect.sizeY());
    frame.isChanged = ImGuizmo::Manipulate(view.data(), projection.data(), operation, mode, matrix.data(),
        asksForDelta ? frame.delta.data() : nullptr, snap ? snap->data() : nullptr);
    vertices = list->VtxBuffer.Size - before;
    clipRectangles = list->_ClipRectStack.Size - clipRectanglesBefore;
    frame.isUsing = ImGuizmo::IsUsing();
    frame.isOver = ImGuizmo::IsOver();
}

Vector2 GizmoWindow::project(const Vector3& point) const {
    const Vector4 clip = projection * view * Vector4{point, 1.0f};
    return {(clip.x() / clip.w() * 0.5f + 0.5f) * _size.x(), (0.5f - clip.y() / clip.w() * 0.5f) * _size.y()};
}

Float GizmoWindow::pixelsPerUnit() const {
    const Vector3 position = matrix.translation();
    const Vector3 right{view[0][0], view[1][0], view[2][0]};
    return (project(position + right) - project(position)).length();
}

std::vector<float> GizmoWindow::lastVertices() const {
    std::vector<float> out;
    for(int i = _list->VtxBuffer.Size - vertices; i != _list->VtxBuffer.Size; ++i) {
        out.push_back(_list->VtxBuffer[i].pos.x);
        out.push_back(_list->VtxBuffer[i].pos.y);
    }
    return out;
}

bool GizmoWindow::isDrawnAt(const Vector2& pixel, Float distance) const {
    const ImDrawVert* const end = _list->VtxBuffer.end();
    return std::any_of(end - vertices, end, [&](const ImDrawVert& vertex) {
        return (Vector2{vertex.pos.x, vertex.pos.y} - pixel).length() < distance;
    });
}

Vector2 GizmoWindow::pixelAt(const Vector3& direction, Float pixels) const {
    return project(matrix.translation() + direction * (pixels / pixelsPerUnit()));
}

bool GizmoWindow::grab(const Vector2& position) {
    moveTo(position);
    frame();
    frame();
    press();
    return frame().isUsing;
}

Matrix4 GizmoWindow::drag(const Vector2& from, const Vector2& to, int frames) {
    EXPECT_TRUE(grab(from));
    Matrix4 out;
    for(int i = 1; i <= frames; ++i) {
        moveTo(Math::lerp(from, to, Float(i) / Float(frames)));
        out = frame().delta * out;
    }
    release();
    return frame().delta * out;
}

} // namespace GizmoTest
