#include "Renderer/Meshes/FrustumCulling.h"

#include <algorithm>
#include <limits>

namespace VantrelEngine {

using namespace Magnum;

namespace {

Vector4 normalized(const Vector4& plane) {
    const Float length = plane.xyz().length();
    // Where a plane has no direction, everything is on its inner side.
    return length > 0.0f ? plane / length : Vector4{0.0f, 0.0f, 0.0f, std::numeric_limits<Float>::infinity()};
}

// So many at a time that what is noted of them stays near.
constexpr std::size_t BlockSize = 512;

// Whether spheres are outside: bits that are set, into the noted ones.
void note(
    const FrustumPlanes& frustum, const Spheres& spheres, std::size_t first, std::size_t count, unsigned* outside) {
    const Float *const x = spheres.x.data() + first, *const y = spheres.y.data() + first,
                       *const z = spheres.z.data() + first, *const radius = spheres.radius.data() + first;
    for(std::size_t i = 0; i != count; ++i) outside[i] = radius[i] < 0.0f;
    for(const Vector4& plane: frustum.planes) {
        const Float a = plane.x(), b = plane.y(), c = plane.z(), d = plane.w();
        for(std::size_t i = 0; i != count; ++i) outside[i] |= unsigned(a * x[i] + b * y[i] + c * z[i] + d < -radius[i]);
    }
}

} // namespace

FrustumPlanes::FrustumPlanes(const Matrix4& matrix) {
    for(std::size_t axis = 0; axis != 3; ++axis) {
        planes[2 * axis] = normalized(matrix.row(3) + matrix.row(axis));
        planes[2 * axis + 1] = normalized(matrix.row(3) - matrix.row(axis));
    }
}

void Spheres::resize(std::size_t size) {
    for(std::vector<Float>* const values: {&x, &y, &z}) values->resize(size);
    radius.resize(size, -1.0f);
}

void findInside(const FrustumPlanes& frustum, const Spheres& spheres, std::vector<Id>& inside) {
    const std::size_t size = spheres.size();
    unsigned outside[BlockSize];
    inside.resize(size);
    Id* end = inside.data();
    for(std::size_t first = 0; first != size;) {
        const std::size_t count = std::min(size - first, BlockSize);
        note(frustum, spheres, first, count, outside);
        for(std::size_t i = 0; i != count; ++i) {
            *end = Id(first + i);
            end += 1 - outside[i];
        }
        first += count;
    }
    inside.resize(std::size_t(end - inside.data()));
}

bool isAnyInside(const FrustumPlanes& frustum, const Spheres& spheres) {
    unsigned outside[BlockSize];
    for(std::size_t first = 0; first < spheres.size(); first += BlockSize) {
        const std::size_t count = std::min(spheres.size() - first, BlockSize);
        note(frustum, spheres, first, count, outside);
        if(std::find(outside, outside + count, 0u) != outside + count) return true;
    }
    return false;
}

void findAll(const Spheres& spheres, std::vector<Id>& all) {
    all.resize(spheres.size());
    Id* end = all.data();
    for(std::size_t i = 0; i != spheres.size(); ++i) {
        *end = Id(i);
        end += spheres.radius[i] < 0.0f ? 0 : 1;
    }
    all.resize(std::size_t(end - all.data()));
}

} // namespace VantrelEngine
