#include <Vantrel/EngineData/LightManager.h>

namespace VantrelEngine {

LightManager::LightManager(std::size_t capacity): ComponentManager{"light", capacity, 3} {}

Magnum::UnsignedInt LightManager::cascadeCount(Id component) const {
    const Magnum::Float count = _shadowParameters[slot(component)].w();
    // Also false for what is not a number.
    return count >= 1.0f && count < 4294967296.0f ? Magnum::UnsignedInt(count) : 0;
}

}
