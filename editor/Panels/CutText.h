#pragma once

#include <string_view>

#include <imgui.h>

namespace VantrelEngine {

// Draws a line of text from a place in the current window, in the style's colour; what would reach beyond the end, from
// left to right, becomes an ellipsis. The bottom cuts it off. In screen points.
void drawCutText(const ImVec2& place, float end, float bottom, std::string_view text);

} // namespace VantrelEngine
