#include "Renderer/Meshes/DrawList.h"

#include <algorithm>
#include <tuple>
#include <utility>

#include <Vantrel/EngineData/MeshManager.h>

#include "Renderer/Meshes/ObjectBuffer.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

void DrawList::setGroups(std::vector<DrawGroup> groups) {
    _groups = std::move(groups);
    std::stable_sort(_groups.begin(), _groups.end(),
        [](const DrawGroup& a, const DrawGroup& b) { return std::tie(a.order, a.kind) < std::tie(b.order, b.kind); });
}

void DrawList::build(const std::vector<Id>& visible, const MeshManager& manager, const ObjectBuffer& objects) {
    _slots.clear();
    _parts.clear();
    _isAnyBlended = false;
    _pipelines.resize(objects.size());
    const DrawGroup* lastBlended = nullptr;
    for(const DrawGroup& group: _groups) {
        if(group.group >= manager.groupsCount()) continue;
        const auto first = std::lower_bound(visible.begin(), visible.end(), manager.groupStart(group.group));
        const auto last = std::lower_bound(first, visible.end(), manager.groupEnd(group.group));
        if(first == last) continue;
        const Containers::ArrayView<const Id> slots{&*first, std::size_t(last - first)};
        if(group.kind == DrawGroup::Kind::Blended) {
            addBlended(slots, group.pipeline, !lastBlended || lastBlended->order != group.order);
            lastBlended = &group;
        } else
            addByMesh(slots, group.pipeline, objects);
    }
    makeRuns(objects);
}

void DrawList::addByMesh(Containers::ArrayView<const Id> slots, Id pipeline, const ObjectBuffer& objects) {
    const auto keyOf = [&](Id slot) { return 2 * UnsignedInt{objects.mesh(slot)} + objects.isMirrored(slot); };
    _touched.clear();
    for(const Id slot: slots) {
        const UnsignedInt key = keyOf(slot);
        if(key >= _places.size()) _places.resize(std::max<std::size_t>(key + 1, _places.size() * 3 / 2));
        if(!_places[key]++) _touched.push_back(key);
    }

    // Mirrored ones have their own run.
    auto place = UnsignedInt(_slots.size());
    for(const bool isMirrored: {false, true}) {
        const UnsignedInt begin = place;
        for(const UnsignedInt key: _touched)
            if((key & 1) == UnsignedInt{isMirrored}) place += std::exchange(_places[key], place);
        if(place != begin) _parts.push_back({{begin, place, pipeline, isMirrored}, false});
    }

    _slots.resize(place);
    for(const Id slot: slots) _slots[_places[keyOf(slot)]++] = slot;
    for(const UnsignedInt key: _touched) _places[key] = 0;
}

void DrawList::addBlended(Containers::ArrayView<const Id> slots, Id pipeline, bool isFirst) {
    const auto begin = UnsignedInt(_slots.size());
    _slots.insert(_slots.end(), slots.begin(), slots.end());
    for(const Id slot: slots) _pipelines[slot] = pipeline;
    const auto end = UnsignedInt(_slots.size());
    if(isFirst)
        _parts.push_back({{begin, end, pipeline, false}, true});
    else
        _parts.back().run.end = end;
    _isAnyBlended = true;
}

void DrawList::sortBlended(const Vector4& distanceRow, const ObjectBuffer& objects) {
    if(!_isAnyBlended) return;
    for(const Part& part: _parts) {
        if(!part.isBlended) continue;
        const auto slots = vectorView(_slots).slice(part.run.begin, part.run.end);
        std::vector<Float>& depths = _sort.depths();
        depths.resize(slots.size());
        for(std::size_t i = 0; i != slots.size(); ++i)
            depths[i] = Math::dot(distanceRow, Vector4{objects.spheres().center(slots[i]), 1.0f});
        _sort.sort(slots);
    }
    makeRuns(objects);
}

void DrawList::makeRuns(const ObjectBuffer& objects) {
    _runs.clear();
    for(const Part& part: _parts) {
        if(part.isBlended)
            cut(part.run, objects);
        else
            _runs.push_back(part.run);
    }
}

void DrawList::cut(const DrawRun& blended, const ObjectBuffer& objects) {
    const std::size_t firstRun = _runs.size();
    for(UnsignedInt i = blended.begin; i != blended.end; ++i) {
        const Id slot = _slots[i];
        const DrawRun run{i, i + 1, _pipelines[slot], objects.isMirrored(slot)};
        if(_runs.size() != firstRun && _runs.back().pipeline == run.pipeline &&
            _runs.back().isMirrored == run.isMirrored)
            ++_runs.back().end;
        else
            _runs.push_back(run);
    }
}

} // namespace VantrelEngine
