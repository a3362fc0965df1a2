#include "Renderer/Lights/LightTileBuffer.h"

#include <utility>

#include "Renderer/Lights/LightTiles.h"
#include "Renderer/TextureUnits.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Magnum;

std::size_t LightTileBuffer::update(
    const std::vector<LightRecord>& lights, const Matrix4& toClip, const Vector2i& size) {
    markLights(lights, toClip, size, _next);
    if(_next == _words) return 0;
    std::swap(_words, _next);
    _buffer.reserve(_words.size() * sizeof(UnsignedInt));
    _buffer.write(0, vectorView(std::as_const(_words)));
    return _words.size() * sizeof(UnsignedInt);
}

void LightTileBuffer::bind() { _buffer.bind(TextureUnit::LightTiles); }

} // namespace VantrelEngine
