#pragma once

#include <cstddef>
#include <vector>

#include <Vantrel/EngineData/DynamicSceneGraph.h>

namespace VantrelBench {

// The least that absolute transformations take: one loop over plain arrays in which each object follows its parent.
class TransformFloor {
public:
    // With the local transformations of the graph's objects, in its order.
    explicit TransformFloor(const VantrelEngine::DynamicSceneGraph& graph);

    void compute();
    // How far the positions are from the graph's, relative to the largest of them.
    double differenceTo(const VantrelEngine::DynamicSceneGraph& graph) const;

private:
    struct Place {
        float rotation[4]; // x, y, z, w
        float translation[3];
        float scaling[3];
    };

    std::vector<std::size_t> _parents;
    std::vector<Place> _local, _absolute;
};

}
