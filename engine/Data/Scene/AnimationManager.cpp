#include <Vantrel/EngineData/AnimationManager.h>

#include <algorithm>

#include <Corrade/Containers/GrowableArray.h>
#include <Magnum/Trade/AnimationData.h>

namespace VantrelEngine {

using namespace Corrade;
using Magnum::Trade::AnimationData;

AnimationManager::AnimationManager(std::size_t capacity):
    ComponentManager{"animation", capacity, 1, [](ComponentManager& manager, Id component) {
                         auto& owned = static_cast<AnimationManager&>(manager)._owned;
                         if(component < owned.size()) owned[component] = nullptr;
                     }} {}

AnimationManager::~AnimationManager() = default;

void AnimationManager::setAnimation(Id component, const AnimationData& data) {
    _data[slot(component)] = &data;
    if(component < _owned.size()) _owned[component] = nullptr;
}

void AnimationManager::setAnimation(Id component, AnimationData&& data) {
    const std::size_t i = slot(component);
    if(component >= _owned.size()) {
        if(component >= arrayCapacity(_owned)) arrayReserve(_owned, component * 3 / 2 + 4);
        arrayResize(_owned, ValueInit, component + 1);
    }
    _owned[component] = Containers::pointer<AnimationData>(std::move(data));
    _data[i] = _owned[component].get();
}

}
