#include "Application/CursorShape.h"

#include <imgui.h>

namespace VantrelEngine {

CursorShape cursorShapeOf(int interfaceCursor) {
    if(interfaceCursor < 0) return CursorShape::None;
    if(interfaceCursor >= ImGuiMouseCursor_COUNT) return CursorShape::Crosshair;
    switch(interfaceCursor) {
    case ImGuiMouseCursor_TextInput: return CursorShape::TextInput;
    case ImGuiMouseCursor_ResizeEW: return CursorShape::ResizeWE;
    case ImGuiMouseCursor_ResizeNS: return CursorShape::ResizeNS;
    case ImGuiMouseCursor_Hand: return CursorShape::Hand;
    default: return CursorShape::Arrow;
    }
}

} // namespace VantrelEngine
