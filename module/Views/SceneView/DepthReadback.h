#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace Magnum::GL {
class Framebuffer;
}

namespace VantrelEngine {

// How deep what is seen at a pixel of a view lies, from 0 at the near plane to 1 at the far one: of what has an id, as it
// was drawn with the objects' ids. 1 where nothing is, and outside of the framebuffer. Waits for the GPU to have drawn it.
Magnum::Float readDepth(Magnum::GL::Framebuffer& framebuffer, const Magnum::Range2Di& pixel);

} // namespace VantrelEngine
