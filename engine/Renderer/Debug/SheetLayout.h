#pragma once

#include <cstddef>
#include <optional>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

// Where a picture is shown over another one of this size, in pixels from the lower left corner: squares of a quarter of its
// height, the first one in the lower right corner, the next ones to its left, then in the rows above. None for one that has
// no place any more.
std::optional<Magnum::Range2Di> sheetPlace(std::size_t index, const Magnum::Vector2i& size);

} // namespace VantrelEngine
