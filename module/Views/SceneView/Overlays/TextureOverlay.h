#pragma once

#include <Vantrel/Renderer/TileStackTextureAtlas.h>

namespace VantrelEngine {

struct RendererDebug;

// The window "Texture Overlay", where it is switched on: what of the textures is shown over the picture, changed in place,
// and what the atlas of the compressed ones has. Called while the view's window is drawn.
void drawTextureOverlay(RendererDebug& debug, const TileStackTextureAtlas::Statistics& statistics);

} // namespace VantrelEngine
