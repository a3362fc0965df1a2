#include "Implementation/Handle.h"

namespace ImGuizmo::Implementation {

namespace {

int neededBits(Handle handle) {
    switch(handle.kind) {
    case Handle::Kind::None: return 0;
    case Handle::Kind::MoveAxis: return TRANSLATE_X << handle.axis;
    case Handle::Kind::MovePlane: return TRANSLATE & ~(TRANSLATE_X << handle.axis);
    case Handle::Kind::MoveScreen: return TRANSLATE;
    case Handle::Kind::TurnAxis: return ROTATE_X << handle.axis;
    case Handle::Kind::TurnScreen: return ROTATE_SCREEN;
    case Handle::Kind::ScaleAxis: return SCALE_X << handle.axis;
    case Handle::Kind::ScaleAll: return SCALE;
    }
    return 0;
}

} // namespace

bool hasHandle(OPERATION operation, Handle handle) {
    const int bits = neededBits(handle);
    return bits && (operation & bits) == bits;
}

}
