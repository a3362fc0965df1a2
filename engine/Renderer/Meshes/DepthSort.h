#pragma once

#include <cstddef>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Magnum.h>
#include <Vantrel/EngineData/Types.h>

namespace VantrelEngine {

// Orders slots from the farthest to the nearest. Linear; where two are equally far, they stay in their order. Memory is
// used again.
class DepthSort {
public:
    // By number in the list: how far it is, any number.
    std::vector<Magnum::Float>& depths() { return _depths; }

    // Expects as many depths as slots.
    void sort(Corrade::Containers::ArrayView<Id> slots);

private:
    struct Entry {
        Magnum::UnsignedInt key;
        Id slot;
    };

    std::vector<Magnum::Float> _depths;
    std::vector<Entry> _entries, _sorted;
};

} // namespace VantrelEngine
