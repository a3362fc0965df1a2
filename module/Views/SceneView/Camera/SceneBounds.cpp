#include "Views/SceneView/Camera/SceneBounds.h"

#include <Vantrel/EditorData/EditorData.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// The sphere around the meshes of an object, in the scene's space; empty for an object without meshes.
BoundingSphere boundsOfObject(EditorData& data, Id object) {
    Scene& scene = data.scene().main();
    const std::vector<SceneMesh>& meshes = data.scene().resources().meshes;
    const auto components = scene.components(object);
    const auto types = scene.componentTypes(object);

    BoundingSphere bounds;
    for(std::size_t i = 0; i != components.size(); ++i) {
        if(types[i] != Scene::Mesh) continue;
        const Id mesh = scene.meshes.mesh(components[i]);
        if(!mesh || mesh >= meshes.size()) continue;
        bounds = merged(bounds,
            transformed({meshes[mesh].bounds.center(), meshes[mesh].radius}, scene.absoluteTransformation(object),
                scene.absoluteScaling(object)));
    }
    return bounds;
}

// The bounds of the selected objects' own meshes, by id: what is below several of them is computed once, in the order in
// which it lies in memory.
using OwnBounds = std::vector<BoundingSphere>;

BoundingSphere boundsOfDescendants(EditorData& data, const ObjectData& place, const OwnBounds& own) {
    const Scene& scene = data.scene().main();
    BoundingSphere bounds;
    for(std::size_t i = 1; i <= place.descendants; ++i) {
        const Id object = scene.toId(place.index + i);
        bounds = merged(bounds, data.isSelected(object) ? own[object] : boundsOfObject(data, object));
    }
    return bounds;
}

// Objects by their place in index order.
struct IndexSet {
    explicit IndexSet(std::size_t size): words(BitSetView::wordCount(size)), bits{{words.data(), words.size()}, size} {}

    std::vector<UnsignedLong> words;
    BitSetView bits;
};

// Keeps those that are below no other one of the set.
void removeWithinOthers(BitSetView set, const Scene& scene) {
    std::size_t end = 0;
    for(std::size_t i = set.findFirstSet(); i < set.size(); i = set.findFirstSet(i + 1))
        if(i < end)
            set.set(i, false);
        else
            end = i + scene.objectData(scene.toId(i)).descendants + 1;
}

}

std::vector<SelectedBounds> boundsOfSelection(EditorData& data) {
    const Scene& scene = data.scene().main();
    const BitSetView selection = data.selection();
    std::vector<SelectedBounds> selected;
    for(std::size_t i = selection.findFirstSet(); i < selection.size(); i = selection.findFirstSet(i + 1))
        if(scene.isValid(Id(i))) selected.push_back({Id(i), boundsOfObject(data, Id(i)), false});
    if(selected.empty()) return selected;
    OwnBounds own(selected.back().object + 1u);
    for(const SelectedBounds& each: selected) own[each.object] = each.bounds;

    IndexSet empty{scene.size()};
    for(const SelectedBounds& each: selected)
        if(each.bounds.isEmpty()) empty.bits.set(scene.toIndex(each.object));
    removeWithinOthers(empty.bits, scene);
    for(SelectedBounds& each: selected) {
        if(!each.bounds.isEmpty()) continue;
        const ObjectData place = scene.objectData(each.object);
        each.isWithinOther = !empty.bits.isSet(place.index);
        if(!each.isWithinOther) each.bounds = boundsOfDescendants(data, place, own);
    }
    return selected;
}

} // namespace VantrelEngine
