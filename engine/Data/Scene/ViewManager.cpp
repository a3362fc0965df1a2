#include <Vantrel/EngineData/ViewManager.h>

#include <Vantrel/EngineData/DynamicSceneGraph.h>

namespace VantrelEngine {

ViewManager::ViewManager(std::size_t capacity): ComponentManager{"view", capacity} {}

void ViewManager::update() {
    for(const Id view: components().prefix(numActiveComponents())) {
        const std::size_t i = slot(view);
        // The inverse of a unit dual quaternion.
        _transform[i] = graph()->absoluteTransformation(object(view)).quaternionConjugated();
        _culling[i] = _projection[i] * _transform[i].toMatrix();
    }
}

}
