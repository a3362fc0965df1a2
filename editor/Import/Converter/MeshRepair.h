#pragma once

#include "Import/Converter/Messages.h"
#include "Import/Converter/Model.h"

namespace VantrelImport {

// Brings a mesh into a state that can be drawn, with a warning for each kind of thing that was changed: triangles with
// indices out of range or positions that are not finite go, as do vertices that nothing uses; other values that are not
// finite become neutral ones; attributes that do not have an element a vertex go. False, and a warning, where nothing is
// left, or more than one buffer can hold.
bool repair(Mesh& mesh, Messages& messages);

// Normals of the triangles, each with vertices of its own. Tangents, which would not fit them, go.
void makeFlatNormals(Mesh& mesh);

} // namespace VantrelImport
