#pragma once

#include <Vantrel/Renderer/TextureAtlas.h>

#include "Renderer/Textures/TextureTable.h"

namespace VantrelEngine {

struct TextureAtlas::State {
    TextureTable table;
};

} // namespace VantrelEngine
