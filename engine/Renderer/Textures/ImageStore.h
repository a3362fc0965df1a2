#pragma once

#include <cstddef>
#include <vector>

#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector4.h>
#include <Vantrel/EngineData/Types.h>

#include "Renderer/Textures/LayerPacking.h"
#include "Renderer/Textures/TextureLayers.h"

namespace VantrelEngine {

struct SceneImage;

// Images in video memory, with all their mip levels. Each level has a rectangle of its own, with a margin of one texel
// that holds the opposite edge, so that there is no seam however it is sampled.
//
// They are reserved and set first, then all are placed at once.
class ImageStore {
public:
    // Colours in the sRGB curve, linear values of 8 bits, and floats of 16 bits.
    enum Kind : std::size_t { Color, Data, Float };
    static constexpr std::size_t KindCount = 3;

    // Offset of the first texel; layer; width, and height times 65536.
    typedef Magnum::Math::Vector4<Magnum::UnsignedInt> LevelRecord;

    // Consecutive records from the largest on; none where the image has no pixels or no place.
    struct Levels {
        std::size_t first = 0;
        std::size_t count = 0;
        Kind kind = Color;
    };

    // Needs a GL context.
    explicit ImageStore();

    // Texels of a layer, as far as the GL can have that. Some more are added for the margins. With images, counts from
    // the next clear() on.
    void setLayerSize(const Magnum::Vector2i& size);

    // Video memory is kept for what comes next.
    void clear();
    // False, and a line, where there is no room or nothing to store.
    bool reserve(Id image, const Magnum::Vector2i& size);
    // By order of the reservations; nothing where there is none. The image has to stay where it is until prepare().
    void set(std::size_t index, const SceneImage& image);
    // Images that were set since clear().
    std::size_t count() const { return _count; }

    // Takes back what was set but for some, by the index that they were reserved for; those beyond the end go, too.
    void keepOnly(const std::vector<bool>& kept);
    // Makes the mip levels and uploads them: once, when all are set. One that is larger than a layer is made
    // smaller, with a line. Costs a pass over all texels.
    void prepare();
    const std::vector<LevelRecord>& records() const { return _records; }
    // Of an image by the index that it was reserved for.
    Levels levels(Id image) const;

    // Of what was prepared last.
    Magnum::Int layerCount(Kind kind) const { return _layers[kind].size().z(); }
    // To the units of the kinds.
    void bind();

private:
    struct Image {
        Magnum::Vector2i size;
        // How often it has to be halved to fit into a layer.
        Magnum::Int halvings = 0;
        const SceneImage* image = nullptr;
        Levels levels;
    };

    Magnum::Vector2i paddedLayerSize() const;
    Magnum::Int maximumLayerCount() const;
    void placeAll(Kind kind);
    // Where to: a place a level.
    void upload(Image& image, const LayerPacking::Place* places);

    const Magnum::Vector3i _maximum;
    Magnum::Vector2i _layerSize, _nextLayerSize;
    std::size_t _reservedTexels = 0;
    std::size_t _count = 0;
    std::vector<Image> _images;
    // By the scene's index, plus one.
    std::vector<std::size_t> _positions;
    std::vector<LevelRecord> _records;
    TextureLayers _layers[KindCount];
};

} // namespace VantrelEngine
