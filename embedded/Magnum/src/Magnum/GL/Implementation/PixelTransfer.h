#pragma once

#include "Magnum/GL/GL.h"
#include "Magnum/GL/OpenGL.h"

namespace Magnum::GL::Implementation {

// The arguments of glReadPixels(), glTexSubImage2D() and the like.
struct PixelTransfer {
    GLenum format;
    GLenum type;
};

// For pixels in memory. Images check their formats, so the format is a valid one.
PixelTransfer pixelTransfer(PixelFormat format);

// Some transfer that GL accepts for an internal format: to define an image without data.
PixelTransfer pixelTransfer(TextureFormat format);

// Gives the image this size, keeping format and storage, and the memory if there is enough of it.
void resizeImage(Image2D& image, const Vector2i& size);

}
