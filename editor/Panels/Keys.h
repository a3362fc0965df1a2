#pragma once

namespace VantrelEngine {

// Whether the key was pressed since the last frame.
bool isEscapePressed();
bool isEnterPressed();

} // namespace VantrelEngine
