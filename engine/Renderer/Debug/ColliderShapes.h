#pragma once

#include <cstdint>
#include <vector>

#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix4.h>

namespace VantrelEngine {

class LineProgram;
struct Scene;

// Where unit spheres and unit cubes are to stand so that they are the active colliders of a scene: a sphere of its
// radius, a box along the axes of the scene or of its object; none of them follows the scaling.
struct ColliderPlaces {
    std::vector<Magnum::Matrix4> spheres, boxes;
};
// In the place of what was there. Takes objects as they stood at the last computation.
void findColliders(Scene& scene, ColliderPlaces& places);

// The colliders as lines: three circles of a sphere, the edges of a box.
class ColliderShapes {
public:
    // Needs a GL context.
    explicit ColliderShapes();

    // Uploads only what is another one than before.
    void update(Scene& scene);
    void clear();
    // Calls of the GL that drew something.
    std::size_t draw(LineProgram& program, const Magnum::Matrix4& viewProjection, const Magnum::Color4& color);

    std::uint64_t uploadedBytes() const { return _uploadedBytes; }

private:
    struct Shape {
        Magnum::GL::Buffer places;
        Magnum::GL::Mesh mesh{Magnum::GL::MeshPrimitive::Lines};
        std::vector<Magnum::Matrix4> uploaded;
    };

    void make(Shape& shape, const std::vector<Magnum::Vector3>& lines);
    void upload(Shape& shape, const std::vector<Magnum::Matrix4>& places);

    Shape _spheres, _boxes;
    // Used again.
    ColliderPlaces _places;
    std::uint64_t _uploadedBytes = 0;
};

} // namespace VantrelEngine
