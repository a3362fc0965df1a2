#pragma once

#include <array>
#include <cstdint>

namespace VantrelEngine {

// How many meshes have each flag of a layout, so that the flags of all together are known without looking at them.
class MeshLayoutCounts {
public:
    void add(std::uint32_t flags) {
        for(std::size_t i = 0; i != _counts.size(); ++i) _counts[i] += flags >> i & 1;
    }
    // Expects flags that were added.
    void remove(std::uint32_t flags) {
        for(std::size_t i = 0; i != _counts.size(); ++i) _counts[i] -= flags >> i & 1;
    }

    std::uint32_t flags() const {
        std::uint32_t flags = 0;
        for(std::size_t i = 0; i != _counts.size(); ++i) flags |= std::uint32_t{_counts[i] != 0} << i;
        return flags;
    }

private:
    std::array<std::uint32_t, 8> _counts{};
};

} // namespace VantrelEngine
