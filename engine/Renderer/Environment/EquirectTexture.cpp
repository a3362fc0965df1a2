#include "Renderer/Environment/EquirectTexture.h"

#include <Magnum/GL/Context.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Sampler.h>

namespace VantrelEngine {

using namespace Magnum;

GL::Texture2D equirectTexture(Int levels, const Vector2i& size) {
    GL::Texture2D texture;
    texture.setMinificationFilter(SamplerFilter::Linear, SamplerMipmap::Nearest)
        .setMagnificationFilter(SamplerFilter::Linear)
        .setWrapping(SamplerWrapping::Repeat)
        .setStorage(levels, GL::TextureFormat::RGBA16F, size);
    // The library sets both directions alike. Any unit does.
    GL::Context::current().resetState(GL::Context::State::EnterExternal);
    glBindTexture(GL_TEXTURE_2D, texture.id());
    glTexParameteri(GL_TEXTURE_2D, GL_TEXTURE_WRAP_T, GL_CLAMP_TO_EDGE);
    GL::Context::current().resetState(GL::Context::State::Textures);
    return texture;
}

} // namespace VantrelEngine
