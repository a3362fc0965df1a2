#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/Implementation/ObjectName.h"
#include "Magnum/GL/OpenGL.h"
#include "Magnum/Math/Range.h"

namespace Magnum::GL {

enum class FramebufferTarget : UnsignedInt { Read = GL_READ_FRAMEBUFFER, Draw = GL_DRAW_FRAMEBUFFER };

enum class FramebufferClear : UnsignedInt {
    Color = GL_COLOR_BUFFER_BIT,
    Depth = GL_DEPTH_BUFFER_BIT,
    Stencil = GL_STENCIL_BUFFER_BIT
};
typedef Containers::EnumSet<FramebufferClear> FramebufferClearMask;
CORRADE_ENUMSET_OPERATORS(FramebufferClearMask)

enum class FramebufferBlit : UnsignedInt {
    Color = GL_COLOR_BUFFER_BIT,
    Depth = GL_DEPTH_BUFFER_BIT,
    Stencil = GL_STENCIL_BUFFER_BIT
};
typedef Containers::EnumSet<FramebufferBlit> FramebufferBlitMask;
CORRADE_ENUMSET_OPERATORS(FramebufferBlitMask)

enum class FramebufferBlitFilter : UnsignedInt { Nearest = GL_NEAREST, Linear = GL_LINEAR };

// What the framebuffer of the window and those of our own have in common. Only bind() and clear() change which
// framebuffer is drawn to; everything else leaves it alone.
class CORRADE_VISIBILITY_EXPORT AbstractFramebuffer {
public:
    // The largest viewport that there can be.
    static Vector2i maxViewportSize();

    // Copies a rectangle from the attachment that the source is mapped to read to those that the destination is mapped
    // to draw. Resolves when the source is multisampled and the destination is not.
    static void blit(AbstractFramebuffer& source, AbstractFramebuffer& destination, const Range2Di& rectangle,
        FramebufferBlitMask mask);
    // The same with scaling, which a multisampled source does not allow. Depth and stencil want the nearest filter.
    static void blit(AbstractFramebuffer& source, AbstractFramebuffer& destination, const Range2Di& sourceRectangle,
        const Range2Di& destinationRectangle, FramebufferBlitMask mask, FramebufferBlitFilter filter);

    // Makes it the one that is drawn to, with its viewport.
    void bind();
    Range2Di viewport() const { return _viewport; }
    // Takes effect at once when bound, else with the next bind().
    AbstractFramebuffer& setViewport(const Range2Di& rectangle);

    // Fills with the clear values of Renderer. Binds, without applying the viewport. The scissor and the masks matter.
    AbstractFramebuffer& clear(FramebufferClearMask mask);

    // Waits for the GPU and reads from the attachment mapped to read, in the format and layout of the image.
    // The size of a view has to be the size of the rectangle, which is asserted.
    void read(const Range2Di& rectangle, const MutableImageView2D& image);
    // The image gets the size of the rectangle. Its memory is kept if it is large enough.
    void read(const Range2Di& rectangle, Image2D& image);
    Image2D read(const Range2Di& rectangle, Image2D&& image);

protected:
    explicit AbstractFramebuffer(Implementation::ObjectName&& id, const Range2Di& viewport):
        _id{Utility::move(id)}, _viewport{viewport} {}
    AbstractFramebuffer(AbstractFramebuffer&&) noexcept = default;
    AbstractFramebuffer& operator=(AbstractFramebuffer&&) noexcept = default;
    ~AbstractFramebuffer() = default;

    Implementation::ObjectName _id;
    Range2Di _viewport;
};

}
