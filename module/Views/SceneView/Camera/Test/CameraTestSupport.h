#pragma once

#include <algorithm>

#include <gtest/gtest.h>

#include <Magnum/Magnum.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Vector3.h>

namespace VantrelTest {

inline void expectNear(const Magnum::Vector3& actual, const Magnum::Vector3& expected, float tolerance = 1.0e-5f) {
    for(std::size_t i = 0; i != 3; ++i) EXPECT_NEAR(actual[i], expected[i], tolerance) << "component " << i;
}

// The math library compares with a tolerance.
inline bool isIdentical(const Magnum::Vector3& a, const Magnum::Vector3& b) {
    return std::equal(a.data(), a.data() + 3, b.data());
}
inline bool isIdentical(const Magnum::DualQuaternion& a, const Magnum::DualQuaternion& b) {
    return std::equal(a.data(), a.data() + 8, b.data());
}

}
