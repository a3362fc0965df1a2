#include "Views/SceneView/ObjectIdReadback.h"

#include <bitset>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/DynamicSceneGraph.h>

#include "Views/SceneView/ViewFrame.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Where a mouse is that is nowhere, too.
Int whole(Float coordinate) { return Int(Math::clamp(coordinate, -1.0e6f, 1.0e6f)); }

}

Range2Di pixelBelow(const Vector2i& point, const ViewFrame& frame) {
    const Vector2 place = Vector2{point} - Vector2{frame.origin};
    const Vector2i pixel{whole(place.x() * frame.pixelsPerPoint.x()),
        whole(frame.framebufferSize.y() - place.y() * frame.pixelsPerPoint.y() - 1.0f)};
    return Range2Di::fromSize(pixel, Vector2i{1});
}

std::vector<Id> objectsNamedBy(Containers::ArrayView<const char> pixels, const DynamicSceneGraph& scene) {
    std::vector<Id> objects;
    std::bitset<NoObject + 1> seen;
    UnsignedInt last = NoObject;
    for(const UnsignedInt pixel: Containers::arrayCast<const UnsignedInt>(pixels)) {
        const UnsignedInt id = pixel & 0xffff;
        // Neighbours mostly show the same.
        if(id == last) continue;
        last = id;
        if(seen[id]) continue;
        seen[id] = true;
        if(scene.isValid(Id(id))) objects.push_back(Id(id));
    }
    return objects;
}

std::vector<Id> readObjectIds(GL::Framebuffer& framebuffer, const Range2Di& rectangle, const DynamicSceneGraph& scene) {
    const Range2Di seen = Math::intersect(rectangle, framebuffer.viewport());
    if(!seen.size().product()) return {};
    framebuffer.mapForRead(GL::Framebuffer::ColorAttachment{ObjectIdAttachment});
    const Image2D image = framebuffer.read(seen, Image2D{PixelFormat::RGBA8Unorm});
    framebuffer.mapForRead(GL::Framebuffer::ColorAttachment{PictureAttachment});
    return objectsNamedBy(image.data(), scene);
}

} // namespace VantrelEngine
