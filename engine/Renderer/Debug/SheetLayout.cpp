#include "Renderer/Debug/SheetLayout.h"

#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr Int Rows = 4;
// Pixels, of each sheet.
constexpr Int Margin = 1;

}

std::optional<Range2Di> sheetPlace(std::size_t index, const Vector2i& size) {
    const Int edge = Math::min(size.y() / Rows, size.x());
    if(edge <= 2 * Margin) return {};
    const std::size_t columns = std::size_t(size.x() / edge);
    if(index >= columns * Rows) return {};
    const Vector2i corner{size.x() - edge * Int(index % columns + 1), edge * Int(index / columns)};
    return Range2Di{corner + Vector2i{Margin}, corner + Vector2i{edge - Margin}};
}

} // namespace VantrelEngine
