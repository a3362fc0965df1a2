#include "Implementation/Brush.h"

#include <algorithm>

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

constexpr float RimWidth = 1.0f;
const ImVec4 RimColour{0.0f, 0.0f, 0.0f, 0.4f};

ImU32 packed(const ImVec4& colour) { return ImGui::ColorConvertFloat4ToU32(colour); }

ImVec4 rimOf(const ImVec4& colour) { return withAlpha(RimColour, Double(colour.w)); }

// Positive where the points go round clockwise, with y down.
float signedArea(const ImVec2* points, int count) {
    float out = 0.0f;
    for(int i = 0; i != count; ++i) {
        const ImVec2 &a = points[i], &b = points[(i + 1) % count];
        out += a.x * b.y - b.x * a.y;
    }
    return out;
}

} // namespace

ImVec2 toScreen(const Vector2d& pixel) { return {float(pixel.x()), float(pixel.y())}; }

ImVec4 withAlpha(const ImVec4& colour, Double factor) {
    return {colour.x, colour.y, colour.z, colour.w * float(factor)};
}

Brush::Brush(ImDrawList& list, const Rect& rect): _list(list) {
    _list.PushClipRect(toScreen(rect.position), toScreen(rect.position + rect.size), true);
}

void Brush::line(const ImVec2& a, const ImVec2& b, const ImVec4& colour, float thickness) {
    const ImVec2 points[]{a, b};
    polyline(points, 2, colour, thickness, false);
}

void Brush::polyline(const ImVec2* points, int count, const ImVec4& colour, float thickness, bool isClosed) {
    plainPolyline(points, count, rimOf(colour), thickness + 2.0f * RimWidth, isClosed);
    plainPolyline(points, count, colour, thickness, isClosed);
}

void Brush::plainPolyline(const ImVec2* points, int count, const ImVec4& colour, float thickness, bool isClosed) {
    const ImDrawFlags flags = isClosed ? ImDrawFlags_Closed : ImDrawFlags_None;
#if IMGUI_VERSION_NUM >= 19280
    _list.AddPolyline(points, count, packed(colour), thickness, flags);
#else
    _list.AddPolyline(points, count, packed(colour), flags, thickness);
#endif
}

void Brush::disc(const ImVec2& centre, float radius, const ImVec4& colour) {
    _list.AddCircleFilled(centre, radius + RimWidth, packed(rimOf(colour)));
    _list.AddCircleFilled(centre, radius, packed(colour));
}

// The library smooths the outside of what goes round clockwise.
void Brush::polygon(ImVec2* points, int count, const ImVec4& colour) {
    if(signedArea(points, count) < 0.0f) std::reverse(points + 1, points + count);
    _list.AddConvexPolyFilled(points, count, packed(colour));
}

void Brush::rimmedPolygon(ImVec2* points, int count, const ImVec4& colour) {
    plainPolyline(points, count, rimOf(colour), 2.0f * RimWidth, true);
    polygon(points, count, colour);
}

}
