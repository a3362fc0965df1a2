#include "Views/SceneView/Render/ViewFramebuffers.h"

#include <algorithm>

#include <Corrade/Containers/StringView.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/GL/TextureFormat.h>

#include "Utils/Assert.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr Int Samples = 4;

// As made below: what is multisampled, and what it is resolved to with one more depth.
constexpr UnsignedLong BytesOfPixel = Samples * (4 + 4 + 1) + 4 + 4 + 3 + 1;

// A screen of 7680 by 4320 is within it.
constexpr Long MaxPixels = 32 * 1024 * 1024;

GL::Framebuffer framebuffer(const Vector2i& size, Containers::StringView label) {
    GL::Framebuffer result{{{}, size}};
    result.setLabel(label);
    return result;
}

GL::Texture2D texture(GL::TextureFormat format, const Vector2i& size, Containers::StringView label) {
    GL::Texture2D result;
    result.setLabel(label);
    result.setMinificationFilter(SamplerFilter::Linear)
        .setMagnificationFilter(SamplerFilter::Nearest)
        .setWrapping(SamplerWrapping::ClampToEdge)
        .setStorage(1, format, size);
    return result;
}

GL::Renderbuffer renderbuffer(
    Int samples, GL::RenderbufferFormat format, const Vector2i& size, Containers::StringView label) {
    GL::Renderbuffer result;
    result.setLabel(label);
    if(samples)
        result.setStorageMultisample(samples, format, size);
    else
        result.setStorage(format, size);
    return result;
}

}

FramebufferLimits ViewFramebuffers::limits() {
    // The library does not tell it.
    GLint renderbufferEdge = 0;
    glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &renderbufferEdge);
    return {
        std::min({GL::Texture2D::maxSize().min(), GL::AbstractFramebuffer::maxViewportSize().min(), renderbufferEdge}),
        MaxPixels};
}

void ViewFramebuffers::resize(const Vector2i& size) {
    // The old ones go first, so that there never is twice the memory.
    *this = ViewFramebuffers{};
    _size = size;
    createMultisampled();
    createResolved();
    createMaskMultisampled();
    createMask();
}

UnsignedLong ViewFramebuffers::bytes() const { return UnsignedLong(_size.product()) * BytesOfPixel; }

void ViewFramebuffers::createMultisampled() {
    _framebufferMS = framebuffer(_size, "SceneView FB MSAA");
    _colorMS = renderbuffer(Samples, GL::RenderbufferFormat::RGBA8, _size, "SceneView FB MSAA color");
    _depthMS = renderbuffer(Samples, GL::RenderbufferFormat::Depth24Stencil8, _size, "SceneView FB MSAA depth");
    _framebufferMS.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _colorMS)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, _depthMS);
    VANTREL_ASSERT(_framebufferMS.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete,
        "Views/SceneView", 1478);
}

void ViewFramebuffers::createResolved() {
    _framebuffer = framebuffer(_size, "SceneView FB");
    _color = texture(GL::TextureFormat::RGBA8, _size, "SceneView FB color");
    _depth = renderbuffer(0, GL::RenderbufferFormat::Depth24Stencil8, _size, "SceneView FB depth");
    _framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{PictureAttachment}, _color, 0)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::DepthStencil, _depth);
    // A GL need not render to three channels; then there are four.
    for(const GL::TextureFormat format: {GL::TextureFormat::RGB8, GL::TextureFormat::RGBA8}) {
        _objectIds = texture(format, _size, "SceneView FB object id");
        _framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{ObjectIdAttachment}, _objectIds, 0);
        if(_framebuffer.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete) break;
    }
    VANTREL_ASSERT(_framebuffer.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete,
        "Views/SceneView", 1506);
}

void ViewFramebuffers::createMaskMultisampled() {
    _selectionMaskFramebufferMS = framebuffer(_size, "SceneView selection mask FB MSAA");
    _selectionMaskMS =
        renderbuffer(Samples, GL::RenderbufferFormat::R8, _size, "SceneView selection mask FB MSAA texture");
    _selectionMaskFramebufferMS.attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _selectionMaskMS);
    VANTREL_ASSERT(
        _selectionMaskFramebufferMS.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete,
        "Views/SceneView", 1522);
}

void ViewFramebuffers::createMask() {
    _selectionMaskFramebuffer = framebuffer(_size, "SceneView selection mask FB");
    _selectionMask = texture(GL::TextureFormat::R8, _size, "SceneView selection mask FB texture");
    _selectionMaskFramebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, _selectionMask, 0);
    VANTREL_ASSERT(
        _selectionMaskFramebuffer.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete,
        "Views/SceneView", 1538);
}

} // namespace VantrelEngine
