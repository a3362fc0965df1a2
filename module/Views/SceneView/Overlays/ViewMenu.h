#pragma once

#include <Vantrel/EngineData/Types.h>

#include "Views/SceneView/RenderMode.h"

namespace VantrelEngine {

struct RendererDebug;
struct SharedState;

// What the user chose in the view's menus, to be carried out by the view.
struct ViewMenuResult {
    // The mode from now on.
    RenderMode mode;
    bool collisionShapesOff = false;
    // The simulation is to begin, where it does not run, or to end.
    bool togglesSimulation = false;
};

// The menu bar of the view's window. The switches of the debug displays and that of the texture overlay are changed in
// place, but that of the simulation, which can be chosen only where the project has physics.
ViewMenuResult drawViewMenu(RenderMode mode, bool hasPhysics, SharedState& state, RendererDebug& debug);

} // namespace VantrelEngine
