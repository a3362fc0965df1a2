#include "Implementation/Camera.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Vector4.h>

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

constexpr Double LeastW = 1.0e-9, LeastCosine = 1.0e-4, FarthestHit = 100.0;
// Squares of pixels are floats where they are drawn.
constexpr Double LeastPicture = 1.0, FarthestPixel = 1.0e6;

bool isFinite(const Matrix4d& matrix) {
    return std::all_of(matrix.data(), matrix.data() + 16, [](Double number) { return std::isfinite(number); });
}

Matrix4d matrixFrom(const float* data) {
    Matrix4d out;
    std::copy_n(data, 16, out.data());
    return out;
}

bool isPicture(const Rect& rect) {
    const Double farthest = std::max(Math::abs(rect.position).max(), rect.size.max());
    return std::isfinite(rect.position.sum() + rect.size.sum()) && rect.size.min() >= LeastPicture &&
        farthest < FarthestPixel;
}

} // namespace

bool Rect::contains(const Vector2d& pixel) const {
    const Vector2d inside = pixel - position;
    return inside.x() >= 0.0 && inside.y() >= 0.0 && inside.x() < size.x() && inside.y() < size.y();
}

std::optional<Camera> Camera::create(const float* view, const float* projection, const Rect& rect) {
    const Matrix4d v = matrixFrom(view), p = matrixFrom(projection);
    if(!isPicture(rect) || !isFinite(v) || !isFinite(p) || v.determinant() == 0.0 || p[0][0] == 0.0 || p[1][1] == 0.0)
        return {};
    const Camera out{v, p, rect};
    return isFinite(out._world) ? std::optional{out} : std::nullopt;
}

Camera::Camera(const Matrix4d& view, const Matrix4d& projection, const Rect& rect):
    _projection{projection}, _toClip{projection * view}, _world{view.inverted()}, _rect{rect},
    _isPerspective{projection[2][3] != 0.0},
    _forward{_world.transformVector(Vector3d::zAxis(projection[2][3] > 0.0 ? 1.0 : -1.0)).normalized()} {}

Double Camera::clipW(const Vector3d& point) const { return (_toClip * Math::Vector4<Double>{point, 1.0}).w(); }

std::optional<Vector2d> Camera::project(const Vector3d& point) const {
    const Math::Vector4<Double> clip = _toClip * Math::Vector4<Double>{point, 1.0};
    if(!(clip.w() > LeastW)) return {};
    const Vector2d device{clip.x() / clip.w(), -clip.y() / clip.w()};
    const Vector2d pixel = _rect.position + (device * 0.5 + Vector2d{0.5}) * _rect.size;
    return Math::abs(pixel).max() < FarthestPixel ? std::optional{pixel} : std::nullopt;
}

// From the projection's elements instead of its inverse, which is useless for one that reaches to infinity.
Camera::Ray Camera::ray(const Vector2d& pixel) const {
    const Vector2d part = (pixel - _rect.position) / _rect.size;
    const Vector2d device{part.x() * 2.0 - 1.0, 1.0 - part.y() * 2.0};
    if(!_isPerspective) {
        const Vector2d across = (device - _projection[3].xy()) / Vector2d{_projection[0][0], _projection[1][1]};
        return {_world.transformPoint({across, 0.0}), _forward};
    }
    const Double z = _projection[2][3] > 0.0 ? 1.0 : -1.0, w = std::abs(_projection[2][3]);
    const Vector2d across = (device * w - _projection[2].xy() * z) / Vector2d{_projection[0][0], _projection[1][1]};
    return {_world.translation(), _world.transformVector({across, z}).normalized()};
}

std::optional<Vector3d> Camera::pointOnPlane(
    const Vector2d& pixel, const Vector3d& planePoint, const Vector3d& normal) const {
    const auto [origin, direction] = ray(pixel);
    const Double cosine = Math::dot(normal, direction);
    if(!(std::abs(cosine) > LeastCosine)) return {};
    const Double distance = Math::dot(planePoint - origin, normal) / cosine;
    if(_isPerspective && !(distance > 0.0 && distance < FarthestHit * (planePoint - origin).length())) return {};
    return origin + direction * distance;
}

Vector3d Camera::towardEye(const Vector3d& point) const {
    return _isPerspective ? (_world.translation() - point).normalized() : -_forward;
}

Double Camera::unitsPerPixel(const Vector3d& point) const {
    return _world[0].xyz().length() * clipW(point) / (std::abs(_projection[0][0]) * _rect.size.x() * 0.5);
}

Double Camera::depth(const Vector3d& point) const {
    return _isPerspective ? Math::dot(point - _world.translation(), _forward) : std::numeric_limits<Double>::infinity();
}

}
