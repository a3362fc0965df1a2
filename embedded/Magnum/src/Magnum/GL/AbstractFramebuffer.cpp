#include "Magnum/GL/AbstractFramebuffer.h"

#include "Corrade/Utility/Assert.h"
#include "Magnum/GL/Implementation/PixelTransfer.h"
#include "Magnum/GL/Implementation/State.h"
#include "Magnum/Image.h"
#include "Magnum/ImageView.h"

namespace Magnum::GL {

using Implementation::state;

Vector2i AbstractFramebuffer::maxViewportSize() {
    GLint size[2]{};
    glGetIntegerv(GL_MAX_VIEWPORT_DIMS, size);
    return {size[0], size[1]};
}

void AbstractFramebuffer::blit(AbstractFramebuffer& source, AbstractFramebuffer& destination, const Range2Di& rectangle,
    FramebufferBlitMask mask) {
    blit(source, destination, rectangle, rectangle, mask, FramebufferBlitFilter::Nearest);
}

void AbstractFramebuffer::blit(AbstractFramebuffer& source, AbstractFramebuffer& destination,
    const Range2Di& sourceRectangle, const Range2Di& destinationRectangle, FramebufferBlitMask mask,
    FramebufferBlitFilter filter) {
    state().bindReadFramebuffer(source._id);
    Implementation::DrawFramebufferScope scope{destination._id};
    glBlitFramebuffer(sourceRectangle.left(), sourceRectangle.bottom(), sourceRectangle.right(), sourceRectangle.top(),
        destinationRectangle.left(), destinationRectangle.bottom(), destinationRectangle.right(),
        destinationRectangle.top(), UnsignedInt(mask), GLenum(filter));
}

void AbstractFramebuffer::bind() {
    state().bindDrawFramebuffer(_id);
    state().setViewport(_viewport);
}

AbstractFramebuffer& AbstractFramebuffer::setViewport(const Range2Di& rectangle) {
    _viewport = rectangle;
    if(state().drawFramebuffer == _id) state().setViewport(rectangle);
    return *this;
}

AbstractFramebuffer& AbstractFramebuffer::clear(FramebufferClearMask mask) {
    state().bindDrawFramebuffer(_id);
    glClear(UnsignedInt(mask));
    return *this;
}

void AbstractFramebuffer::read(const Range2Di& rectangle, const MutableImageView2D& image) {
    CORRADE_ASSERT(
        image.data().data() || !image.size().product(), "GL::AbstractFramebuffer::read(): image view is nullptr", );
    CORRADE_ASSERT(image.size() == rectangle.size(),
        "GL::AbstractFramebuffer::read(): expected image view size" << rectangle.size() << "but got" << image.size(), );
    state().bindReadFramebuffer(_id);
    state().usePackStorage(image.storage());
    const Implementation::PixelTransfer transfer = Implementation::pixelTransfer(image.format());
    glReadPixels(rectangle.left(), rectangle.bottom(), image.size().x(), image.size().y(), transfer.format,
        transfer.type, image.data().data());
}

void AbstractFramebuffer::read(const Range2Di& rectangle, Image2D& image) {
    Implementation::resizeImage(image, rectangle.size());
    read(rectangle, MutableImageView2D{image});
}

Image2D AbstractFramebuffer::read(const Range2Di& rectangle, Image2D&& image) {
    read(rectangle, image);
    return Utility::move(image);
}

}
