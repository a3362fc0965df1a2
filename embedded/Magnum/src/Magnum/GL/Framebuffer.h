#pragma once

#include <initializer_list>

#include "Magnum/GL/AbstractFramebuffer.h"
#include "Magnum/Tags.h"

namespace Magnum::GL {

// A framebuffer of textures and renderbuffers, which have to outlive its use.
class CORRADE_VISIBILITY_EXPORT Framebuffer: public AbstractFramebuffer {
public:
    class ColorAttachment {
    public:
        constexpr explicit ColorAttachment(UnsignedInt id): _attachment{GL_COLOR_ATTACHMENT0 + id} {}
        constexpr explicit operator GLenum() const { return _attachment; }

    private:
        GLenum _attachment;
    };

    // One of the color attachments, or of the constants.
    class BufferAttachment {
    public:
        static const BufferAttachment Depth;
        static const BufferAttachment Stencil;
        static const BufferAttachment DepthStencil;

        constexpr /*implicit*/ BufferAttachment(ColorAttachment attachment): _attachment{GLenum(attachment)} {}
        constexpr explicit operator GLenum() const { return _attachment; }

    private:
        constexpr explicit BufferAttachment(GLenum attachment): _attachment{attachment} {}
        GLenum _attachment;
    };

    // One of the color attachments, or none.
    class DrawAttachment {
    public:
        static const DrawAttachment None;

        constexpr /*implicit*/ DrawAttachment(ColorAttachment attachment): _attachment{GLenum(attachment)} {}
        constexpr explicit operator GLenum() const { return _attachment; }

    private:
        constexpr explicit DrawAttachment(GLenum attachment): _attachment{attachment} {}
        GLenum _attachment;
    };

    // An output of a fragment shader and where it goes.
    struct DrawMapping {
        UnsignedInt output;
        DrawAttachment attachment;
    };

    enum class Status : GLenum {
        Complete = GL_FRAMEBUFFER_COMPLETE,
        IncompleteAttachment = GL_FRAMEBUFFER_INCOMPLETE_ATTACHMENT,
        IncompleteMissingAttachment = GL_FRAMEBUFFER_INCOMPLETE_MISSING_ATTACHMENT,
        IncompleteDrawBuffer = GL_FRAMEBUFFER_INCOMPLETE_DRAW_BUFFER,
        IncompleteReadBuffer = GL_FRAMEBUFFER_INCOMPLETE_READ_BUFFER,
        Unsupported = GL_FRAMEBUFFER_UNSUPPORTED,
        IncompleteMultisample = GL_FRAMEBUFFER_INCOMPLETE_MULTISAMPLE,
        IncompleteLayerTargets = GL_FRAMEBUFFER_INCOMPLETE_LAYER_TARGETS
    };

    explicit Framebuffer(const Range2Di& viewport);
    explicit Framebuffer(NoCreateT) noexcept: AbstractFramebuffer{Implementation::ObjectName{}, {}} {}
    Framebuffer(Framebuffer&&) noexcept = default;
    Framebuffer& operator=(Framebuffer&&) noexcept = default;
    // If it was bound, the default framebuffer is bound instead.
    ~Framebuffer();

    UnsignedInt id() const { return _id; }
    Containers::String label() const;
    Framebuffer& setLabel(Containers::StringView label);

    // Renders into the attachment of that number; at first 0.
    Framebuffer& mapForDraw(DrawAttachment attachment);
    // Outputs that are not named go nowhere.
    Framebuffer& mapForDraw(std::initializer_list<DrawMapping> attachments);
    // What read() and blit() read; at first 0.
    Framebuffer& mapForRead(ColorAttachment attachment);

    Framebuffer& attachRenderbuffer(BufferAttachment attachment, Renderbuffer& renderbuffer);
    Framebuffer& attachTexture(BufferAttachment attachment, Texture2D& texture, Int level);
    Framebuffer& attachTextureLayer(BufferAttachment attachment, Texture2DArray& texture, Int level, Int layer);
    Framebuffer& attachCubeMapTexture(
        BufferAttachment attachment, CubeMapTexture& texture, CubeMapCoordinate coordinate, Int level);
    Framebuffer& detach(BufferAttachment attachment);

    Status checkStatus(FramebufferTarget target);

    // Fill a draw buffer with a value, of the type of the attachment. The scissor and the masks matter.
    Framebuffer& clearColor(Int drawBuffer, const Color4& color);
    Framebuffer& clearColor(Int drawBuffer, const Vector4i& color);
    Framebuffer& clearColor(Int drawBuffer, const Vector4ui& color);
    Framebuffer& clearDepth(Float depth);
    Framebuffer& clearStencil(Int stencil);
    Framebuffer& clearDepthStencil(Float depth, Int stencil);

    Framebuffer& setViewport(const Range2Di& rectangle) {
        AbstractFramebuffer::setViewport(rectangle);
        return *this;
    }
    Framebuffer& clear(FramebufferClearMask mask) {
        AbstractFramebuffer::clear(mask);
        return *this;
    }
};

inline constexpr Framebuffer::BufferAttachment Framebuffer::BufferAttachment::Depth{GL_DEPTH_ATTACHMENT};
inline constexpr Framebuffer::BufferAttachment Framebuffer::BufferAttachment::Stencil{GL_STENCIL_ATTACHMENT};
inline constexpr Framebuffer::BufferAttachment Framebuffer::BufferAttachment::DepthStencil{GL_DEPTH_STENCIL_ATTACHMENT};
inline constexpr Framebuffer::DrawAttachment Framebuffer::DrawAttachment::None{GL_NONE};

// "GL::Framebuffer::Status::Complete"
CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, Framebuffer::Status value);

}
