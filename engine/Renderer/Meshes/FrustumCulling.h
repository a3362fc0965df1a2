#pragma once

#include <cstddef>
#include <vector>

#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector4.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// The planes of what a matrix to clip space shows, each with its normal inwards and of length 1. A far plane at infinity
// is none: it has everything on its inner side.
struct FrustumPlanes {
    explicit FrustumPlanes(const Magnum::Matrix4& matrix);

    Magnum::Vector4 planes[6];
};

// Spheres by number, one array a coordinate. What is not there has a negative radius.
struct Spheres {
    std::vector<Magnum::Float> x, y, z, radius;

    std::size_t size() const { return radius.size(); }
    void resize(std::size_t size);
    void set(std::size_t i, const Magnum::Vector3& center, Magnum::Float r) {
        x[i] = center.x();
        y[i] = center.y();
        z[i] = center.z();
        radius[i] = r;
    }
    void add(const Magnum::Vector3& center, Magnum::Float r) {
        resize(size() + 1);
        set(size() - 1, center, r);
    }
    void clear() { resize(0); }
    Magnum::Vector3 center(std::size_t i) const { return {x[i], y[i], z[i]}; }
};

// The numbers, ascending, of the spheres that reach into a frustum, or of all; in the place of what the list held. What
// cannot be told, for a number that is none, is inside. Linear, without a branch a sphere.
void findInside(const FrustumPlanes& frustum, const Spheres& spheres, std::vector<Id>& inside);
// Whether there is any.
bool isAnyInside(const FrustumPlanes& frustum, const Spheres& spheres);
void findAll(const Spheres& spheres, std::vector<Id>& all);

} // namespace VantrelEngine
