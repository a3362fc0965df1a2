#pragma once

#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Color.h>

namespace VantrelEngine {

// A square, rows upwards.
typedef std::vector<Magnum::Color4ub> ThumbnailPixels;

} // namespace VantrelEngine
