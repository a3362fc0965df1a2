#include "Renderer/Debug/TextureSheets.h"

#include <Magnum/GL/AbstractFramebuffer.h>
#include <Magnum/Math/Range.h>
#include <Vantrel/Renderer/RendererDebug.h>
#include <Vantrel/Renderer/RendererState.h>

#include "Renderer/Debug/SheetLayout.h"
#include "Renderer/Lights/ShadowMaps.h"
#include "Renderer/TextureUnits.h"
#include "Renderer/Textures/ImageStore.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// In the place of the next sheet, where there is one left.
void drawSheet(FullScreenProgram& program, GL::AbstractFramebuffer& target, const Range2Di& view, std::size_t& index) {
    const std::optional<Range2Di> place = sheetPlace(index++, view.size());
    if(!place) return;
    target.setViewport(place->translated(view.min()));
    program.draw();
}

}

TextureSheets::LayerProgram::LayerProgram():
    FullScreenProgram{"TextureSheet.frag"}, _layerUniform{uniformLocation("layer")}, _lightUniform{
                                                                                         uniformLocation("isLight")} {}

TextureSheets::LayerProgram& TextureSheets::LayerProgram::setLayer(Int layer) {
    setUniform(_layerUniform, layer);
    return *this;
}

TextureSheets::LayerProgram& TextureSheets::LayerProgram::setLight(bool isLight) {
    setUniform(_lightUniform, Int(isLight));
    return *this;
}

TextureSheets::TextureSheets(): _depths{"DepthSheet.frag"} {
    _depths.setTextureUnit("depths", TextureUnit::ShadowMaps);
}

void TextureSheets::draw(
    GL::AbstractFramebuffer& target, const RendererDebug& debug, const ImageStore& images, ShadowMaps& shadows) {
    RendererState state;
    state.depthTest = state.depthWrite = state.faceCulling = false;
    state.apply();
    const Range2Di view = target.viewport();
    target.bind();
    std::size_t index = 0;
    if(debug.textureAtlas) drawLayers(target, view, images, index);
    if(debug.shadowAtlas && !shadows.isEmpty()) {
        shadows.setComparing(false);
        drawSheet(_depths, target, view, index);
        shadows.setComparing(true);
    }
    target.setViewport(view);
    RendererState{}.apply();
}

void TextureSheets::drawLayers(
    GL::AbstractFramebuffer& target, const Range2Di& view, const ImageStore& images, std::size_t& index) {
    constexpr Int Units[]{TextureUnit::ColorTextures, TextureUnit::DataTextures, TextureUnit::FloatTextures};
    for(const ImageStore::Kind kind: {ImageStore::Color, ImageStore::Data, ImageStore::Float}) {
        _layers.setTextureUnit("layers", Units[kind]);
        _layers.setLight(kind != ImageStore::Data);
        for(Int layer = 0; layer != images.layerCount(kind); ++layer)
            drawSheet(_layers.setLayer(layer), target, view, index);
    }
}

} // namespace VantrelEngine
