#pragma once

#include <string>

namespace VantrelEngine {

// In each frame in which something is dragged that comes out of no window of the editor: the UI library's type of it, and
// the text that it carries, see PayloadTypes.h. The left button is held. As with a drag out of a panel the button belongs
// to it, and nothing that is below the mouse takes it for a press of its own. Where something is dragged
// already, this waits.
void dragFromOutside(const std::string& type, const std::string& text);

} // namespace VantrelEngine
