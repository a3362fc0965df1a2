#include "Implementation/Axes.h"

#include <algorithm>
#include <cmath>

namespace ImGuizmo::Implementation {

using namespace Magnum;

namespace {

// A rest of a direction of length 1 that is shorter than this has no direction of its own.
constexpr Double LeastRest = 1.0e-4;
constexpr Axes WorldAxes{Vector3d{1.0, 0.0, 0.0}, Vector3d{0.0, 1.0, 0.0}, Vector3d{0.0, 0.0, 1.0}};

Vector3d without(const Vector3d& direction, const Vector3d& part) {
    return direction - part * Math::dot(direction, part);
}

Vector3d unitOrZero(const Vector3d& vector) {
    const Double length = vector.length();
    return length > 0.0 ? vector / length : Vector3d{};
}

} // namespace

Axes axesOf(const Matrix4d& matrix, MODE mode) {
    if(mode == WORLD) return WorldAxes;
    Axes out;
    int found[3], count = 0;
    for(int i = 0; i != 3; ++i) {
        Vector3d rest = unitOrZero(matrix[std::size_t(i)].xyz());
        for(int k = 0; k != count; ++k) rest = without(rest, out[std::size_t(found[k])]);
        if(rest.length() <= LeastRest) continue;
        out[std::size_t(i)] = rest.normalized();
        found[count++] = i;
    }
    if(count == 0) return WorldAxes;
    if(count == 1) {
        // Any direction across will do: the world's that is least in line.
        const Vector3d& only = out[std::size_t(found[0])];
        const auto crosswise = [&](const Vector3d& a, const Vector3d& b) {
            return std::abs(Math::dot(a, only)) < std::abs(Math::dot(b, only));
        };
        found[1] = (found[0] + 1) % 3;
        out[std::size_t(found[1])] =
            without(*std::min_element(WorldAxes.begin(), WorldAxes.end(), crosswise), only).normalized();
        count = 2;
    }
    if(count == 2) {
        const std::size_t missing = std::size_t(3 - found[0] - found[1]);
        out[missing] = Math::cross(out[(missing + 1) % 3], out[(missing + 2) % 3]);
    }
    return out;
}

}
