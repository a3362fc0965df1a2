#include "Panels/Inspector/EulerAngles.h"

#include <algorithm>
#include <cmath>

namespace VantrelEngine {

namespace {

constexpr double Degrees = 57.295779513082320877;
// Of the sine of Y: nearer to 1 the other two angles cannot be told apart in numbers.
constexpr double Straight = 1.0 - 1.0e-12;
// Degrees.
constexpr double Rounding = 1.0e-5;

double neat(double degrees) {
    const double whole = std::round(degrees * 1000.0) / 1000.0;
    const double near = std::abs(degrees - whole) < Rounding ? whole : degrees;
    // No -0.
    return near == 0.0 ? 0.0 : near;
}

QuaternionNumbers normalized(const QuaternionNumbers& q) {
    // The largest one first: numbers may be so large that their squares are not finite.
    const double largest = std::max(std::max(std::abs(q[0]), std::abs(q[1])), std::max(std::abs(q[2]), std::abs(q[3])));
    if(largest == 0.0 || !std::isfinite(largest)) return {0.0, 0.0, 0.0, 1.0};
    QuaternionNumbers unit = q;
    double length = 0.0;
    for(double& number: unit) {
        number /= largest;
        length += number * number;
    }
    length = std::sqrt(length);
    for(double& number: unit) number /= length;
    return unit;
}

} // namespace

QuaternionNumbers quaternionFromAngles(const EulerAngles& degrees) {
    double s[3], c[3];
    for(int i = 0; i != 3; ++i) {
        s[i] = std::sin(degrees[std::size_t(i)] / Degrees * 0.5);
        c[i] = std::cos(degrees[std::size_t(i)] / Degrees * 0.5);
    }
    return {s[0] * c[1] * c[2] - c[0] * s[1] * s[2], c[0] * s[1] * c[2] + s[0] * c[1] * s[2],
        c[0] * c[1] * s[2] - s[0] * s[1] * c[2], c[0] * c[1] * c[2] + s[0] * s[1] * s[2]};
}

EulerAngles anglesFromQuaternion(const QuaternionNumbers& quaternion) {
    const QuaternionNumbers q = normalized(quaternion);
    const double x = q[0], y = q[1], z = q[2], w = q[3];
    // The elements of the rotation's matrix that the angles are read from; -sin(Y) is that of row 2, column 0.
    const double sine = 2.0 * (w * y - x * z);
    if(std::abs(sine) > Straight) {
        const double turn = 2.0 * std::atan2(x, w);
        const double around = std::remainder(turn * Degrees, 360.0);
        return {neat(around), std::copysign(90.0, sine), 0.0};
    }
    return {neat(std::atan2(2.0 * (w * x + y * z), 1.0 - 2.0 * (x * x + y * y)) * Degrees),
        neat(std::asin(sine) * Degrees),
        neat(std::atan2(2.0 * (w * z + x * y), 1.0 - 2.0 * (y * y + z * z)) * Degrees)};
}

EulerAngles TypedAngles::anglesOf(const std::string& key, const QuaternionNumbers& quaternion) const {
    const auto typed = _typed.find(key);
    if(typed != _typed.end() && typed->second.quaternion == quaternion) return typed->second.degrees;
    return anglesFromQuaternion(quaternion);
}

void TypedAngles::remember(const std::string& key, const EulerAngles& degrees, const QuaternionNumbers& quaternion) {
    _typed[key] = {degrees, quaternion};
}

} // namespace VantrelEngine
