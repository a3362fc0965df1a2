#include "Panels/Outliner/OutlinerIcons.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include <imgui.h>

namespace VantrelEngine {

namespace {

// Coordinates from -1 to 1, y down.
struct Pen {
    ImDrawList& list;
    ImVec2 middle;
    float half;
    unsigned color;
    float width;

    ImVec2 at(float x, float y) const { return {middle.x + x * half, middle.y + y * half}; }
    void line(float x0, float y0, float x1, float y1) const { list.AddLine(at(x0, y0), at(x1, y1), color, width); }
    void circle(float x, float y, float radius) const { list.AddCircle(at(x, y), radius * half, color, 0, width); }
    void disc(float x, float y, float radius) const { list.AddCircleFilled(at(x, y), radius * half, color); }
    void box(float x0, float y0, float x1, float y1) const {
        list.AddRect(at(x0, y0), at(x1, y1), color, 0.15f * half, 0, width);
    }
    void filledBox(float x0, float y0, float x1, float y1) const {
        list.AddRectFilled(at(x0, y0), at(x1, y1), color, 0.15f * half);
    }
    void path(std::initializer_list<ImVec2> points, bool isClosed) const {
        for(const ImVec2& point: points) list.PathLineTo(at(point.x, point.y));
        list.PathStroke(color, isClosed ? ImDrawFlags_Closed : ImDrawFlags_None, width);
    }
};

void drawCube(const Pen& pen) {
    pen.path({{0.0f, -0.9f}, {0.8f, -0.45f}, {0.8f, 0.45f}, {0.0f, 0.9f}, {-0.8f, 0.45f}, {-0.8f, -0.45f}}, true);
    pen.path({{-0.8f, -0.45f}, {0.0f, 0.0f}, {0.8f, -0.45f}}, false);
    pen.line(0.0f, 0.0f, 0.0f, 0.9f);
}

void drawRays(const Pen& pen) {
    pen.disc(0.0f, 0.0f, 0.38f);
    for(int i = 0; i != 8; ++i) {
        const float angle = 0.785398f * float(i), x = std::cos(angle), y = std::sin(angle);
        pen.line(0.6f * x, 0.6f * y, 0.95f * x, 0.95f * y);
    }
}

void drawEye(const Pen& pen) {
    pen.list.PathLineTo(pen.at(-0.95f, 0.0f));
    pen.list.PathBezierQuadraticCurveTo(pen.at(0.0f, -1.2f), pen.at(0.95f, 0.0f));
    pen.list.PathBezierQuadraticCurveTo(pen.at(0.0f, 1.2f), pen.at(-0.95f, 0.0f));
    pen.list.PathStroke(pen.color, ImDrawFlags_None, pen.width);
    pen.disc(0.0f, 0.0f, 0.3f);
}

void drawClosedEye(const Pen& pen) {
    pen.list.PathLineTo(pen.at(-0.95f, -0.1f));
    pen.list.PathBezierQuadraticCurveTo(pen.at(0.0f, 0.8f), pen.at(0.95f, -0.1f));
    pen.list.PathStroke(pen.color, ImDrawFlags_None, pen.width);
    pen.line(-0.55f, 0.25f, -0.75f, 0.6f);
    pen.line(0.0f, 0.37f, 0.0f, 0.78f);
    pen.line(0.55f, 0.25f, 0.75f, 0.6f);
}

void drawLock(const Pen& pen, bool isOpen) {
    pen.filledBox(-0.65f, -0.05f, 0.65f, 0.85f);
    const float shift = isOpen ? 0.6f : 0.0f;
    pen.list.PathLineTo(pen.at(-0.4f + shift, -0.05f));
    pen.list.PathArcTo(pen.at(shift, -0.45f), 0.4f * pen.half, 3.14159f, isOpen ? 5.6f : 6.28318f, 12);
    if(!isOpen) pen.list.PathLineTo(pen.at(0.4f, -0.05f));
    pen.list.PathStroke(pen.color, ImDrawFlags_None, pen.width);
}

void drawCamera(const Pen& pen) {
    pen.box(-0.95f, -0.5f, 0.3f, 0.5f);
    pen.path({{0.35f, -0.1f}, {0.95f, -0.5f}, {0.95f, 0.5f}, {0.35f, 0.1f}}, true);
}

void drawGroup(const Pen& pen) {
    pen.path({{-0.9f, 0.7f}, {-0.9f, -0.65f}, {-0.25f, -0.65f}, {0.0f, -0.35f}, {0.9f, -0.35f}, {0.9f, 0.7f}}, true);
}

} // namespace

void drawIcon(ImDrawList& list, OutlinerIcon icon, const ImVec2& middle, float size, unsigned color) {
    const Pen pen{list, middle, size * 0.5f, color, std::max(1.0f, size * 0.09f)};
    switch(icon) {
    case OutlinerIcon::Empty: pen.line(-0.8f, 0.0f, 0.8f, 0.0f); return pen.line(0.0f, -0.8f, 0.0f, 0.8f);
    case OutlinerIcon::Group: return drawGroup(pen);
    case OutlinerIcon::Mesh: return drawCube(pen);
    case OutlinerIcon::Light: return drawRays(pen);
    case OutlinerIcon::View: return drawCamera(pen);
    case OutlinerIcon::Text: pen.line(-0.7f, -0.7f, 0.7f, -0.7f); return pen.line(0.0f, -0.7f, 0.0f, 0.8f);
    case OutlinerIcon::Body: return pen.circle(0.0f, 0.0f, 0.8f);
    case OutlinerIcon::Other: return pen.box(-0.7f, -0.7f, 0.7f, 0.7f);
    case OutlinerIcon::Eye: return drawEye(pen);
    case OutlinerIcon::ClosedEye: return drawClosedEye(pen);
    case OutlinerIcon::Lock: return drawLock(pen, false);
    case OutlinerIcon::OpenLock: return drawLock(pen, true);
    }
}

} // namespace VantrelEngine
