#pragma once

struct ImDrawList;
struct ImVec2;

namespace VantrelEngine {

// What stands in front of and behind a name in the outliner. Drawn with lines, so that they are as sharp as the text at
// any size.
enum class OutlinerIcon { Empty, Group, Mesh, Light, View, Text, Body, Other, Eye, ClosedEye, Lock, OpenLock };

// About the middle, in a square of this size in window points.
void drawIcon(ImDrawList& list, OutlinerIcon icon, const ImVec2& middle, float size, unsigned color);

} // namespace VantrelEngine
