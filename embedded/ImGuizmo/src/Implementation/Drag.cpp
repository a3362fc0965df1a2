#include "Implementation/Drag.h"

#include <algorithm>
#include <cfloat>
#include <cmath>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Functions.h>

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

typedef Handle::Kind Kind;

// Of the angle between a ring's plane and the line of sight: the sine, below which the ring counts as edge-on.
constexpr Double EdgeOn = 0.15;
// A part of the length of an axis: closer to the centre, neither an angle nor a ratio means anything.
constexpr Double LeastArm = 1.0e-3;
constexpr Double LeastFactor = 0.001, FactorPerPixel = 0.01;

// An axis is followed in the plane through it that faces the eye most.
Vector3d normalThrough(const Vector3d& axis, const Vector3d& towardEye) {
    const Vector3d out = towardEye - axis * Math::dot(axis, towardEye);
    const Double length = out.length();
    return length > 0.0 ? out / length : Vector3d{};
}

Vector3d planeNormal(Handle handle, const Layout& layout, const Camera& camera) {
    const std::size_t axis = std::size_t(handle.axis);
    switch(handle.kind) {
    case Kind::MoveAxis:
    case Kind::ScaleAxis: return normalThrough(layout.axes[axis], camera.towardEye(layout.position));
    case Kind::MovePlane:
    case Kind::TurnAxis: return layout.axes[axis];
    default: return -camera.forward();
    }
}

// The direction in which the nearest point of a ring moves on the screen, as long as it moves for an angle of 1.
std::optional<Vector2d> wayOfEdge(const Drag& drag, const Layout& layout, const Camera& camera) {
    const Vector3d towardEye = camera.towardEye(drag.position);
    if(drag.handle.kind != Kind::TurnAxis || std::abs(Math::dot(drag.normal, towardEye)) >= EdgeOn) return {};
    const Vector3d way = Math::cross(drag.normal, normalThrough(drag.normal, towardEye));
    const std::optional<Vector2d> pixel = camera.project(drag.position + way * layout.length);
    if(!pixel || *pixel == layout.centre) return {};
    return (*pixel - layout.centre).normalized() * (RingRadius * layout.pixels);
}

bool isFarFromCentre(const Drag& drag, Double least) {
    const Vector3d arm = drag.grabbed - drag.position;
    if(drag.handle.isTurn()) return arm.length() > least;
    if(drag.handle.kind != Kind::ScaleAxis) return true;
    return std::abs(Math::dot(arm, drag.axes[std::size_t(drag.handle.axis)])) > least;
}

Double angleBetween(const Vector3d& from, const Vector3d& to, const Vector3d& axis) {
    return std::atan2(Math::dot(axis, Math::cross(from, to)), Math::dot(from, to));
}

// The angle that differs from another by whole turns and is nearest to the last one.
Double unwound(Double angle, Double last) {
    return last + std::remainder(angle - last, 2.0 * Math::Constants<Double>::pi());
}

Double rounded(Double value, float step) { return step > FLT_EPSILON ? std::round(value / step) * step : value; }

Motion pulled(const Drag& drag, const Motion& last, const Vector2d& mouse) {
    Motion out = last;
    if(drag.handle.kind == Kind::ScaleAll)
        out.factors = Vector3d{std::max(1.0 + FactorPerPixel * (mouse - drag.mouse).x(), LeastFactor)};
    else
        out.angle = Math::dot(mouse - drag.mouse, *drag.edgeOnWay) / drag.edgeOnWay->dot();
    return out;
}

} // namespace

std::optional<Drag> beginDrag(
    Handle handle, const Layout& layout, const Camera& camera, const Matrix4d& matrix, const Vector2d& mouse) {
    Drag out;
    out.handle = handle;
    out.position = layout.position;
    out.axes = layout.axes;
    out.sides = layout.sides;
    out.lengths = {matrix[0].xyz().length(), matrix[1].xyz().length(), matrix[2].xyz().length()};
    out.mouse = mouse;
    out.normal = planeNormal(handle, layout, camera);
    out.edgeOnWay = wayOfEdge(out, layout, camera);
    if(out.edgeOnWay || handle.kind == Kind::ScaleAll) return out;
    const std::optional<Vector3d> grabbed = camera.pointOnPlane(mouse, out.position, out.normal);
    if(!grabbed) return {};
    out.grabbed = *grabbed;
    return isFarFromCentre(out, LeastArm * layout.length) ? std::optional{out} : std::nullopt;
}

Motion follow(const Drag& drag, const Motion& last, const Camera& camera, const Vector2d& mouse) {
    if(drag.edgeOnWay || drag.handle.kind == Kind::ScaleAll) return pulled(drag, last, mouse);
    const std::optional<Vector3d> hit = camera.pointOnPlane(mouse, drag.position, drag.normal);
    if(!hit) return last;
    Motion out = last;
    const Vector3d &axis = drag.axes[std::size_t(drag.handle.axis)], way = *hit - drag.grabbed;
    const Vector3d from = drag.grabbed - drag.position, to = *hit - drag.position;
    if(drag.handle.isTurn())
        out.angle = unwound(angleBetween(from, to, drag.normal), last.angle);
    else if(drag.handle.kind == Kind::ScaleAxis)
        out.factors[std::size_t(drag.handle.axis)] = std::max(Math::dot(to, axis) / Math::dot(from, axis), LeastFactor);
    else if(drag.handle.kind == Kind::MoveAxis)
        out.displacement = axis * Math::dot(way, axis);
    else
        out.displacement = way;
    return out;
}

Motion snapped(const Drag& drag, const Motion& motion, const float* steps) {
    if(!steps) return motion;
    Motion out = motion;
    if(drag.handle.isTurn()) {
        const Math::Rad<Double> angle{motion.angle};
        out.angle = Double(Math::Rad<Double>{Math::Deg<Double>{rounded(Double(Math::Deg<Double>{angle}), steps[0])}});
    }
    if(drag.handle.isMove()) {
        out.displacement = Vector3d{0.0};
        for(std::size_t i = 0; i != 3; ++i)
            out.displacement += drag.axes[i] * rounded(Math::dot(motion.displacement, drag.axes[i]), steps[i]);
    }
    if(drag.handle.isScale())
        for(std::size_t i = 0; i != 3; ++i)
            if(motion.factors[i] != 1.0) out.factors[i] = std::max(rounded(motion.factors[i], steps[0]), LeastFactor);
    return out;
}

Edit edited(const Drag& drag, const Motion& before, const Motion& now, const Matrix4d& matrix) {
    const Vector3d position = matrix.translation();
    if(drag.handle.isTurn()) {
        const Matrix4d turn = Matrix4d::rotation(Math::Rad<Double>{now.angle - before.angle}, drag.normal);
        const Matrix4d delta = Matrix4d::translation(position) * turn * Matrix4d::translation(-position);
        return {delta * matrix, delta};
    }
    if(drag.handle.isMove()) {
        const Matrix4d delta = Matrix4d::translation(drag.position + now.displacement - position);
        return {delta * matrix, delta};
    }
    Vector3d ratios{1.0};
    for(std::size_t i = 0; i != 3; ++i) {
        const bool isDragged = drag.handle.kind == Kind::ScaleAll || drag.handle.axis == int(i);
        const Double length = matrix[i].xyz().length();
        if(isDragged && length > 0.0 && drag.lengths[i] > 0.0) ratios[i] = drag.lengths[i] * now.factors[i] / length;
    }
    return {matrix * Matrix4d::scaling(ratios), Matrix4d::scaling(ratios)};
}

}
