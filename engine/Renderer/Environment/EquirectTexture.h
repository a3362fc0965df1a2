#pragma once

#include <Magnum/GL/Texture.h>

namespace VantrelEngine {

// A texture of longitude over latitude in halves, which goes on at its sides and ends at its upper and lower edge. One
// level at a time is sampled, smoothly.
Magnum::GL::Texture2D equirectTexture(Magnum::Int levels, const Magnum::Vector2i& size);

} // namespace VantrelEngine
