#include "Vantrel/EditorData/EditorData.h"

#include <random>
#include <utility>

namespace VantrelEngine {

using namespace Magnum;

namespace {

UnsignedLong randomNumber() {
    std::random_device random;
    return UnsignedLong{random()} << 32 | random();
}

} // namespace

EditorData::EditorData():
    editorNumber{randomNumber()},
    _selection{{_selectionWords.data(), _selectionWords.size()}, MaxObjects + 1}, _marks{_scene, _selection} {}

EditorData::~EditorData() = default;

void EditorData::selectObject(Id object, bool additive) {
    if(!additive) _selection.clear();
    if(object == RootObject || !_scene.main().isValid(object)) return;
    if(_marks.isLocked(object))
        _refused = {_refused.count + 1, object};
    else
        _selection.set(object);
}

void EditorData::deselectObject(Id object) {
    if(isSelected(object)) _selection.set(object, false);
}

EditorData::Refused EditorData::takeRefused() { return std::exchange(_refused, {}); }

std::optional<Id> EditorData::firstSelectedObject() const {
    const std::size_t first = _selection.findFirstSet();
    if(first == _selection.size()) return {};
    return Id(first);
}

} // namespace VantrelEngine
