#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// A texture of the given format and size that is read texel by texel and repeats its edges.
Magnum::GL::Texture2D pictureTexture(
    Corrade::Containers::StringView label, Magnum::GL::TextureFormat format, const Magnum::Vector2i& size);

// Whether it can be drawn to; not where there was no memory for what is attached.
bool isComplete(Magnum::GL::Framebuffer& framebuffer);

// A framebuffer that is drawn to in place of another one: with a colour of its own, of four floats of 16 bits, and with
// the depth of the other one, sample by sample. What the other one had stays in front, and what is drawn here hides what
// is drawn there later.
class SideTarget {
public:
    // The label, of its objects in video memory, has to outlive it.
    explicit SideTarget(Corrade::Containers::StringView label): _label{label} {}

    // As large as the other one's viewport reaches, with as many samples. Binds itself, cleared to zero. Makes new
    // buffers only where size or samples are others than before. False where the GL has no such buffers, for want of
    // memory say: then nothing can be drawn here.
    //
    // Expects a framebuffer object, not that of a window, which keeps its depth: another depth needs another object, or
    // another size.
    bool begin(Magnum::GL::AbstractFramebuffer& other);

    // What was drawn since, with nothing left to blend at edges. Valid until the next begin().
    Magnum::GL::Texture2D& resolve();
    // The same, once resolved, into all of a framebuffer of another size.
    void copyTo(Magnum::GL::Framebuffer& other);

private:
    bool replace(Magnum::GL::AbstractFramebuffer& other, Magnum::Int id);
    void create(const Magnum::Vector2i& size, Magnum::Int samples);

    Corrade::Containers::StringView _label;
    // The name of the one whose depth this has; 0 for none.
    Magnum::Int _other = 0;
    Magnum::Vector2i _size;
    // Without multisampling the texture itself is drawn to.
    Magnum::Int _samples = 0;
    Magnum::GL::Renderbuffer _color{Magnum::NoCreate};
    Magnum::GL::Framebuffer _drawn{Magnum::NoCreate};
    Magnum::GL::Texture2D _texture{Magnum::NoCreate};
    Magnum::GL::Framebuffer _resolved{Magnum::NoCreate};
};

} // namespace VantrelEngine
