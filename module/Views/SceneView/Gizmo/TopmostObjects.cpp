#include "Views/SceneView/Gizmo/TopmostObjects.h"

namespace VantrelEngine {

const std::vector<Id>& TopmostObjects::find(const DynamicSceneGraph& scene, BitSetView set) {
    BitSetView indices{{_words.data(), _words.size()}, scene.size()};
    indices.clear();
    for(std::size_t id = set.findFirstSet(1); id != set.size(); id = set.findFirstSet(id + 1))
        if(scene.isValid(Id(id))) indices.set(scene.toIndex(Id(id)));

    _objects.clear();
    std::size_t index = indices.findFirstSet();
    while(index != indices.size()) {
        const Id object = scene.toId(index);
        _objects.push_back(object);
        index = indices.findFirstSet(index + 1 + scene.objectData(object).descendants);
    }
    return _objects;
}

} // namespace VantrelEngine
