#include <Vantrel/Renderer/TextureAtlas.h>

#include "Renderer/Textures/TextureAtlasState.h"

namespace VantrelEngine {

TextureAtlas::TextureAtlas(std::unique_ptr<State> state): _state{std::move(state)} {}

TextureAtlas::~TextureAtlas() = default;

std::size_t TextureAtlas::textureCount() const { return _state->table.images().count(); }

void TextureAtlas::setImage(std::size_t index, const SceneImage& image) { _state->table.images().set(index, image); }

} // namespace VantrelEngine
