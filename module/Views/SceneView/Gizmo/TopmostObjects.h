#pragma once

#include <array>
#include <vector>

#include <Vantrel/EngineData/BitSetView.h>
#include <Vantrel/EngineData/DynamicSceneGraph.h>

namespace VantrelEngine {

// Of a set of objects those that have no ancestor in it, in index order: what has to be moved so that all of them move
// once. Costs a step for each object of the set and for every 64 objects of the scene, and no memory once as many were
// found.
class TopmostObjects {
public:
    // Valid until the next search. The root and what is no object is passed over.
    const std::vector<Id>& find(const DynamicSceneGraph& scene, BitSetView set);

private:
    // By index.
    std::array<Magnum::UnsignedLong, BitSetView::wordCount(MaxObjects + 1)> _words{};
    std::vector<Id> _objects;
};

} // namespace VantrelEngine
