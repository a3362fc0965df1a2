#pragma once

#include <Vantrel/EngineData/Types.h>

#include "Views/SceneView/RenderMode.h"

namespace VantrelEngine {

struct SharedState;

// What the user chose in the view's menus, to be carried out by the view.
struct ViewMenuResult {
    // The mode from now on.
    RenderMode mode;
    bool collisionShapesOff = false;
};

// The menu bar of the view's window. The switches of the debug displays are changed in place.
ViewMenuResult drawViewMenu(RenderMode mode, SharedState& state);

} // namespace VantrelEngine
