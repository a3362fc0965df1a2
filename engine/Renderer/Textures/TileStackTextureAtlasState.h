#pragma once

#include <Vantrel/Renderer/TileStackTextureAtlas.h>

namespace VantrelEngine {

struct TileStackTextureAtlas::State {
    // The answer to who wants to reserve an image: false, and once a line that says why.
    bool refuse();

    bool isRefusalSaid = false;
};

} // namespace VantrelEngine
