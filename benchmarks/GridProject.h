#pragma once

#include <cstddef>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector3.h>
#include <Vantrel/EngineData/Json.h>

namespace VantrelBench {

enum class GridObjects {
    // Cubes and planes in turn, lit and flat.
    CubesAndPlanes,
    // Planes of two meshes in turn, lit, seen from behind: they are drawn, and there is nothing to be seen of them.
    Backs
};

// A project whose objects fill a grid that faces the editor's first camera, all of it in the picture, at any number of
// them. The part that is outside stands behind the camera, evenly among the others.
VantrelEngine::JsonDocument gridProject(
    std::size_t count, double outside = 0.0, GridObjects objects = GridObjects::CubesAndPlanes);

// A place in the grid, from -1 at its left and lower edge to 1 at its right and upper one, and so far before it.
Magnum::Vector3 gridPlace(const Magnum::Vector2& part, Magnum::Float before = 0.0f);

// From the scene to the clip space of a picture of this size.
Magnum::Matrix4 gridToClip(const Magnum::Vector2i& pictureSize);

}
