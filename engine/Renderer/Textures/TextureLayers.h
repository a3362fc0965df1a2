#pragma once

#include <cstddef>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/Optional.h>
#include <Magnum/GL/TextureArray.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

// Layers of texels of one format, in video memory.
class TextureLayers {
public:
    // Texels along the edges, and layers, that the GL can have.
    static Magnum::Vector3i maximumSize();

    explicit TextureLayers(Magnum::GL::TextureFormat format, Magnum::Int unit): _format{format}, _unit{unit} {}

    // Nothing for a size of zero. Kept where the size is the same; the contents are undefined.
    void resize(const Magnum::Vector3i& size);
    // Texels, and layers.
    const Magnum::Vector3i& size() const { return _size; }
    // Expects that the rectangle, of the size of the texels, is in the layer.
    void write(const Magnum::Range2Di& rectangle, Magnum::Int layer,
        Corrade::Containers::ArrayView<const Magnum::Color4ub> texels);
    void write(const Magnum::Range2Di& rectangle, Magnum::Int layer,
        Corrade::Containers::ArrayView<const Magnum::Color4> texels);
    // To the unit.
    void bind();

private:
    void write(const Magnum::Range2Di& rectangle, Magnum::Int layer, const void* texels, Magnum::UnsignedInt type);

    const Magnum::GL::TextureFormat _format;
    const Magnum::Int _unit;
    Corrade::Containers::Optional<Magnum::GL::Texture2DArray> _texture;
    Magnum::Vector3i _size;
};

} // namespace VantrelEngine
