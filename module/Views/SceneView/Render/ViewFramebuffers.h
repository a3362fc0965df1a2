#pragma once

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/Math/Vector2.h>

#include "Views/SceneView/ViewFrame.h"

namespace VantrelEngine {

// What the view is drawn into: a multisampled picture, what it is resolved to together with the objects' ids, and the
// mask of what is selected, multisampled and resolved.
class ViewFramebuffers {
public:
    // What the GL allows, and how many pixels it can be expected to find memory for: each takes about 50 bytes,
    // and as many again for a renderer that draws with bloom.
    static FramebufferLimits limits();

    // No GL objects.
    explicit ViewFramebuffers() = default;

    // Makes all of them again. Pixels, within limits(). Aborts where one is not complete: "Assertion
    // _framebufferMS.checkStatus(GL::FramebufferTarget::Draw) == GL::Framebuffer::Status::Complete failed at
    // Views/SceneView:...", or the same with _framebuffer, _selectionMaskFramebufferMS, _selectionMaskFramebuffer.
    void resize(const Magnum::Vector2i& size);
    // Zero before the first resize.
    const Magnum::Vector2i& size() const { return _size; }
    // Of video memory, in the formats that were asked for.
    Magnum::UnsignedLong bytes() const;

    Magnum::GL::Framebuffer& multisampled() { return _framebufferMS; }
    Magnum::GL::Framebuffer& resolved() { return _framebuffer; }
    Magnum::GL::Framebuffer& maskMultisampled() { return _selectionMaskFramebufferMS; }
    Magnum::GL::Framebuffer& mask() { return _selectionMaskFramebuffer; }

    Magnum::GL::Texture2D& color() { return _color; }
    Magnum::GL::Texture2D& objectIds() { return _objectIds; }
    Magnum::GL::Texture2D& maskTexture() { return _selectionMask; }

private:
    void createMultisampled();
    void createResolved();
    void createMaskMultisampled();
    void createMask();

    Magnum::Vector2i _size;
    Magnum::GL::Texture2D _color{Magnum::NoCreate};
    Magnum::GL::Texture2D _objectIds{Magnum::NoCreate};
    Magnum::GL::Texture2D _selectionMask{Magnum::NoCreate};
    Magnum::GL::Renderbuffer _colorMS{Magnum::NoCreate};
    Magnum::GL::Renderbuffer _depthMS{Magnum::NoCreate};
    Magnum::GL::Renderbuffer _depth{Magnum::NoCreate};
    Magnum::GL::Renderbuffer _selectionMaskMS{Magnum::NoCreate};
    Magnum::GL::Framebuffer _framebufferMS{Magnum::NoCreate};
    Magnum::GL::Framebuffer _framebuffer{Magnum::NoCreate};
    Magnum::GL::Framebuffer _selectionMaskFramebufferMS{Magnum::NoCreate};
    Magnum::GL::Framebuffer _selectionMaskFramebuffer{Magnum::NoCreate};
};

} // namespace VantrelEngine
