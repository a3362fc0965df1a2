#include "Vantrel/EditorData/EditorData.h"

namespace VantrelEngine {

EditorData::EditorData(): _selection{{_selectionWords.data(), _selectionWords.size()}, MaxObjects + 1} {}

EditorData::~EditorData() = default;

void EditorData::selectObject(Id object, bool additive) {
    if(!additive) _selection.clear();
    if(object != RootObject && _scene.main().isValid(object)) _selection.set(object);
}

void EditorData::deselectObject(Id object) {
    if(isSelected(object)) _selection.set(object, false);
}

std::optional<Id> EditorData::firstSelectedObject() const {
    const std::size_t first = _selection.findFirstSet();
    if(first == _selection.size()) return {};
    return Id(first);
}

} // namespace VantrelEngine
