#pragma once

#include <array>
#include <string>
#include <unordered_map>

namespace VantrelEngine {

// x, y, z, w; of any length but zero.
using QuaternionNumbers = std::array<double, 4>;
// Degrees about X, then Y, then Z of the axes that stay: the matrix is Rz * Ry * Rx.
using EulerAngles = std::array<double, 3>;

// Of length 1, and with w not negative for angles of at most 180 degrees about one axis.
QuaternionNumbers quaternionFromAngles(const EulerAngles& degrees);

// Y in [-90, 90], X and Z in [-180, 180]. Straight up or down, where X and Z turn about the same axis, Z is 0 and X has
// all of it. Numbers that are whole but for rounding are whole.
EulerAngles anglesFromQuaternion(const QuaternionNumbers& quaternion);

// The angles that a user typed. A quaternion has many; as long as the document has the quaternion that was made of them,
// they stay as they were typed.
class TypedAngles {
public:
    // The key is the rotation's place.
    EulerAngles anglesOf(const std::string& key, const QuaternionNumbers& quaternion) const;
    void remember(const std::string& key, const EulerAngles& degrees, const QuaternionNumbers& quaternion);
    void clear() { _typed.clear(); }

private:
    struct Typed {
        EulerAngles degrees;
        QuaternionNumbers quaternion;
    };

    std::unordered_map<std::string, Typed> _typed;
};

} // namespace VantrelEngine
