#pragma once

#include <optional>
#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Trade/MeshData.h>

namespace VantrelEngine {

// The first primitive of the first mesh of a GLB file: triangles, indexed or not. All attributes are interleaved and of
// floats but the joints, which are four 16-bit numbers a vertex. Positions are finite and indices inside of the mesh;
// texture coordinates start at the bottom. None, and a reason, where the file cannot be used.
std::optional<Magnum::Trade::MeshData> readMesh(Corrade::Containers::ArrayView<const char> bytes, std::string& reason);

} // namespace VantrelEngine
