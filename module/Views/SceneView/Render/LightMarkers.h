#pragma once

#include <cstddef>
#include <vector>

#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Matrix4.h>

#include "Views/SceneView/Render/MarkerProgram.h"

namespace VantrelEngine {

class ViewCamera;
struct Scene;

// A shape for each active light, in the light's colour or in that of its object's id: a sphere for a point light, else an
// arrow. One call a shape, however many lights there are.
class LightMarkers {
public:
    // Scene units, of a shape of size 1.
    static constexpr Magnum::Float Size = 0.15f;

    // No GL objects.
    explicit LightMarkers() = default;

    // Needs the GL context.
    void create();

    // Takes over the lights as they are now, and where the camera sees them. Returns how many bytes were uploaded: those
    // of the shapes of which one looks different from the last time.
    std::size_t update(Scene& scene, const ViewCamera& camera);
    // Into the bound framebuffer. Leaves face culling on.
    void draw() { draw(false); }
    void drawIds() { draw(true); }

private:
    struct Marker {
        Magnum::Matrix4 transformation;
        Magnum::Color4 color, idColor;
    };
    struct Shape {
        Magnum::GL::Buffer places{Magnum::NoCreate};
        Magnum::GL::Mesh mesh{Magnum::NoCreate};
        // As they are now, and as they are in video memory.
        std::vector<Marker> markers, uploaded;

        void create(Magnum::GL::Mesh&& shape);
        bool isUploaded() const;
        std::size_t upload();
    };

    void draw(bool showsIds);

    Shape _spheres, _arrows;
    MarkerProgram _program{Magnum::NoCreate};
};

} // namespace VantrelEngine
