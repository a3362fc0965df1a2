#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Math/Vector4.h>
#include <Vantrel/EngineData/Types.h>

#include "Renderer/Meshes/DepthSort.h"

namespace VantrelEngine {

class MeshManager;
class ObjectBuffer;

// Meshes that are drawn one after the other with the same pipeline and the same front side: a piece of a list of slots.
struct DrawRun {
    Magnum::UnsignedInt begin;
    Magnum::UnsignedInt end;
    Id pipeline;
    bool isMirrored;
};

// The active meshes of a group of a scene's mesh manager.
struct DrawGroup {
    // Within one order, what lets nothing through comes first, and what blends comes last.
    enum class Kind : std::uint8_t { Opaque, Masked, Blended };

    std::uint8_t order = 0;
    Kind kind = Kind::Opaque;
    Id pipeline = 0;
    Id group = 0;
};

// In which order the visible meshes are drawn. Those of a group stand by mesh, so that each mesh can be drawn once with
// all its places; what blends stands from the farthest to the nearest. Linear in what is visible; without allocations
// once warm.
class DrawList {
public:
    void setGroups(std::vector<DrawGroup> groups);

    // From the slots that are visible, ascending.
    void build(const std::vector<Id>& visible, const MeshManager& manager, const ObjectBuffer& objects);
    // Puts what blends in the order for a view: the distance of a place is the product with the row.
    void sortBlended(const Magnum::Vector4& distanceRow, const ObjectBuffer& objects);
    // Those of another list whose objects are in a set, in its order.
    template<class Contains> void assignWhere(const DrawList& other, Contains contains) {
        _slots.clear();
        _runs.clear();
        for(const DrawRun& run: other._runs) {
            const auto begin = Magnum::UnsignedInt(_slots.size());
            for(Magnum::UnsignedInt i = run.begin; i != run.end; ++i)
                if(contains(other._slots[i])) _slots.push_back(other._slots[i]);
            if(_slots.size() != begin)
                _runs.push_back({begin, Magnum::UnsignedInt(_slots.size()), run.pipeline, run.isMirrored});
        }
    }

    const std::vector<Id>& slots() const { return _slots; }
    const std::vector<DrawRun>& runs() const { return _runs; }

private:
    // A run, or what blends of one order: this is cut into runs when its order is known.
    struct Part {
        DrawRun run;
        bool isBlended;
    };

    void addByMesh(Corrade::Containers::ArrayView<const Id> slots, Id pipeline, const ObjectBuffer& objects);
    void addBlended(Corrade::Containers::ArrayView<const Id> slots, Id pipeline, bool isFirst);
    void makeRuns(const ObjectBuffer& objects);
    void cut(const DrawRun& blended, const ObjectBuffer& objects);

    std::vector<DrawGroup> _groups;
    std::vector<Id> _slots;
    std::vector<Part> _parts;
    std::vector<DrawRun> _runs;
    bool _isAnyBlended = false;
    // By slot, of what blends.
    std::vector<Id> _pipelines;
    // By 2 * mesh + mirrored: how many, then where the next one goes. Zero between the calls.
    std::vector<Magnum::UnsignedInt> _places;
    std::vector<Magnum::UnsignedInt> _touched;
    DepthSort _sort;
};

} // namespace VantrelEngine
