#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Trade/MeshData.h>

namespace VantrelEngine {

// What bodies a document can name instead of a file, by value of the functions below.
enum class MeshShape { Cube, Sphere, Plane, Cylinder, Cone };
constexpr std::size_t MeshShapeCount = 5;
extern const Corrade::Containers::StringView MeshShapeNames[MeshShapeCount];

// Indexed triangles with positions, normals and texture coordinates. Everything lies between -1 and 1 on each axis: a
// cube; a sphere; the square that faces +Z; a closed cylinder and a closed cone along Y.
Magnum::Trade::MeshData shapeMesh(MeshShape shape);

// What stands for a mesh that cannot be had: a cube with edges of 1.
Magnum::Trade::MeshData placeholderMesh();

struct MeshBounds {
    Magnum::Range3D box;
    // Around the centre of the box.
    Magnum::Float radius = 0.0f;
};
// Of the positions, expected to be finite. Linear.
MeshBounds meshBounds(const Magnum::Trade::MeshData& mesh);

// MeshLayoutFlag.
std::uint32_t meshLayout(const Magnum::Trade::MeshData& mesh);

} // namespace VantrelEngine
