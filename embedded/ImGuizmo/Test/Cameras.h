#pragma once

#include <random>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>

#include "Implementation/Camera.h"

namespace GizmoTest {

using ImGuizmo::Implementation::Camera;
using ImGuizmo::Implementation::Matrix4d;
using ImGuizmo::Implementation::Rect;

constexpr Rect Screen{{100.0, 50.0}, {1600.0, 900.0}};

inline Magnum::Matrix4 perspective(float degrees = 60.0f) {
    return Magnum::Matrix4::perspectiveProjection(Magnum::Deg{degrees}, 16.0f / 9.0f, 0.1f, 100.0f);
}
inline Magnum::Matrix4 orthographic() { return Magnum::Matrix4::orthographicProjection({16.0f, 9.0f}, 0.1f, 100.0f); }
inline Magnum::Matrix4 lookingAt(const Magnum::Vector3& from, const Magnum::Vector3& to = {}) {
    return Magnum::Matrix4::lookAt(from, to, Magnum::Vector3::yAxis()).invertedRigid();
}
inline Camera camera(const Magnum::Matrix4& view, const Magnum::Matrix4& projection, const Rect& rect = Screen) {
    return Camera::create(view.data(), projection.data(), rect).value();
}

// The same in every run
class Random {
public:
    explicit Random(unsigned seed = 20260719): _engine{seed} {}

    double number(double least, double most) { return std::uniform_real_distribution<double>{least, most}(_engine); }
    int whole(int least, int most) { return std::uniform_int_distribution<int>{least, most}(_engine); }
    Magnum::Vector3d vector(double range) {
        const double x = number(-range, range), y = number(-range, range), z = number(-range, range);
        return {x, y, z};
    }
    Magnum::Vector3d direction() {
        for(;;) {
            const Magnum::Vector3d out = vector(1.0);
            if(out.dot() > 0.01 && out.dot() < 1.0) return out.normalized();
        }
    }
    Magnum::Matrix4 rotation() {
        const Magnum::Rad angle{float(number(-3.1, 3.1))};
        return Magnum::Matrix4::rotation(angle, Magnum::Vector3{direction()}.normalized());
    }

private:
    std::mt19937 _engine;
};

}
