#pragma once

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

// What the engine and the editor read where a project does not say: every key of "settings".
JsonDocument defaultProject();

// A new project: no objects; the shaders and pipelines "MeshVisualizer", "Text", "Lit" and "Flat", and a material each
// for the last two.
JsonDocument newProject();

} // namespace VantrelEngine
