#pragma once

#include "Views/SceneView/Keys/KeyActions.h"

namespace VantrelEngine {

class VantrelEditor;

// Does what a key does to the selected objects: deletes, copies, pastes or duplicates them. What is new is in the scene
// and selected at once. The clipboard is the UI library's; copying nothing leaves it as it is. Other actions do nothing.
void performOnObjects(KeyAction action, VantrelEditor& editor);

} // namespace VantrelEngine
