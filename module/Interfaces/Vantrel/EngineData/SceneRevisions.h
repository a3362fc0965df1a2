#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace VantrelEngine {

// What of a scene a renderer keeps a copy of, and makes again when it changed.
enum class Aspect : std::uint8_t {
    Settings,
    Lights,
    Images,
    Textures,
    // The two inputs of the pipelines.
    Shaders,
    Pipelines,
    // The two inputs of the batches: which meshes there are, and what is in them.
    Meshes,
    MeshData,
    Draws,
    Materials,
    Fonts
};
constexpr std::size_t AspectCount = 11;

// One revision of the whole, and a counter for each aspect. An aspect changed where its counter differs from the
// revision that the reader saw last; who has read everything calls acknowledge() and remembers the revision.
class SceneRevisions {
public:
    std::uint32_t revision() const { return _revision; }
    std::uint32_t counter(Aspect aspect) const { return _counters[std::size_t(aspect)]; }
    std::uint32_t& counter(Aspect aspect) { return _counters[std::size_t(aspect)]; }

    // Something changed that is no aspect of its own, such as where an object stands.
    void touch() { ++_revision; }
    void touch(Aspect aspect) { counter(aspect) = ++_revision; }

    // Writes the revision into every counter.
    void acknowledge() { _counters.fill(_revision); }

private:
    std::uint32_t _revision = 0;
    std::array<std::uint32_t, AspectCount> _counters{};
};

} // namespace VantrelEngine
