#pragma once

#include <Magnum/Magnum.h>

namespace VantrelEngine {

// What a renderer shows of its textures over what it has drawn, for whoever looks for a mistake. At first nothing.
struct RendererDebug {
    // Without this one none of those below shows anything.
    bool textureOverlay = false;
    // Of the textures that have levels; one that they do not have is the nearest one that they have.
    Magnum::Int mipLevel = 0;

    // The layers of the uncompressed images.
    bool textureAtlas = false;
    // Of the compressed ones: the tiles that were seen, those that are in video memory, and where they are.
    bool tileFeedback = false;
    bool streamingCache = false;
    bool virtualAtlas = false;
    // The depth that lights see.
    bool shadowAtlas = false;
};

} // namespace VantrelEngine
