#include "Implementation/Painter.h"

#include <algorithm>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Functions.h>

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

typedef Handle::Kind Kind;

// Of what is not dragged while something is, and of a ring's far half
constexpr Double Dimmed = 0.3, FarHalf = 0.2;
constexpr float HoverWidening = 1.0f, ArrowLength = 2.6f, PlaneEdgeThickness = 1.5f;
// Of the edge of a plane, whose face is seen through
constexpr float PlaneEdgeAlpha = 0.9f;

// By a quarter
Vector2d turned(const Vector2d& way) { return {-way.y(), way.x()}; }

class HandlePainter {
public:
    HandlePainter(Brush& brush, const Camera& camera, const Layout& layout, const Look& look, const Style& style):
        _brush(brush), _camera(camera), _layout(layout), _look(look), _style(style) {}

    void paint() {
        const std::array<std::size_t, 3> order = farToNear();
        for(std::size_t axis: order) ring(axis);
        outerRing();
        for(std::size_t axis: order) plane(axis);
        for(std::size_t axis: order) arrow(axis);
        for(std::size_t axis: order) boxOnAxis(axis);
        centre();
    }

private:
    std::array<std::size_t, 3> farToNear() const {
        const Vector3d towardEye = _camera.towardEye(_layout.position);
        const auto nearness = [&](std::size_t axis) {
            return Math::dot(_layout.axes[axis], towardEye) * _layout.sides[axis];
        };
        std::array<std::size_t, 3> out{0, 1, 2};
        std::sort(out.begin(), out.end(), [&](std::size_t a, std::size_t b) { return nearness(a) < nearness(b); });
        return out;
    }

    bool isShown(Handle handle, Double alpha) const {
        return hasHandle(_look.operation, handle) && (alpha > 0.0 || isDragged(handle));
    }
    bool isDragged(Handle handle) const { return _look.drag && _look.drag->handle == handle; }
    bool isLit(Handle handle) const { return _look.drag ? isDragged(handle) : handle == _look.hovered; }
    float thickness(Handle handle, float normal) const { return isLit(handle) ? normal + HoverWidening : normal; }

    ImVec4 colour(Handle handle, int normal, Double alpha) const {
        if(!_look.isEnabled) return withAlpha(_style.Colors[INACTIVE], alpha);
        if(isLit(handle)) return _style.Colors[SELECTION];
        return withAlpha(_style.Colors[normal], alpha * (_look.drag ? Dimmed : 1.0));
    }

    void plane(std::size_t axis) {
        const Handle handle{Kind::MovePlane, int(axis)};
        const Layout::Quad& quad = _layout.quads[axis];
        if(!isShown(handle, quad.alpha)) return;
        ImVec2 corners[4];
        std::transform(quad.corners.begin(), quad.corners.end(), corners, toScreen);
        const ImVec4 edge = colour(handle, DIRECTION_X + int(axis), quad.alpha * Double(PlaneEdgeAlpha));
        ImVec4 face = colour(handle, PLANE_X + int(axis), quad.alpha);
        face.w = std::min(face.w, _style.Colors[PLANE_X + int(axis)].w * (isLit(handle) ? 1.5f : 1.0f));
        _brush.polygon(corners, 4, face);
        _brush.plainPolyline(corners, 4, edge, thickness(handle, PlaneEdgeThickness), true);
    }

    void arrow(std::size_t axis) {
        const Handle handle{Kind::MoveAxis, int(axis)};
        const Layout::Line& line = _layout.lines[axis];
        if(!isShown(handle, line.alpha)) return;
        const Vector2d way = line.end - _layout.centre;
        const Vector2d along = way.isZero() ? Vector2d{} : way.normalized();
        const Double half = Double(_style.TranslationLineArrowSize);
        const Double length = std::min(half * Double(ArrowLength), way.length());
        const Vector2d base = line.end - along * length, across = turned(along) * half;
        const ImVec4 paint = colour(handle, DIRECTION_X + int(axis), line.alpha);
        _brush.line(toScreen(line.start), toScreen(base), paint, thickness(handle, _style.TranslationLineThickness));
        ImVec2 head[]{toScreen(line.end), toScreen(base + across), toScreen(base - across)};
        _brush.rimmedPolygon(head, 3, paint);
    }

    // While it is dragged, the box is where the mouse has taken it.
    Vector2d boxPosition(std::size_t axis) const {
        const Vector3d way = _layout.axes[axis] * (_layout.sides[axis] * _layout.length * _look.motion.factors[axis]);
        return _camera.project(_layout.position + way).value_or(_layout.lines[axis].end);
    }

    void boxOnAxis(std::size_t axis) {
        const Handle handle{Kind::ScaleAxis, int(axis)};
        const Layout::Line& line = _layout.lines[axis];
        if(!isShown(handle, line.alpha)) return;
        const ImVec4 paint = colour(handle, DIRECTION_X + int(axis), line.alpha);
        const Vector2d at = boxPosition(axis);
        _brush.line(toScreen(line.start), toScreen(at), paint, thickness(handle, _style.ScaleLineThickness));
        box(at, line.end - _layout.centre, Double(_style.ScaleLineCircleSize), paint);
    }

    void box(const Vector2d& at, const Vector2d& way, Double half, const ImVec4& paint) {
        const Vector2d along = (way.isZero() ? Vector2d{1.0, 0.0} : way.normalized()) * half;
        const Vector2d across = turned(along);
        ImVec2 corners[]{toScreen(at + along + across), toScreen(at + along - across), toScreen(at - along - across),
            toScreen(at - along + across)};
        _brush.rimmedPolygon(corners, 4, paint);
    }

    void centre() {
        const Handle move{Kind::MoveScreen, 0}, scale{Kind::ScaleAll, 0};
        const ImVec2 at = toScreen(_layout.centre);
        if(isShown(move, 1.0)) _brush.disc(at, _style.CenterCircleSize, colour(move, TEXT, 1.0));
        if(isShown(scale, 1.0))
            box(_layout.centre, {1.0, 0.0}, Double(_style.CenterCircleSize), colour(scale, TEXT, 1.0));
    }

    void ring(std::size_t axis) {
        const Handle handle{Kind::TurnAxis, int(axis)};
        if(!isShown(handle, 1.0)) return;
        const Layout::Ring& ring = _layout.rings[axis];
        const ImVec4 paint = colour(handle, DIRECTION_X + int(axis), 1.0);
        ImVec2 points[Layout::RingPoints];
        std::transform(ring.points.begin(), ring.points.end(), points, toScreen);
        if(isDragged(handle)) {
            _brush.polyline(points, Layout::RingPoints, paint, thickness(handle, _style.RotationLineThickness), true);
            return;
        }
        _brush.plainPolyline(points, Layout::RingPoints, withAlpha(paint, FarHalf), 1.0f, true);
        frontHalf(ring, points, paint, thickness(handle, _style.RotationLineThickness));
    }

    // The points that are turned to the eye follow each other, from the first one whose predecessor is not.
    void frontHalf(const Layout::Ring& ring, const ImVec2* points, const ImVec4& paint, float thickness) {
        enum : std::size_t { Count = Layout::RingPoints };
        std::size_t first = 0;
        while(first != Count && !(ring.isFront[first] && !ring.isFront[(first + Count - 1) % Count])) ++first;
        if(first == Count) {
            if(ring.isFront[0]) _brush.polyline(points, Count, paint, thickness, true);
            return;
        }
        ImVec2 front[Count];
        int count = 0;
        for(std::size_t i = first; ring.isFront[i % Count]; ++i) front[count++] = points[i % Count];
        _brush.polyline(front, count, paint, thickness, false);
    }

    void outerRing() {
        const Handle handle{Kind::TurnScreen, 0};
        if(!isShown(handle, 1.0)) return;
        const ImVec4 paint = colour(handle, TEXT, 0.7);
        const Double radius = OuterRingRadius * _layout.pixels;
        ImVec2 points[Layout::RingPoints];
        for(std::size_t i = 0; i != Layout::RingPoints; ++i) {
            const Math::Rad<Double> angle{2.0 * Math::Constants<Double>::pi() * Double(i) / Layout::RingPoints};
            points[i] = toScreen(_layout.centre + Vector2d{Math::cos(angle), Math::sin(angle)} * radius);
        }
        _brush.polyline(points, Layout::RingPoints, paint, thickness(handle, _style.RotationOuterLineThickness), true);
    }

    Brush& _brush;
    const Camera& _camera;
    const Layout& _layout;
    const Look& _look;
    const Style& _style;
};

} // namespace

void paintHandles(Brush& brush, const Camera& camera, const Layout& layout, const Look& look, const Style& style) {
    HandlePainter{brush, camera, layout, look, style}.paint();
}

}
