#pragma once

#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// What the view has of its own in its renderer. 0 is none.
struct EditorMaterials {
    // Custom materials: of the shapes of colliders, and of labels.
    Id colliders = 0;
    Id labels = 0;
    // Made by the reload where the project has a pipeline for them.
    Id colliderPipeline = 0;
    Id colliderBatch = 0;
};

} // namespace VantrelEngine
