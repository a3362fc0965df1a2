#pragma once

#include <Vantrel/EngineData/Types.h>

#include "Views/SceneView/Camera/CameraMath.h"

namespace VantrelEngine {

class EditorData;

// The sphere around the meshes of an object, in the scene's space; empty for an object without meshes. The object's
// absolute transformation is up to date.
BoundingSphere boundsOfObject(EditorData& data, Id object);

// The same, and where that is empty around the meshes of everything below the object. Costs a step for each of these.
BoundingSphere boundsOfSubtree(EditorData& data, Id object);

} // namespace VantrelEngine
