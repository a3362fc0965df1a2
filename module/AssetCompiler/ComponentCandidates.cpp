#include "AssetCompiler/ComponentCandidates.h"

#include <Vantrel/EngineData/Scene.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

void ComponentCandidates::reset(const Scene& scene, Id object) {
    const auto components = scene.components(object);
    const auto managers = scene.componentTypes(object);
    _candidates.clear();
    for(std::size_t i = 0; i != components.size(); ++i) _candidates.push_back({components[i], managers[i]});
    if(_isIndexed) _positions.clear();
    _isIndexed = _candidates.size() > SearchedCount;
    if(!_isIndexed) return;
    for(std::size_t i = 0; i != _candidates.size(); ++i)
        _positions[keyOf(scene, _candidates[i])].insert(std::uint32_t(i));
}

Id ComponentCandidates::take(const Scene& scene, Containers::StringView type) {
    if(_candidates.empty()) return NoComponent;
    const Key key = keyOf(scene, type);
    const std::size_t found = key == NoKey ? _candidates.size() : firstOf(scene, key);
    if(found == _candidates.size()) return NoComponent;
    const Id component = _candidates[found].component;
    const std::size_t last = _candidates.size() - 1;
    if(_isIndexed) {
        _positions[key].erase(std::uint32_t(found));
        if(found != last) {
            std::set<std::uint32_t>& moved = _positions[keyOf(scene, _candidates[last])];
            moved.erase(std::uint32_t(last));
            moved.insert(std::uint32_t(found));
        }
    }
    _candidates[found] = _candidates[last];
    _candidates.pop_back();
    return component;
}

std::size_t ComponentCandidates::firstOf(const Scene& scene, Key key) const {
    if(_isIndexed) {
        const auto positions = _positions.find(key);
        return positions == _positions.end() || positions->second.empty() ? _candidates.size()
                                                                          : *positions->second.begin();
    }
    std::size_t i = 0;
    while(i != _candidates.size() && keyOf(scene, _candidates[i]) != key) ++i;
    return i;
}

ComponentCandidates::Key ComponentCandidates::keyOf(const Scene& scene, const Candidate& candidate) {
    if(candidate.manager != Scene::JavaScript) return candidate.manager;
    // A script without a type has a key that no type of the document has.
    return Key{Scene::JavaScript} | Key{scene.scripts.componentType(candidate.component)} << 8;
}

ComponentCandidates::Key ComponentCandidates::keyOf(const Scene& scene, Containers::StringView type) {
    const UnsignedByte manager = scene.componentManagerIndex(type);
    if(manager != 255 && manager != Scene::JavaScript) return manager;
    const UnsignedShort script = scene.scripts.typeIndex(type);
    return script == JavaScriptManager::UnknownType ? NoKey : Key{Scene::JavaScript} | Key{script} << 8;
}

} // namespace VantrelEngine
