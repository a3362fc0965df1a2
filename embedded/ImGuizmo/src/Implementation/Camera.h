#pragma once

#include <optional>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector2.h>

namespace ImGuizmo::Implementation {

typedef Magnum::Math::Matrix4<Magnum::Double> Matrix4d;

// On the screen: pixels from the upper left corner, y down.
struct Rect {
    Magnum::Vector2d position, size;

    bool contains(const Magnum::Vector2d& pixel) const;
};

// Looks at the world through a rectangle of the screen, with the conventions of OpenGL.
class Camera {
public:
    // Column after column. Nothing if the matrices cannot be inverted or are not finite, or the rectangle has less
    // than a pixel or reaches beyond any screen: a million pixels.
    static std::optional<Camera> create(const float* view, const float* projection, const Rect& rect);

    // The pixel where a point is seen; nothing for a point that is not before the camera, or is seen that far away.
    std::optional<Magnum::Vector2d> project(const Magnum::Vector3d& point) const;
    // The point of a plane that is seen at a pixel. Nothing where the plane is not before the camera, and close to its
    // horizon, where a pixel would be a hundred times as far away as the plane's point.
    std::optional<Magnum::Vector3d> pointOnPlane(
        const Magnum::Vector2d& pixel, const Magnum::Vector3d& planePoint, const Magnum::Vector3d& normal) const;

    const Rect& rect() const { return _rect; }
    // Where the camera looks; of length 1.
    const Magnum::Vector3d& forward() const { return _forward; }
    // From a point to the eye; of length 1.
    Magnum::Vector3d towardEye(const Magnum::Vector3d& point) const;
    // Of a point before the camera: how much of the world, across the line of sight, a pixel is.
    Magnum::Double unitsPerPixel(const Magnum::Vector3d& point) const;
    // How far a point is before the camera; infinite without perspective.
    Magnum::Double depth(const Magnum::Vector3d& point) const;

private:
    Camera(const Matrix4d& view, const Matrix4d& projection, const Rect& rect);
    Magnum::Double clipW(const Magnum::Vector3d& point) const;

    struct Ray {
        Magnum::Vector3d origin, direction;
    };
    Ray ray(const Magnum::Vector2d& pixel) const;

    Matrix4d _projection, _toClip, _world;
    Rect _rect;
    bool _isPerspective;
    Magnum::Vector3d _forward;
};

}
