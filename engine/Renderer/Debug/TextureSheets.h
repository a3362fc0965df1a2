#pragma once

#include <cstddef>

#include <Magnum/GL/GL.h>

#include "Renderer/PostProcess/FullScreenProgram.h"

namespace VantrelEngine {

class ImageStore;
class ShadowMaps;
struct RendererDebug;

// Lays the textures of a renderer over a view's picture, one beside the other: see sheetPlace().
class TextureSheets {
public:
    explicit TextureSheets();

    // Those that are asked for. Expects that they are bound to their units.
    void draw(Magnum::GL::AbstractFramebuffer& target, const RendererDebug& debug, const ImageStore& images,
        ShadowMaps& shadows);

private:
    class LayerProgram: public FullScreenProgram {
    public:
        explicit LayerProgram();
        LayerProgram& setLayer(Magnum::Int layer);
        LayerProgram& setLight(bool isLight);

    private:
        Magnum::Int _layerUniform, _lightUniform;
    };

    void drawLayers(Magnum::GL::AbstractFramebuffer& target, const Magnum::Range2Di& view, const ImageStore& images,
        std::size_t& index);

    LayerProgram _layers;
    FullScreenProgram _depths;
};

} // namespace VantrelEngine
