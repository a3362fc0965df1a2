#pragma once

#include <Magnum/Magnum.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// Something that is drawn in one go: the active meshes of one group of a scene's mesh manager, or the shapes of its
// colliders.
struct Draw {
    enum class Kind : Magnum::UnsignedByte { Meshes, ColliderVisualization };

    Kind kind = Kind::Meshes;
    // Index of the pipeline, 0 for none: then it is not drawn.
    Id pipeline = 0;
    // Of meshes: the group. Of colliders: the batch.
    Id group = 0;
    bool isSkinned = false;
};

} // namespace VantrelEngine
