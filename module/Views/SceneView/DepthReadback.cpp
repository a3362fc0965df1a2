#include "Views/SceneView/DepthReadback.h"

#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/Image.h>
#include <Magnum/PixelFormat.h>

namespace VantrelEngine {

using namespace Magnum;

Float readDepth(GL::Framebuffer& framebuffer, const Range2Di& pixel) {
    if(!Math::intersects(pixel, framebuffer.viewport())) return 1.0f;
    const Image2D image = framebuffer.read(pixel, Image2D{PixelFormat::Depth32F});
    return image.pixels<Float>()[0][0];
}

} // namespace VantrelEngine
