#include "Renderer/Textures/TextureTable.h"

#include <algorithm>

#include <Magnum/GL/BufferTextureFormat.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Renderer/TextureUnits.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

typedef ImageStore::LevelRecord Record;

// As in Textures.glsl.
constexpr UnsignedInt Mirrors = 1, Clamps = 2, IsNearest = 4, MixesLevels = 8;
constexpr UnsignedInt KindShift = 4;

UnsignedInt samplingOf(const SceneTexture& texture) {
    UnsignedInt sampling = 0;
    if(texture.wrapping == SamplerWrapping::MirroredRepeat) sampling |= Mirrors;
    if(texture.wrapping == SamplerWrapping::ClampToEdge) sampling |= Clamps;
    if(texture.filter == SamplerFilter::Nearest) sampling |= IsNearest;
    if(texture.mipmap == SamplerMipmap::Linear) sampling |= MixesLevels;
    return sampling;
}

} // namespace

TextureTable::TextureTable() {
    prepare();
    _table.setBuffer(GL::BufferTextureFormat::RGBA32UI, _buffer).setLabel("Renderer textures");
    _buffer.setLabel("Renderer textures");
}

void TextureTable::clear() {
    _images.clear();
    _textures.clear();
}

void TextureTable::setTexture(const SceneTexture& texture, Id image) {
    const Id index = texture.header.texture;
    if(_textures.size() <= index) _textures.resize(index + 1u);
    _textures[index] = {image, texture.mipmap != SamplerMipmap::Base, samplingOf(texture)};
}

// What no texture shows, such as the surroundings of a scene, takes no room.
void TextureTable::keepShownImages() {
    std::vector<bool> isShown;
    for(const Texture& texture: _textures) {
        if(isShown.size() <= texture.image) isShown.resize(texture.image + 1u);
        isShown[texture.image] = true;
    }
    _images.keepOnly(isShown);
}

void TextureTable::prepare() {
    keepShownImages();
    _images.prepare();
    // The first is no texture.
    const std::size_t count = std::max(_textures.size(), std::size_t{1});
    std::vector<Record> records(count);
    for(std::size_t i = 1; i < _textures.size(); ++i) {
        const Texture& texture = _textures[i];
        const ImageStore::Levels levels = _images.levels(texture.image);
        if(!levels.count) continue;
        records[i] = {UnsignedInt(count + levels.first), UnsignedInt(texture.hasMipLevels ? levels.count : 1),
            texture.sampling | UnsignedInt(levels.kind) << KindShift, _images.records()[levels.first].w()};
    }
    records[0] = {UnsignedInt(count), 0, 0, 0};
    records.insert(records.end(), _images.records().begin(), _images.records().end());
    _buffer.setData(Containers::ArrayView<const Record>{records.data(), records.size()}, GL::BufferUsage::StaticDraw);
}

TextureNeeds TextureTable::needs(Id texture) const {
    const ImageStore::Levels levels =
        texture < _textures.size() ? _images.levels(_textures[texture].image) : ImageStore::Levels{};
    return TextureNeeds(TextureNeed::Any | (levels.count ? TextureNeed::Color << levels.kind : 0));
}

void TextureTable::bind() {
    _table.bind(TextureUnit::TextureTable);
    _images.bind();
}

} // namespace VantrelEngine
