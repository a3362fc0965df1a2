#pragma once

#include <array>
#include <cmath>
#include <csignal>
#include <random>
#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/Math/Vector4.h>

// The statement prints the text to the standard error output and aborts. Runs it in a child process.
#define EXPECT_ABORT(statement, text) EXPECT_EXIT(statement, testing::KilledBySignal(SIGABRT), testing::HasSubstr(text))

// Equal as the library compares, and printed where not.
#define EXPECT_SAME(actual, expected)                                                                                  \
    EXPECT_TRUE((actual) == (expected)) << MathTest::printed(actual) << "\n" << MathTest::printed(expected)

namespace MathTest {

// What Debug makes of a value
template<class T> std::string printed(const T& value) {
    Corrade::Containers::String out;
    Corrade::Utility::Debug{&out, Corrade::Utility::Debug::Flag::NoNewlineAtTheEnd} << value;
    return {out.data(), out.size()};
}

// All numbers of a value within a tolerance of the reference
template<std::size_t count> using Numbers = std::array<double, count>;

template<class T, std::size_t count>
testing::AssertionResult near(const T& actual, const Numbers<count>& expected, double tolerance) {
    static_assert(sizeof(T) == count * sizeof(float));
    const float* const values = reinterpret_cast<const float*>(&actual);
    for(std::size_t i = 0; i != count; ++i)
        if(!(std::abs(double(values[i]) - expected[i]) <= tolerance))
            return testing::AssertionFailure()
                << printed(actual) << ": number " << i << " is " << values[i] << ", expected " << expected[i];
    return testing::AssertionSuccess();
}
// The same with another value of the type as the reference
template<class T> testing::AssertionResult near(const T& actual, const T& expected, double tolerance) {
    Numbers<sizeof(T) / sizeof(float)> numbers;
    for(std::size_t i = 0; i != numbers.size(); ++i) numbers[i] = double(reinterpret_cast<const float*>(&expected)[i]);
    return near(actual, numbers, tolerance);
}

// Pseudo-random values, the same in every run
class Random {
public:
    double number(double min, double max) { return std::uniform_real_distribution<double>{min, max}(_engine); }

    Magnum::Vector3 vector(double range) {
        const auto coordinate = [&] { return float(number(-range, range)); };
        const float x = coordinate(), y = coordinate(), z = coordinate();
        return {x, y, z};
    }
    Magnum::Vector3 direction() {
        for(;;) {
            const Magnum::Vector3 v = vector(1.0);
            if(v.dot() > 0.01f && v.dot() < 1.0f) return v.normalized();
        }
    }
    Magnum::Rad angle() { return Magnum::Rad{float(number(-6.28, 6.28))}; }
    Magnum::Quaternion rotation() {
        const Magnum::Rad by = angle();
        return Magnum::Quaternion::rotation(by, direction());
    }

private:
    std::mt19937 _engine{20260314};
};

// Rotation matrix, columns first, in double precision: I + sin K + (1 - cos) K^2
inline Numbers<9> rotationReference(double angle, const Magnum::Vector3& axis) {
    const double length = std::sqrt(double(axis[0]) * axis[0] + double(axis[1]) * axis[1] + double(axis[2]) * axis[2]);
    const double x = axis[0] / length, y = axis[1] / length, z = axis[2] / length;
    const double k[3][3]{{0, -z, y}, {z, 0, -x}, {-y, x, 0}};
    Numbers<9> out{};
    for(int r = 0; r != 3; ++r)
        for(int c = 0; c != 3; ++c) {
            double squared = 0;
            for(int i = 0; i != 3; ++i) squared += k[r][i] * k[i][c];
            out[std::size_t(c * 3 + r)] = (r == c) + std::sin(angle) * k[r][c] + (1 - std::cos(angle)) * squared;
        }
    return out;
}
inline Numbers<3> rotated(const Numbers<9>& m, const Magnum::Vector3& v) {
    Numbers<3> out{};
    for(std::size_t c = 0; c != 3; ++c)
        for(std::size_t r = 0; r != 3; ++r) out[r] += m[c * 3 + r] * double(v[c]);
    return out;
}

constexpr float Inf = std::numeric_limits<float>::infinity();
constexpr float NaN = std::numeric_limits<float>::quiet_NaN();

}
