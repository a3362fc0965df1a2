#include <ImGuizmo.h>

namespace ImGuizmo {

Style::Style() {
    Colors[DIRECTION_X] = {0.93f, 0.27f, 0.31f, 1.0f};
    Colors[DIRECTION_Y] = {0.49f, 0.80f, 0.20f, 1.0f};
    Colors[DIRECTION_Z] = {0.25f, 0.54f, 0.98f, 1.0f};
    Colors[PLANE_X] = {0.93f, 0.27f, 0.31f, 0.4f};
    Colors[PLANE_Y] = {0.49f, 0.80f, 0.20f, 0.4f};
    Colors[PLANE_Z] = {0.25f, 0.54f, 0.98f, 0.4f};
    Colors[SELECTION] = {1.0f, 0.78f, 0.16f, 1.0f};
    Colors[INACTIVE] = {0.6f, 0.6f, 0.6f, 0.6f};
    Colors[TRANSLATION_LINE] = {0.8f, 0.8f, 0.8f, 0.9f};
    Colors[SCALE_LINE] = {0.8f, 0.8f, 0.8f, 0.9f};
    Colors[ROTATION_USING_BORDER] = {1.0f, 0.78f, 0.16f, 1.0f};
    Colors[ROTATION_USING_FILL] = {1.0f, 0.78f, 0.16f, 0.3f};
    Colors[HATCHED_AXIS_LINES] = {0.0f, 0.0f, 0.0f, 0.0f};
    Colors[TEXT] = {0.95f, 0.95f, 0.95f, 1.0f};
    Colors[TEXT_SHADOW] = {0.0f, 0.0f, 0.0f, 0.65f};
}

Style& GetStyle() {
    static Style style;
    return style;
}

}
