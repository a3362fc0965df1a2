#include "Implementation/Layout.h"

#include <algorithm>
#include <cmath>

#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Functions.h>

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

constexpr Double LeastPixels = 64.0, LeastPartOfPicture = 0.3;
// With the outer ring it still lies before the eye, however wide the camera's angle is.
constexpr Double LargestPartOfDepth = 0.6;
// A part of the length, and the sine of an angle, where something is seen end-on or edge-on
constexpr Double FadeFrom = 0.25, FadeTo = 0.08;
// A ring's point this far behind the centre still counts as turned to the eye.
constexpr Double FrontTolerance = 0.05;
// Sides whose lengths differ by less are the same.
constexpr Double SideTolerance = 1.0e-6;

Double faded(Double visiblePart) { return Math::clamp((visiblePart - FadeTo) / (FadeFrom - FadeTo), 0.0, 1.0); }

class Builder {
public:
    Builder(const Camera& camera, Layout& layout): _camera(camera), _layout(layout) {}

    // Pixel of a point given in lengths of the axes; all of them are before the camera.
    Vector2d pixel(const Vector3d& offset) const {
        return _camera.project(_layout.position + offset * _layout.length).value_or(_layout.centre);
    }

    Layout::Line line(std::size_t axis) const {
        const Vector2d end = pixel(_layout.axes[axis] * _layout.sides[axis]);
        const Vector2d way = end - _layout.centre;
        const Double length = way.length();
        const Vector2d start = length > CentreSize ? _layout.centre + way * (CentreSize / length) : _layout.centre;
        return {start, end, faded(length / _layout.pixels)};
    }

    Layout::Quad quad(std::size_t axis) const {
        const std::size_t u = (axis + 1) % 3, v = (axis + 2) % 3;
        const auto corner = [&](Double a, Double b) {
            return pixel(_layout.axes[u] * (_layout.sides[u] * a) + _layout.axes[v] * (_layout.sides[v] * b));
        };
        const Double facing = std::abs(Math::dot(_layout.axes[axis], _camera.towardEye(_layout.position)));
        return {{corner(PlaneNear, PlaneNear), corner(PlaneFar, PlaneNear), corner(PlaneFar, PlaneFar),
                    corner(PlaneNear, PlaneFar)},
            faded(facing)};
    }

    Layout::Ring ring(std::size_t axis) const {
        const Vector3d u = _layout.axes[(axis + 1) % 3], v = _layout.axes[(axis + 2) % 3];
        const Vector3d towardEye = _camera.towardEye(_layout.position);
        Layout::Ring out;
        for(std::size_t i = 0; i != Layout::RingPoints; ++i) {
            const Double angle = 2.0 * Math::Constants<Double>::pi() * Double(i) / Layout::RingPoints;
            const Vector3d direction = u * std::cos(angle) + v * std::sin(angle);
            out.points[i] = pixel(direction * RingRadius);
            out.isFront[i] = Math::dot(direction, towardEye) > -FrontTolerance;
        }
        return out;
    }

private:
    const Camera& _camera;
    const Layout& _layout;
};

// In the world
Double axisLength(const Camera& camera, const Vector3d& position, Double pixels) {
    return std::min(pixels * camera.unitsPerPixel(position), LargestPartOfDepth * camera.depth(position));
}

bool isNear(const Rect& rect, const Vector2d& pixel, Double distance) {
    return Rect{rect.position - Vector2d{distance}, rect.size + Vector2d{2.0 * distance}}.contains(pixel);
}

} // namespace

Double axisPixels(const Rect& rect, Double clipSpaceSize) {
    const Double least = std::min(LeastPixels, LeastPartOfPicture * rect.size.min());
    return std::max(clipSpaceSize * 0.5 * rect.size.max(), least);
}

Vector3d longerSides(const Camera& camera, const Vector3d& position, const Axes& axes, Double pixels) {
    Vector3d out{1.0};
    const std::optional<Vector2d> centre = camera.project(position);
    if(!centre) return out;
    const Double length = axisLength(camera, position, pixels);
    for(std::size_t i = 0; i != 3; ++i) {
        const std::optional<Vector2d> plus = camera.project(position + axes[i] * length);
        const std::optional<Vector2d> minus = camera.project(position - axes[i] * length);
        if(!plus || !minus) continue;
        if((*minus - *centre).length() > (*plus - *centre).length() * (1.0 + SideTolerance)) out[i] = -1.0;
    }
    return out;
}

std::optional<Layout> layoutOf(const Camera& camera, const Vector3d& position, const Axes& axes, const Vector3d& sides,
    Double pixels, bool hasRings) {
    const std::optional<Vector2d> centre = camera.project(position);
    if(!centre || !isNear(camera.rect(), *centre, 2.0 * pixels)) return {};
    Layout out{};
    out.position = position;
    out.axes = axes;
    out.sides = sides;
    out.length = axisLength(camera, position, pixels);
    out.pixels = out.length / camera.unitsPerPixel(position);
    out.centre = *centre;
    const Builder build{camera, out};
    for(std::size_t axis = 0; axis != 3; ++axis) {
        out.lines[axis] = build.line(axis);
        out.quads[axis] = build.quad(axis);
        if(hasRings) out.rings[axis] = build.ring(axis);
    }
    return out;
}

}
