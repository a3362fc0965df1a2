#pragma once

namespace VantrelEngine {

enum class CursorShape { None, Arrow, TextInput, ResizeWE, ResizeNS, Hand, Crosshair };

// The shape for a cursor of the UI library, which may be any number: -1 is none, and what is at or beyond the last cursor
// that the library knows is the crosshair of something that is dragged.
CursorShape cursorShapeOf(int interfaceCursor);

} // namespace VantrelEngine
