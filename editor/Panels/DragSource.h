#pragma once

namespace VantrelEngine {

// As ImGui::BeginDragDropSource(), but false while something is dragged that comes out of no panel: the UI library would
// take that for the begin of this, and leave its tooltip open.
bool beginDragSource();

// Between two frames: what is dragged is dragged no more, and the release of the button drops nothing. Whether there was
// anything.
bool giveUpDrag();

} // namespace VantrelEngine
