#include "Vantrel/EditorData/ObjectMarks.h"

#include <string_view>
#include <utility>

#include "Vantrel/EditorData/EditorSceneData.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr ObjectMark AllMarks[ObjectMarkCount]{ObjectMark::Hidden, ObjectMark::Locked};

// The next one in a walk through a subtree that leaves out what is below this one.
Id nextBeside(const Scene& scene, Id object, Id top) {
    for(; object != top; object = scene.parent(object))
        if(scene.nextSibling(object) != NoObject) return scene.nextSibling(object);
    return NoObject;
}

} // namespace

ObjectMarks::ObjectMarks(EditorSceneData& scene, BitSetView selection): _scene{scene}, _selection{selection} {}

void ObjectMarks::setMarked(ObjectMark mark, Id object, bool isMarked) {
    BitSetView& own = _own[std::size_t(mark)].bits;
    if(own.isSet(object) == isMarked) return;
    own.set(object, isMarked);
    const Containers::StringView id = _scene.main().objectIds.nameOf(object);
    Ids& ids = _ids[std::size_t(mark)];
    if(isMarked)
        ids.emplace(id.data(), id.size());
    else
        ids.erase(std::string{id.data(), id.size()});
    ++_revision;
    update(mark, object);
}

void ObjectMarks::unmarkAll(ObjectMark mark) {
    const BitSetView& own = _own[std::size_t(mark)].bits;
    for(std::size_t i = own.findFirstSet(); i != own.size(); i = own.findFirstSet(i + 1)) setMarked(mark, Id(i), false);
}

void ObjectMarks::clear() {
    for(const ObjectMark mark: AllMarks) {
        BitSetView& bits = _inEffect[std::size_t(mark)].bits;
        for(std::size_t i = bits.findFirstSet(); i != bits.size(); i = bits.findFirstSet(i + 1))
            if(_scene.main().isValid(Id(i))) apply(mark, Id(i), false);
        bits.clear();
        _own[std::size_t(mark)].bits.clear();
        _ids[std::size_t(mark)].clear();
    }
    ++_revision;
}

void ObjectMarks::added(Id object) {
    const Containers::StringView id = _scene.main().objectIds.nameOf(object);
    for(const ObjectMark mark: AllMarks) {
        const Ids& ids = _ids[std::size_t(mark)];
        if(!ids.empty() && ids.count(std::string_view{id.data(), id.size()})) _own[std::size_t(mark)].bits.set(object);
        update(mark, object);
    }
}

void ObjectMarks::moved(Id object) {
    for(const ObjectMark mark: AllMarks) update(mark, object);
}

void ObjectMarks::removed(Id object) {
    for(const ObjectMark mark: AllMarks) {
        _own[std::size_t(mark)].bits.set(object, false);
        _inEffect[std::size_t(mark)].bits.set(object, false);
    }
}

bool ObjectMarks::isToBeInEffect(ObjectMark mark, Id object) const {
    return isMarked(mark, object) || inEffect(mark).isSet(_scene.main().parent(object));
}

void ObjectMarks::update(ObjectMark mark, Id top) {
    if(inEffect(mark).isSet(top) == isToBeInEffect(mark, top)) return;
    Scene& scene = _scene.main();
    const std::size_t meshes = scene.meshes.numActiveComponents(), lights = scene.lights.numActiveComponents();
    // Below one for which nothing changes nothing does.
    for(Id i = top; i != NoObject;) {
        const bool isInEffect = isToBeInEffect(mark, i), changes = inEffect(mark).isSet(i) != isInEffect;
        if(changes) apply(mark, i, isInEffect);
        i = changes ? scene.nextInTree(i, top) : nextBeside(scene, i, top);
    }
    if(scene.meshes.numActiveComponents() != meshes) _scene.revisions().touch(Aspect::Draws);
    if(scene.lights.numActiveComponents() != lights) _scene.revisions().touch(Aspect::Lights);
    _scene.revisions().touch();
}

void ObjectMarks::apply(ObjectMark mark, Id object, bool isInEffect) {
    _inEffect[std::size_t(mark)].bits.set(object, isInEffect);
    if(mark == ObjectMark::Hidden)
        _scene.main().setHidden(object, isInEffect);
    else if(isInEffect)
        _selection.set(object, false);
}

} // namespace VantrelEngine
