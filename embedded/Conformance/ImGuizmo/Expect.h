#pragma once

#include <gtest/gtest.h>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>

namespace GizmoTest {

template<class T> testing::AssertionResult near(const T& actual, const T& expected, float tolerance) {
    const float *a = reinterpret_cast<const float*>(&actual), *b = reinterpret_cast<const float*>(&expected);
    for(std::size_t i = 0; i != sizeof(T) / sizeof(float); ++i)
        if(!(std::abs(a[i] - b[i]) <= tolerance))
            return testing::AssertionFailure() << "number " << i << " is " << a[i] << ", expected " << b[i];
    return testing::AssertionSuccess();
}

}
