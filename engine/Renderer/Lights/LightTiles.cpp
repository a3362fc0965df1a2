#include "Renderer/Lights/LightTiles.h"

#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Vector4.h>

#include "Renderer/Lights/LightBuffer.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr std::size_t BitsPerWord = 32;

Vector4 normalized(const Vector4& plane) {
    const Float length = plane.xyz().length();
    return length > 0.0f ? plane / length : plane;
}

Int tileCount(Int size) { return (size + LightTileSize - 1) / LightTileSize; }

// A light in the words of the tiles along one axis: those that its sphere reaches into.
class TileMarker {
public:
    explicit TileMarker(const LightRecord& light, std::size_t index, std::size_t wordsPerTile):
        _place{light.positionAndConeFactor.xyz(), 1.0f}, _reach{light.incomingAndReach.w()}, _word{index / BitsPerWord},
        _bit{1u << index % BitsPerWord}, _wordsPerTile{wordsPerTile} {
        // A sun is everywhere.
        if(_reach < 0.0f) _reach = Constants::inf();
    }

    bool isBehindCamera(const Matrix4& toClip) const {
        return Math::dot(normalized(toClip.row(3) + toClip.row(2)), _place) < -_reach;
    }

    void mark(const Matrix4& toClip, std::size_t axis, Int size, UnsignedInt* words) const {
        for(Int tile = 1; tile != tileCount(size); ++tile, words += _wordsPerTile) {
            const Float distance = distanceFrom(toClip, axis, tile, size);
            // Some of it is before the plane.
            if(distance <= _reach) words[_word] |= _bit;
            // None of it is beyond.
            if(distance < -_reach) return;
        }
        words[_word] |= _bit;
    }

private:
    // From the plane through the camera where the tile begins, positive to the right or above.
    Float distanceFrom(const Matrix4& toClip, std::size_t axis, Int tile, Int size) const {
        const Float edge = 2.0f * Float(tile * LightTileSize) / Float(size) - 1.0f;
        return Math::dot(normalized(toClip.row(axis) - toClip.row(3) * edge), _place);
    }

    Vector4 _place;
    Float _reach;
    std::size_t _word;
    UnsignedInt _bit;
    std::size_t _wordsPerTile;
};

} // namespace

void markLights(const std::vector<LightRecord>& lights, const Matrix4& toClip, const Vector2i& size,
    std::vector<UnsignedInt>& words) {
    const std::size_t wordsPerTile = (lights.size() + BitsPerWord - 1) / BitsPerWord;
    const auto columns = std::size_t(tileCount(size.x())), rows = std::size_t(tileCount(size.y()));
    words.assign((columns + rows) * wordsPerTile, 0);
    for(std::size_t i = 0; i != lights.size(); ++i) {
        const TileMarker marker{lights[i], i, wordsPerTile};
        if(marker.isBehindCamera(toClip)) continue;
        marker.mark(toClip, 0, size.x(), words.data());
        marker.mark(toClip, 1, size.y(), words.data() + columns * wordsPerTile);
    }
}

} // namespace VantrelEngine
