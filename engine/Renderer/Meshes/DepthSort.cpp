#include "Renderer/Meshes/DepthSort.h"

#include <cstring>
#include <utility>

#include <Corrade/Utility/Assert.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

constexpr UnsignedInt DigitBits = 11;
constexpr UnsignedInt DigitCount = 1 << DigitBits;

// Whole numbers in the order of the depths, the largest first.
UnsignedInt descending(Float depth) {
    // A zero with a sign is as far as one without.
    depth += 0.0f;
    UnsignedInt bits;
    std::memcpy(&bits, &depth, sizeof(bits));
    const UnsignedInt sign = 0x80000000u;
    const UnsignedInt ascending = bits & sign ? ~bits : bits | sign;
    return ~ascending;
}

} // namespace

void DepthSort::sort(Corrade::Containers::ArrayView<Id> slots) {
    CORRADE_ASSERT(_depths.size() == slots.size(), "DepthSort::sort(): expected" << slots.size() << "depths", );
    _entries.resize(slots.size());
    _sorted.resize(slots.size());
    for(std::size_t i = 0; i != slots.size(); ++i) _entries[i] = {descending(_depths[i]), slots[i]};

    for(UnsignedInt shift = 0; shift < 32; shift += DigitBits) {
        std::size_t starts[DigitCount + 1]{};
        for(const Entry& entry: _entries) ++starts[(entry.key >> shift) % DigitCount + 1];
        for(UnsignedInt i = 0; i != DigitCount; ++i) starts[i + 1] += starts[i];
        for(const Entry& entry: _entries) _sorted[starts[(entry.key >> shift) % DigitCount]++] = entry;
        std::swap(_entries, _sorted);
    }
    for(std::size_t i = 0; i != slots.size(); ++i) slots[i] = _entries[i].slot;
}

} // namespace VantrelEngine
