#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/ImageView.h>
#include <Magnum/Magnum.h>

namespace VantrelEngine {

class WebGL2Renderer;

// The compressed images of a scene as tiles that are known by a hash of their contents, of which those that are seen are
// kept in video memory.
class CORRADE_VISIBILITY_EXPORT TileStackTextureAtlas {
public:
    struct Statistics {
        std::size_t tilesToAdd = 0;
        std::size_t tilesActive = 0;
        std::size_t tilesLocked = 0;
        std::size_t tilesToRemove = 0;
        std::size_t tilesToUpload = 0;
        std::size_t cacheCapacity = 0;
        std::size_t compactListSize = 0;
    };

    ~TileStackTextureAtlas();
    TileStackTextureAtlas(const TileStackTextureAtlas&) = delete;
    TileStackTextureAtlas& operator=(const TileStackTextureAtlas&) = delete;

    // The tile of this hash, ~0 where no reserved image has it.
    Magnum::UnsignedInt tileIndex(std::uint64_t hash) const;
    void uploadTile(Magnum::UnsignedInt tile, const Magnum::CompressedImageView2D& image);
    // A locked tile stays whether it is seen or not.
    void setTileLocked(Magnum::UnsignedInt tile, bool locked);

    Statistics statistics() const;

private:
    friend WebGL2Renderer;
    struct State;
    explicit TileStackTextureAtlas(std::unique_ptr<State> state);

    std::unique_ptr<State> _state;
};

} // namespace VantrelEngine
