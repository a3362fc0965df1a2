#include <Vantrel/EngineData/MeshManager.h>

#include <algorithm>

#include <Corrade/Containers/GrowableArray.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr Magnum::UnsignedInt NoGroup = ~Magnum::UnsignedInt{};

}

MeshManager::MeshManager(std::size_t capacity): ComponentManager{"mesh", capacity} {
    hideWithObjects();
    arrayAppend(_keys, Key{0, false});
    arrayAppend(_groups, Magnum::UnsignedInt{0});
}

void MeshManager::setGroup(Id component, Id pipeline, Id skinned) {
    CORRADE_ASSERT(skinned <= 1, "MeshManager::setGroup(): expected a flag, not" << skinned, );
    const std::size_t key = 2 * std::size_t{pipeline} + skinned;
    if(key >= _groups.size()) {
        arrayReserve(_groups, std::max(key + 1, _groups.size() * 3 / 2));
        arrayResize(_groups, key + 1, NoGroup);
    }
    if(_groups[key] == NoGroup) {
        arrayAppend(_keys, Key{pipeline, skinned == 1});
        _groups[key] = Magnum::UnsignedInt(addGroup());
    }
    setGroupOf(component, _groups[key]);
}

std::size_t MeshManager::groupSize(std::size_t group) const {
    const Containers::Pair<Id, Id> range = groupRange(group);
    return range.second() - range.first();
}

}
