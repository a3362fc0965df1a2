#pragma once

#include "Corrade/Containers/Iterable.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/MeshTools/InterleaveFlags.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::MeshTools {

// One mesh of the vertices of all, in their order, with the attributes and the layout of the first: what it lacks is
// dropped, what others lack is zero. Indexed with 32 bits if any of them is indexed. Asserts that there is a mesh, that
// all have the same primitive, one whose parts can follow each other, and that attributes of the same name have the
// same format and are not longer arrays than in the first mesh.
CORRADE_VISIBILITY_EXPORT Trade::MeshData concatenate(const Containers::Iterable<const Trade::MeshData>& meshes,
    InterleaveFlags flags = InterleaveFlag::PreserveInterleavedAttributes);

}
