#pragma once

#include <vector>

#include <Vantrel/EngineData/Types.h>

#include "Views/SceneView/Camera/CameraMath.h"

namespace VantrelEngine {

class EditorData;

struct SelectedBounds {
    Id object;
    // Of the object's meshes, in the scene's space, and where it has none of those of everything below it.
    BoundingSphere bounds;
    // It has no meshes, and is below another one that has none: the bounds of that one hold what is below this one, too,
    // and those of this one are empty.
    bool isWithinOther = false;
};

// The selected objects in the order of their ids. Absolute transformations are up to date. Costs the selected objects and
// those below them, each of these once however deep they are, and some bytes for each id up to the last one.
std::vector<SelectedBounds> boundsOfSelection(EditorData& data);

} // namespace VantrelEngine
