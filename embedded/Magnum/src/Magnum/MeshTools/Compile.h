#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/Trade/Trade.h"

namespace Magnum::MeshTools {

// Uploads a mesh as it is into buffers that belong to the result, and binds every attribute to the location that all
// shaders expect it at. Prints a warning for attributes that there is no location for, or not another one, and for those
// of morph targets, which are ignored. Asserts that GL can do the strides. Needs a GL context.
CORRADE_VISIBILITY_EXPORT GL::Mesh compile(const Trade::MeshData& mesh);

}
