#pragma once

#include <cstddef>

#include "Corrade/Containers/Array.h"
#include "Magnum/Magnum.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::MeshTools::Implementation {

// Where in a vertex each attribute of a new, interleaved mesh lies.
struct Layout {
    Containers::Array<std::size_t> offsets;
    std::size_t stride{};
};

// In the order of the attributes, without padding.
Layout packedLayout(const Trade::MeshData& mesh);

// That of the mesh, from its first attribute on, if all its attributes lie within one stride; else the packed one.
Layout preservedLayout(const Trade::MeshData& mesh);

// Copies one attribute to vertices that are `stride` apart.
void copyAttribute(const Trade::MeshData& mesh, UnsignedInt id, char* destination, std::size_t stride);

}
