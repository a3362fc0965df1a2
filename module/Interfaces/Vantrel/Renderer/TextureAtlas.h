#pragma once

#include <cstddef>
#include <memory>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

struct SceneImage;
class WebGL2Renderer;

// The uncompressed images of a scene, side by side in the layers of a texture (one for colours, one for linear values, one
// for high dynamic range), each with its mip levels and with margins, so that textures may repeat and be filtered without
// a seam.
class CORRADE_VISIBILITY_EXPORT TextureAtlas {
public:
    ~TextureAtlas();
    TextureAtlas(const TextureAtlas&) = delete;
    TextureAtlas& operator=(const TextureAtlas&) = delete;

    // Images that were placed since the last WebGL2Renderer::clearImages().
    std::size_t textureCount() const;
    // Takes the image for the index-th of the uncompressed images that were reserved, counted in that order. It has to
    // stay where it is until WebGL2Renderer::prepareImages() places and uploads all of them. Does nothing where no image
    // was reserved, or without pixels: its textures are then white.
    void setImage(std::size_t index, const SceneImage& image);

private:
    friend WebGL2Renderer;
    struct State;
    explicit TextureAtlas(std::unique_ptr<State> state);

    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
