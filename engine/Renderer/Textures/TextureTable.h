#pragma once

#include <vector>

#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/BufferTexture.h>

#include "Renderer/Textures/ImageStore.h"
#include "Renderer/Textures/TextureNeed.h"

namespace VantrelEngine {

struct SceneTexture;

// The textures of a scene for shaders, by their indices there: Textures.glsl reads what this writes.
class TextureTable {
public:
    // Needs a GL context.
    explicit TextureTable();

    ImageStore& images() { return _images; }
    const ImageStore& images() const { return _images; }

    // All textures and images.
    void clear();
    // White where the image, by its index in the scene, cannot be had.
    void setTexture(const SceneTexture& texture, Id image);
    // After all images and textures were set.
    void prepare();

    // Of a texture as it is since prepare(), by its index in the scene.
    TextureNeeds needs(Id texture) const;

    // All that Textures.glsl needs, to its units.
    void bind();

private:
    struct Texture {
        Id image = 0;
        bool hasMipLevels = false;
        // In the bits of Textures.glsl, but for the kind of the image.
        Magnum::UnsignedInt sampling = 0;
    };

    void keepShownImages();

    ImageStore _images;
    // By the scene's index.
    std::vector<Texture> _textures;
    Magnum::GL::Buffer _buffer;
    Magnum::GL::BufferTexture _table;
};

} // namespace VantrelEngine
