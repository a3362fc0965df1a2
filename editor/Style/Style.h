#pragma once

namespace VantrelEngine {

// Colours and distances of the editor's windows, for text of the given size factor. Replaces the style of the UI context
// that is current.
void applyStyle(float fontScale);

} // namespace VantrelEngine
