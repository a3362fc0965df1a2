#pragma once

#include <imgui.h>

// Moves, turns and scales something with handles that are drawn over a picture of it. One gizmo at a time reacts; the
// state is one for the whole process and belongs to the thread of the user interface. All matrices are 16 floats,
// column after column, with the conventions of OpenGL; a camera or a matrix that is singular where it must not be, or
// holds something that is not finite, shows nothing and changes nothing.
namespace ImGuizmo {

enum OPERATION {
    TRANSLATE_X = 1 << 0,
    TRANSLATE_Y = 1 << 1,
    TRANSLATE_Z = 1 << 2,
    ROTATE_X = 1 << 3,
    ROTATE_Y = 1 << 4,
    ROTATE_Z = 1 << 5,
    ROTATE_SCREEN = 1 << 6,
    SCALE_X = 1 << 7,
    SCALE_Y = 1 << 8,
    SCALE_Z = 1 << 9,

    TRANSLATE = TRANSLATE_X | TRANSLATE_Y | TRANSLATE_Z,
    ROTATE = ROTATE_X | ROTATE_Y | ROTATE_Z | ROTATE_SCREEN,
    SCALE = SCALE_X | SCALE_Y | SCALE_Z
};

inline OPERATION operator|(OPERATION a, OPERATION b) { return OPERATION(int(a) | int(b)); }

// The axes of the matrix itself, or those of the world. Scaling is along those of the matrix in both.
enum MODE { LOCAL, WORLD };

enum COLOR {
    DIRECTION_X,
    DIRECTION_Y,
    DIRECTION_Z,
    PLANE_X,
    PLANE_Y,
    PLANE_Z,
    // What the mouse is over, or holds
    SELECTION,
    // Everything, while disabled
    INACTIVE,
    // From where a drag began to where it is
    TRANSLATION_LINE,
    // Not drawn here
    SCALE_LINE,
    ROTATION_USING_BORDER,
    ROTATION_USING_FILL,
    // Not drawn here
    HATCHED_AXIS_LINES,
    TEXT,
    // What is behind the text
    TEXT_SHADOW,
    COUNT
};

// Sizes are in pixels, colours red, green, blue and alpha from 0 to 1.
struct Style {
    Style();

    float TranslationLineThickness = 3.0f;
    // Half of an arrow's width
    float TranslationLineArrowSize = 6.0f;
    float RotationLineThickness = 2.5f;
    float RotationOuterLineThickness = 2.0f;
    float ScaleLineThickness = 3.0f;
    // Half of a box' width
    float ScaleLineCircleSize = 6.0f;
    float CenterCircleSize = 6.0f;

    ImVec4 Colors[COUNT];
};
Style& GetStyle();

// The context of the copy of the UI library that this library was linked with.
void SetImGuiContext(ImGuiContext* context);

// Once a frame, after ImGui::NewFrame(); without, Manipulate() stops the program with a message. A drag ends where a
// frame has passed without its gizmo.
void BeginFrame();

// Where the gizmo is drawn until the next BeginFrame(): the list of the current window, or another one. The window that
// owns the list has to be the hovered one for the handles to react; the lists behind and before all windows react
// where no window is. Without a call: behind all windows.
void SetDrawlist(ImDrawList* list = nullptr);

// The picture that the camera sees, in pixels of the screen. Handles are cut off and do not react outside. In one of less
// than a pixel, or one that reaches beyond a million, there is no gizmo.
void SetRect(float x, float y, float width, float height);

// Kept for callers: whether the camera has a perspective is seen in its projection.
void SetOrthographic(bool isOrthographic);

// Length of an axis across the line of sight, as a part of the longer side of the picture, whose whole length is 2; at
// first 0.1. An axis is never shorter than 64 pixels, or three tenths of the shorter side where that is less.
void SetGizmoSizeClipSpace(float size);

// Whether an axis is drawn to its negative side where that one comes toward the eye in perspective. It is at first; the
// side never changes during a drag.
void AllowAxisFlip(bool isAllowed);

// Draws the gizmo at the position of the matrix, and edits the matrix while the user drags a handle. Returns whether it
// did; then, and only then, `deltaMatrix` is not the identity:
//  - translating: the translation from the matrix that came in to the one that goes out, in the world;
//  - rotating: this frame's rotation in the world, about an axis through the gizmo's position;
//  - scaling: a diagonal of the new lengths of the matrix' axes over those that came in. Lengths are those of the
//    beginning of the drag times the total factor; an axis of no length keeps it, with 1.
// `snap` are steps for the total of a drag: three distances along the axes of the mode, or one angle in degrees, or one
// step of the factor (which stays at least 0.001). Steps of FLT_EPSILON or less do not snap. A drag begins with a click
// of the left button on a handle while no item of the user interface is hovered or active, and ends when the button is
// up, in a frame that still takes the mouse' last way into account. There are no bounds to edit: `localBounds` and
// `boundsSnap` have to be null.
bool Manipulate(const float* view, const float* projection, OPERATION operation, MODE mode, float* matrix,
    float* deltaMatrix = nullptr, const float* snap = nullptr, const float* localBounds = nullptr,
    const float* boundsSnap = nullptr);

// Whether a handle of the gizmo that was drawn since BeginFrame() lies under the mouse as it is now, or is dragged;
// with an operation: a handle of that one.
bool IsOver();
bool IsOver(OPERATION operation);
// Whether the gizmo with the current id is being dragged.
bool IsUsing();
// Whether any gizmo is.
bool IsUsingAny();

// A disabled gizmo is grey and does not react; a drag in progress is dropped, and not taken up again.
void Enable(bool isEnabled);

// Tells several gizmos of a frame apart; -1 at first.
[[deprecated("The original wants PushID() and PopID() instead.")]] void SetID(int id);

}
