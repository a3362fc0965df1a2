#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

#include "Views/SceneView/GizmoSettings.h"

namespace VantrelEngine {

struct ToolbarState {
    GizmoSettings gizmo;
    // Scene units per second.
    Magnum::Float flySpeed, flySpeedMin, flySpeedMax;
    // The project has physics: there is a button for the simulation.
    bool hasPhysics;
    bool isSimulating;
};

// What the user did with it, to be carried out by the view.
struct ToolbarResult {
    // As they are from now on.
    GizmoSettings gizmo;
    Magnum::Float flySpeed;
    // The simulation is to be started or stopped.
    bool togglesSimulation = false;
    // The mouse is over a button that chooses what the gizmo does, or along which axes.
    bool isChoiceHovered = false;
    // The window is new, and the UI library has given it the focus.
    bool isNew = false;
    // It has the focus, and nothing of it is used any more.
    bool isLeft = false;
};

// A window that floats over the top left of the view's window, below its title and its menu bar: what the gizmo does,
// along which axes and in which steps, the simulation, and the speed of flying. What has no room beside the rest goes
// below it, and is left out where more than the upper half of the view would be covered; so may be all of it. Window points.
ToolbarResult drawToolbar(const ToolbarState& state, const Magnum::Range2D& view);

} // namespace VantrelEngine
