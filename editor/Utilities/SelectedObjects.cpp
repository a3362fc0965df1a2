#include "Utilities/SelectedObjects.h"

#include <algorithm>

#include <Vantrel/EditorData/EditorData.h>

namespace VantrelEngine {

std::vector<Id> selectedObjects(const EditorData& data) {
    const Scene& scene = data.scene().main();
    const BitSetView selection = data.selection();
    std::vector<Id> objects;
    for(std::size_t i = selection.findFirstSet(); i < selection.size(); i = selection.findFirstSet(i + 1))
        objects.push_back(Id(i));
    std::sort(objects.begin(), objects.end(), [&scene](Id a, Id b) { return scene.toIndex(a) < scene.toIndex(b); });
    return objects;
}

std::vector<Id> topSelectedObjects(const EditorData& data) {
    const Scene& scene = data.scene().main();
    std::vector<Id> tops;
    std::size_t end = 0;
    for(const Id object: selectedObjects(data)) {
        const ObjectData place = scene.objectData(object);
        if(place.index < end) continue;
        end = std::size_t(place.index) + place.descendants + 1;
        tops.push_back(object);
    }
    return tops;
}

std::vector<Id> selectedTrees(const EditorData& data) {
    const Scene& scene = data.scene().main();
    std::vector<Id> objects;
    for(const Id top: topSelectedObjects(data)) {
        const ObjectData place = scene.objectData(top);
        for(std::size_t i = 0; i <= place.descendants; ++i) objects.push_back(scene.toId(place.index + i));
    }
    return objects;
}

void selectAllObjects(EditorData& data) {
    const Scene& scene = data.scene().main();
    for(std::size_t i = 1; i < scene.size(); ++i) {
        const Id object = scene.toId(i);
        if(!data.marks().isLocked(object)) data.selectObject(object, true);
    }
}

} // namespace VantrelEngine
