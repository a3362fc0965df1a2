#pragma once

#include <cstdint>
#include <vector>

#include <Magnum/Magnum.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Renderer/Meshes/VertexLayout.h"

namespace VantrelEngine {

// The vertices and indices of a mesh of triangles in a layout, into memory that is used again. Normals that it has not
// are made: those of its faces, where they share vertices the sum by their areas. What else it has not is zero, colours
// white.
void interleave(const Magnum::Trade::MeshData& mesh, const VertexLayout& layout, std::vector<char>& vertices,
    std::vector<Magnum::UnsignedInt>& indices);

// Indices, or vertices where it has none: what a draw of it counts.
Magnum::UnsignedInt drawCount(const Magnum::Trade::MeshData& mesh);

// Other meshes have another one; so has a mesh whose contents changed, wherever they lie in memory. Linear. Never 0.
std::uint64_t fingerprint(const Magnum::Trade::MeshData& mesh);

} // namespace VantrelEngine
