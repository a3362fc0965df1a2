#include "Renderer/Textures/TileStackTextureAtlasState.h"

#include <Corrade/Utility/Debug.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr UnsignedInt NoTile = ~UnsignedInt{};

} // namespace

bool TileStackTextureAtlas::State::refuse() {
    if(!isRefusalSaid) Utility::Warning{} << "TileStackTextureAtlas: compressed images are not drawn yet, but white";
    isRefusalSaid = true;
    return false;
}

TileStackTextureAtlas::TileStackTextureAtlas(std::unique_ptr<State> state): _state{std::move(state)} {}

TileStackTextureAtlas::~TileStackTextureAtlas() = default;

UnsignedInt TileStackTextureAtlas::tileIndex(std::uint64_t) const { return NoTile; }

void TileStackTextureAtlas::uploadTile(UnsignedInt, const CompressedImageView2D&) {}

void TileStackTextureAtlas::setTileLocked(UnsignedInt, bool) {}

TileStackTextureAtlas::Statistics TileStackTextureAtlas::statistics() const { return {}; }

} // namespace VantrelEngine
