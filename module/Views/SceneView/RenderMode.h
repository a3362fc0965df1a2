#pragma once

#include <Magnum/Magnum.h>

namespace VantrelEngine {

// What the view shows. The numbers are kept in the editor's record of the view.
enum class RenderMode : Magnum::UnsignedInt { Shaded = 0, MeshVisualization = 1, ObjectId = 2 };

} // namespace VantrelEngine
