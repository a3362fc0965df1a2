#pragma once

#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

class ChangeManager;
class EditorData;

// Moves an object to where another one is: it takes over the other one's absolute rotation and translation and keeps its
// own absolute scaling. One step of the undo log. The other one may be the same object, or the root. Aborts where the
// absolute transformation of the object's parent is not rigid, see invertedRigid().
void placeObject(Id object, Id target, EditorData& data, ChangeManager& changes);

} // namespace VantrelEngine
