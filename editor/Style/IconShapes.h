#pragma once

#include "Style/IconFont.h"

namespace VantrelEngine {

// The icons of the scene view's toolbar, in the order of their code points.
const std::vector<IconShape>& iconShapes();

} // namespace VantrelEngine
