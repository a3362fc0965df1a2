#include "Implementation/Picking.h"

#include <algorithm>
#include <cmath>

#include <Magnum/Math/Functions.h>

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

constexpr Double AxisTolerance = 12.0, RingTolerance = 8.0, DistanceInsideOfPlane = 6.0;
constexpr Double LeastAlpha = 0.5;

// The best of what was offered.
struct Choice {
    Handle handle;
    Double distance = AxisTolerance;

    void offer(OPERATION operation, Handle other, Double away, Double tolerance) {
        if(away > tolerance || away > distance || !hasHandle(operation, other)) return;
        handle = other;
        distance = away;
    }
};

Double distanceToRing(const Layout::Ring& ring, const Vector2d& pixel) {
    Double out = 2.0 * RingTolerance;
    for(std::size_t i = 0; i != Layout::RingPoints; ++i) {
        const std::size_t next = (i + 1) % Layout::RingPoints;
        if(ring.isFront[i] && ring.isFront[next])
            out = std::min(out, distanceToLine(pixel, ring.points[i], ring.points[next]));
    }
    return out;
}

} // namespace

Double distanceToLine(const Vector2d& point, const Vector2d& start, const Vector2d& end) {
    const Vector2d way = end - start;
    const Double square = way.dot();
    const Double part = square > 0.0 ? Math::clamp(Math::dot(point - start, way) / square, 0.0, 1.0) : 0.0;
    return (point - start - way * part).length();
}

bool isInside(const std::array<Vector2d, 4>& corners, const Vector2d& point) {
    int left = 0, right = 0;
    for(std::size_t i = 0; i != 4; ++i) {
        const Vector2d edge = corners[(i + 1) % 4] - corners[i], way = point - corners[i];
        const Double side = edge.x() * way.y() - edge.y() * way.x();
        left += side > 0.0;
        right += side < 0.0;
    }
    return !left || !right;
}

Handle handleAt(const Layout& layout, OPERATION operation, const Vector2d& pixel) {
    typedef Handle::Kind Kind;
    Choice choice;
    const Vector2d away = pixel - layout.centre;
    if(std::max(std::abs(away.x()), std::abs(away.y())) <= CentreSize) {
        choice.offer(operation, {Kind::ScaleAll, 0}, 0.0, 0.0);
        choice.offer(operation, {Kind::MoveScreen, 0}, 0.0, 0.0);
        if(choice.handle) return choice.handle;
    }
    for(std::size_t i = 0; i != 3; ++i) {
        const int axis = int(i);
        if(layout.lines[i].alpha >= LeastAlpha) {
            const Double distance = distanceToLine(pixel, layout.lines[i].start, layout.lines[i].end);
            choice.offer(operation, {Kind::ScaleAxis, axis}, distance, AxisTolerance);
            choice.offer(operation, {Kind::MoveAxis, axis}, distance, AxisTolerance);
        }
        if(layout.quads[i].alpha >= LeastAlpha && isInside(layout.quads[i].corners, pixel))
            choice.offer(operation, {Kind::MovePlane, axis}, DistanceInsideOfPlane, AxisTolerance);
        if(operation & ROTATE)
            choice.offer(operation, {Kind::TurnAxis, axis}, distanceToRing(layout.rings[i], pixel), RingTolerance);
    }
    choice.offer(
        operation, {Kind::TurnScreen, 0}, std::abs(away.length() - OuterRingRadius * layout.pixels), RingTolerance);
    return choice.handle;
}

}
