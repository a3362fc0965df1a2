#pragma once

#include <cstdint>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>

#include "Thumbnails/ThumbnailPixels.h"

namespace VantrelEngine {

// A corner of a triangle, in the space of the scene.
struct RasterVertex {
    Magnum::Vector3 position, normal;
    Magnum::Vector2 textureCoordinates;
    // Linear.
    Magnum::Color4 color;
};

// An image that a surface is coloured with, over and over; rows upwards.
struct RasterTexture {
    Magnum::Vector2i size;
    std::vector<Magnum::Color4ub> texels;
    bool isSrgb = true;

    // Linear. Expects a texel.
    Magnum::Color4 at(const Magnum::Vector2& textureCoordinates) const;
};

// Draws triangles into a small picture without the GL, so that any thread can: seen from the front, the right and above,
// in the light of a sun over the left shoulder, from both sides.
class PictureRaster {
public:
    // Pixels along an edge; all that is inside of the sphere is seen.
    explicit PictureRaster(Magnum::Int edge, const Magnum::Vector3& center, Magnum::Float radius);

    // What is less opaque than the cutoff is left out. Without a texture it is null.
    void draw(const RasterVertex (&triangle)[3], const RasterTexture* texture, Magnum::Float cutoff);
    ThumbnailPixels pixels() const;
    // How many samples the triangles were compared with.
    std::uint64_t tested() const { return _tested; }

private:
    // A corner as it is seen: place in pixels, and the inverse of the distance.
    struct Corner {
        Magnum::Vector2 place;
        Magnum::Float inverseDistance;
    };

    Corner cornerOf(const Magnum::Vector3& position) const;
    Magnum::Color4 shaded(const RasterVertex (&triangle)[3], const Magnum::Vector3& weights,
        const Magnum::Vector3& faceNormal, const RasterTexture* texture) const;

    const Magnum::Int _edge;
    // Into the camera's space, which looks along -Z; and how long an edge of the picture is at a distance of 1.
    Magnum::Matrix4 _toCamera;
    Magnum::Float _scale;
    // Of samples, several a pixel: linear, and the inverse of the distance.
    std::vector<Magnum::Color3> _colors;
    std::vector<Magnum::Float> _nearest;
    std::uint64_t _tested = 0;
};

} // namespace VantrelEngine
