#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

// At the bottom left of the view, whose picture is the rectangle in window points, y down: what the colours of the overdraw
// mean, or else a name; nothing where there is neither. Mouse and keys go past it. Called while the view's window is drawn.
void drawLegend(const Magnum::Range2D& view, bool showsOverdraw, Corrade::Containers::StringView name);

} // namespace VantrelEngine
