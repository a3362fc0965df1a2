#include "Renderer/Materials/MaterialBuffer.h"

#include <algorithm>
#include <cstring>

#include "Renderer/TextureUnits.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Of a scene's materials, the largest index is below.
constexpr Id LastCustom = NoComponent - 1;

bool isSame(const Vector4& a, const Vector4& b) { return !std::memcmp(&a, &b, sizeof(Vector4)); }

} // namespace

Id MaterialBuffer::addCustom() {
    _customs.emplace_back();
    rebuild(_stride, _sceneCount);
    return Id(LastCustom - (_customs.size() - 1));
}

std::size_t MaterialBuffer::row(Id index) const {
    if(index < _sceneCount) return index;
    const std::size_t custom = std::size_t(LastCustom) - index;
    return index <= LastCustom && custom < _customs.size() ? _sceneCount + custom : rowCount();
}

void MaterialBuffer::updateScene(Containers::ArrayView<const SceneMaterial> materials) {
    std::size_t stride = _stride;
    for(const SceneMaterial& material: materials) stride = std::max(stride, material.values.size());
    rebuild(stride, std::max<std::size_t>(materials.size(), 1));
    for(std::size_t i = 0; i != materials.size(); ++i) writeRow(i, materials[i]);
    upload();
}

void MaterialBuffer::update(Id index, const SceneMaterial& material) {
    const std::size_t place = row(index);
    if(place == rowCount()) return;
    if(material.values.size() > _stride) rebuild(material.values.size(), _sceneCount);
    if(place >= _sceneCount) _customs[place - _sceneCount] = material;
    writeRow(place, material);
    upload();
}

Vector4 MaterialBuffer::value(Id index, std::size_t parameter) const {
    const std::size_t place = row(index);
    return place == rowCount() || parameter >= _stride ? Vector4{} : _values[place * _stride + parameter];
}

void MaterialBuffer::writeRow(std::size_t row, const SceneMaterial& material) {
    _pipelines[row] = material.pipeline;
    Vector4* const values = _values.data() + row * _stride;
    std::fill_n(values, _stride, Vector4{});
    for(std::size_t i = 0; i != std::min(material.values.size(), _stride); ++i) {
        const bool isTexture = i < material.textures.size() && material.textures[i];
        values[i] = isTexture ? Vector4{Float(material.textures[i]), 0.0f, 0.0f, 0.0f} : material.values[i];
    }
}

// Makes the rows again, for another stride or another number of the scene's.
void MaterialBuffer::rebuild(std::size_t stride, std::size_t sceneCount) {
    _pipelines.resize(sceneCount + _customs.size());
    std::vector<Vector4> old = std::move(_values);
    _values.assign((sceneCount + _customs.size()) * stride, Vector4{});
    for(std::size_t row = 0; row != std::min(sceneCount, _sceneCount); ++row)
        for(std::size_t i = 0; i != std::min(stride, _stride) && row * _stride + i < old.size(); ++i)
            _values[row * stride + i] = old[row * _stride + i];
    _stride = stride;
    _sceneCount = sceneCount;
    for(std::size_t i = 0; i != _customs.size(); ++i) writeRow(_sceneCount + i, _customs[i]);
}

void MaterialBuffer::upload() {
    const bool isKept = _buffer.reserve(_values.size() * sizeof(Vector4)) && _uploaded.size() == _values.size();
    std::size_t first = 0, end = _values.size();
    if(isKept) {
        while(first != end && isSame(_values[first], _uploaded[first])) ++first;
        while(end != first && isSame(_values[end - 1], _uploaded[end - 1])) --end;
    }
    _buffer.write(first * sizeof(Vector4), vectorView(_values).slice(first, end));
    _uploaded.resize(_values.size());
    std::copy(_values.begin() + std::ptrdiff_t(first), _values.begin() + std::ptrdiff_t(end),
        _uploaded.begin() + std::ptrdiff_t(first));
}

void MaterialBuffer::bind() { _buffer.bind(TextureUnit::MaterialData); }

} // namespace VantrelEngine
