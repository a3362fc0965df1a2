#pragma once

#include <vector>

#include <Magnum/Magnum.h>
#include <Vantrel/Module/InputEvents.h>

#include "Views/SceneView/GizmoSettings.h"

namespace VantrelEngine {

// What a key of the view does, in the order in which it is done.
enum class KeyAction : Magnum::UnsignedByte {
    FrameSelection,
    // Movement keys are counted, and a camera that flies heads elsewhere: with every press.
    Navigate,
    ChooseTranslation,
    ChooseRotation,
    ChooseScaling,
    ArmBox,
    DeleteSelected,
    ShowAxisView,
    CancelBox,
    ToggleSimulation,
    Copy,
    CopyTrees,
    Paste,
    PasteChild,
    Duplicate,
    DuplicateTrees
};

// How the view is when a key is pressed.
struct KeyContext {
    bool hasFocus = false;
    // The camera neither flies nor orbits.
    bool isIdle = true;
    // A widget of the UI is being used.
    bool isItemActive = false;
    // The project's setting "physx/enable".
    bool hasPhysics = false;
};

// What a press leads to. Without the focus that is framing and navigation alone. Where a combination is asked for, it is
// exactly that one; the keys of the gizmo, the box and the axis views work with Shift and Super, too. A key that is held
// repeats all but what the clipboard and the simulation do.
std::vector<KeyAction> actionsOf(const KeyEvent& event, const KeyContext& context);

struct GizmoChoice {
    GizmoOperation operation;
    GizmoSpace space;

    bool operator==(const GizmoChoice& other) const { return operation == other.operation && space == other.space; }
};

// What an action makes of the present choice. An operation is chosen with the axes of the world, or, where it is chosen
// already, with the other axes; scaling is along those of the object. Other actions leave it as it is.
GizmoChoice chosen(KeyAction action, const GizmoChoice& present);

} // namespace VantrelEngine
