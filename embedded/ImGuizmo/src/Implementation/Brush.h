#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>
#include <imgui.h>

#include "Implementation/Camera.h"

namespace ImGuizmo::Implementation {

ImVec2 toScreen(const Magnum::Vector2d& pixel);
ImVec4 withAlpha(const ImVec4& colour, Magnum::Double factor);

// Smooth shapes, cut off at a rectangle and at the list's own one while the brush lives.
class Brush {
public:
    Brush(ImDrawList& list, const Rect& rect);
    ~Brush() { _list.PopClipRect(); }
    Brush(const Brush&) = delete;
    Brush& operator=(const Brush&) = delete;

    ImDrawList& list() { return _list; }

    // With a dark rim, so that it is seen before a picture of its own colour.
    void line(const ImVec2& a, const ImVec2& b, const ImVec4& colour, float thickness);
    void polyline(const ImVec2* points, int count, const ImVec4& colour, float thickness, bool isClosed);
    void disc(const ImVec2& centre, float radius, const ImVec4& colour);
    // The same without a rim.
    void plainPolyline(const ImVec2* points, int count, const ImVec4& colour, float thickness, bool isClosed);
    // Convex, or seen whole from its first point. Either way round; the points may be turned round.
    void polygon(ImVec2* points, int count, const ImVec4& colour);
    void rimmedPolygon(ImVec2* points, int count, const ImVec4& colour);

private:
    ImDrawList& _list;
};

}
