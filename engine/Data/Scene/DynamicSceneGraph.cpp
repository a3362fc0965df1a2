#include <Vantrel/EngineData/DynamicSceneGraph.h>

#include <algorithm>
#include <cmath>
#include <utility>

#include <Corrade/Containers/GrowableArray.h>
#include <Corrade/Containers/StringView.h>
#include <Magnum/Math/Functions.h>

#include "Data/Scene/AncestryForest.h"
#include <Vantrel/EngineData/ComponentManager.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr std::size_t MaxSize = MaxObjects + 1;
constexpr std::size_t NoManager = 255;

// Zero for every number, and not a number for what is none.
Float finiteProbe(const Vector3& v) { return v.x() * 0.0f + v.y() * 0.0f + v.z() * 0.0f; }

bool isFinite(const Vector3& v) { return finiteProbe(v) == 0.0f; }

Quaternion scaled(const Quaternion& q, Double factor) {
    return {{Float(q.vector().x() * factor), Float(q.vector().y() * factor), Float(q.vector().z() * factor)},
        Float(q.scalar() * factor)};
}

// A factor that makes the quaternion a unit one; zero where it has no direction. In double precision, in which the
// squared length of every float quaternion but zero is a positive number.
Double normalizingFactor(const Quaternion& q) {
    const Double x = q.vector().x(), y = q.vector().y(), z = q.vector().z(), w = q.scalar();
    const Double squaredLength = x * x + y * y + z * z + w * w;
    return squaredLength > 0.0 && squaredLength <= 1.0e80 ? 1.0 / std::sqrt(squaredLength) : 0.0;
}

// What is nearly a unit quaternion is made one by a step of Newton's method for the inverse square root from 1, which
// leaves an error of 3/8 of the square of this.
constexpr Float NearlyUnit = 1.0e-3f;

bool isNearlyUnit(Float squaredLength) { return std::abs(squaredLength - 1.0f) < NearlyUnit; }

Float newtonFactor(Float squaredLength) { return 1.5f - 0.5f * squaredLength; }

struct RotationTranslation {
    Quaternion rotation;
    Vector3 translation;
};

// Twice the dual times the conjugated real part.
Vector3 translationOf(const Quaternion& r, const Quaternion& d) {
    return 2.0f * (r.scalar() * d.vector() - d.scalar() * r.vector() + Math::cross(r.vector(), d.vector()));
}

RotationTranslation decomposedAny(const DualQuaternion& transformation) {
    const Double factor = normalizingFactor(transformation.real());
    if(factor == 0.0) return {};
    const Quaternion r = scaled(transformation.real(), factor);
    return {r, translationOf(r, scaled(transformation.dual(), factor))};
}

RotationTranslation decomposed(const DualQuaternion& transformation) {
    const Quaternion& r = transformation.real();
    const Float squaredLength = r.dot();
    if(!isNearlyUnit(squaredLength)) return decomposedAny(transformation);
    const Float factor = newtonFactor(squaredLength);
    return {r * factor, translationOf(r, transformation.dual()) * (factor * factor)};
}

// By a unit quaternion: v + 2 (w (q x v) + q x (q x v)).
Vector3 rotated(const Quaternion& rotation, const Vector3& v) {
    const Vector3 t = 2.0f * Math::cross(rotation.vector(), v);
    return v + rotation.scalar() * t + Math::cross(rotation.vector(), t);
}

Matrix4 toMatrix(const Quaternion& rotation, const Vector3& translation, const Vector3& scaling) {
    Matrix3x3 rotationScaling = rotation.toMatrix();
    for(std::size_t i = 0; i != 3; ++i) rotationScaling[i] *= scaling[i];
    return Matrix4::from(rotationScaling, translation);
}

// Memory for at least this many of at most so many.
std::size_t grownCapacity(std::size_t old, std::size_t needed, std::size_t limit) {
    return std::min(std::max(needed, old + old / 2 + 4), limit);
}

}

DynamicSceneGraph::DynamicSceneGraph(std::size_t objects, std::size_t components, std::size_t managers):
    _ancestry{Containers::pointer<AncestryForest<Id>>()}, _managers{ValueInit, managers} {
    CORRADE_ASSERT(managers <= NoManager,
        "DynamicSceneGraph: a scene has at most" << NoManager << "component managers, not" << managers, );
    CORRADE_ASSERT(objects <= MaxSize, "DynamicSceneGraph: a scene holds at most" << MaxObjects << "objects", );
    reallocateCapacity(std::max<std::size_t>(objects, 1), components);
    const Id root = takeId();
    _objects[root] = {NoObject, 0, 0};
    _siblings[root] = {NoObject, NoObject, NoObject, NoObject};
    _order[0] = root;
    _valid.set(root);
    _size = 1;
    setDirty(root);
}

DynamicSceneGraph::~DynamicSceneGraph() = default;

bool DynamicSceneGraph::reallocateCapacity(std::size_t objects, std::size_t components) {
    if(objects > MaxSize) {
        Utility::Error{} << "DynamicSceneGraph::reallocateCapacity(): a scene holds at most" << MaxObjects
                         << "objects, not" << objects - 1;
        return false;
    }
    if(objects > _objects.size()) grow(grownCapacity(_objects.size(), objects, MaxSize));
    if(components > arrayCapacity(_components)) {
        const std::size_t grown = grownCapacity(arrayCapacity(_components), components, ~std::uint32_t{});
        arrayReserve(_components, grown);
        arrayReserve(_componentTypes, grown);
    }
    _capacity = std::max(_capacity, objects);
    _componentsCapacity = std::max(_componentsCapacity, components);
    return true;
}

void DynamicSceneGraph::grow(std::size_t objects) {
    arrayResize(_objects, ValueInit, objects);
    arrayResize(_siblings, ValueInit, objects);
    arrayResize(_local, ValueInit, objects);
    arrayResize(_absolute, ValueInit, objects);
    arrayResize(_lists, ValueInit, objects);
    arrayResize(_order, ValueInit, objects);
    _ancestry->resize(objects);
    const std::size_t words = BitSetView::wordCount(objects);
    arrayResize(_dirtyIndexWords, ValueInit, words);
    for(auto& set: {std::make_pair(&_validWords, &_valid), std::make_pair(&_dirtyWords, &_dirty),
            std::make_pair(&_changedWords, &_changed), std::make_pair(&_hiddenWords, &_hidden),
            std::make_pair(&_rearrangedWords, &_rearranged)}) {
        arrayResize(*set.first, ValueInit, words);
        *set.second = BitSetView{*set.first, objects};
    }
}

Id DynamicSceneGraph::takeId() {
    if(_firstFree == NoObject) return Id(_idEnd++);
    const Id object = _firstFree;
    _firstFree = _siblings[object].next;
    return object;
}

Id DynamicSceneGraph::addObject(Id parent) {
    CORRADE_ASSERT(isValid(parent), "DynamicSceneGraph::addObject(): there is no object" << parent, RootObject);
    if(_size == MaxSize) {
        Utility::Error{} << "DynamicSceneGraph::addObject(): a scene holds at most" << MaxObjects << "objects";
        return RootObject;
    }
    if(_size == _objects.size()) grow(grownCapacity(_objects.size(), _size + 1, MaxSize));

    const Id object = takeId();
    _objects[object] = {parent, Id(_size), 0};
    _siblings[object] = {NoObject, NoObject, NoObject, NoObject};
    _local[object] = {};
    _absolute[object] = {};
    appendChild(parent, object);
    _ancestry->link(object, parent);
    // The root's last child is the last of all.
    _order[_size] = object;
    if(parent == RootObject)
        ++_objects[RootObject].descendants;
    else
        _isOrderPending = true;
    _capacity = std::max(_capacity, ++_size);
    _valid.set(object);
    setDirty(object);
    setRearranged(object);
    return object;
}

void DynamicSceneGraph::appendChild(Id parent, Id object) {
    Siblings& family = _siblings[parent];
    _siblings[object].previous = family.lastChild;
    _siblings[object].next = NoObject;
    if(family.lastChild != NoObject)
        _siblings[family.lastChild].next = object;
    else
        family.firstChild = object;
    family.lastChild = object;
}

void DynamicSceneGraph::unlinkChild(Id object) {
    const Siblings& child = _siblings[object];
    Siblings& family = _siblings[_objects[object].parent];
    if(child.previous != NoObject)
        _siblings[child.previous].next = child.next;
    else
        family.firstChild = child.next;
    if(child.next != NoObject)
        _siblings[child.next].previous = child.previous;
    else
        family.lastChild = child.previous;
}

Id DynamicSceneGraph::nextInTree(Id object, Id top) const {
    if(_siblings[object].firstChild != NoObject) return _siblings[object].firstChild;
    for(; object != top; object = _objects[object].parent)
        if(_siblings[object].next != NoObject) return _siblings[object].next;
    return NoObject;
}

void DynamicSceneGraph::deleteObjects(Id object) {
    CORRADE_ASSERT(object != RootObject, "DynamicSceneGraph::deleteObjects(): the root cannot be deleted", );
    CORRADE_ASSERT(isValid(object), "DynamicSceneGraph::deleteObjects(): there is no object" << object, );
    _ancestry->cut(object);
    unlinkChild(object);
    // The links of an object are needed until the walk has left its subtree: they go in a second walk.
    Containers::Array<Id> deleted;
    for(Id i = object; i != NoObject; i = nextInTree(i, object)) arrayAppend(deleted, i);
    for(const Id i: deleted) forgetObject(i);
    _size -= deleted.size();
    _isOrderPending = true;
}

void DynamicSceneGraph::forgetObject(Id object) {
    ComponentList& list = _lists[object];
    for(std::size_t i = 0; i != list.count; ++i)
        _managers[_componentTypes[list.offset + i]]->remove(_components[list.offset + i]);
    _componentsSize -= list.count;
    freeList(list);

    _ancestry->reset(object);
    _valid.set(object, false);
    _dirty.set(object, false);
    _changed.set(object, false);
    _hidden.set(object, false);
    setRearranged(object);
    _siblings[object].next = NoObject;
    if(_firstFree == NoObject)
        _firstFree = object;
    else
        _siblings[_lastFree].next = object;
    _lastFree = object;
}

bool DynamicSceneGraph::isInSubtree(Id object, Id top) const {
    checked(top);
    checked(object);
    // Looking makes the next look faster and changes nothing else.
    return const_cast<AncestryForest<Id>&>(*_ancestry).isAboveOrSame(top, object);
}

bool DynamicSceneGraph::reparent(Id object, Id parent) {
    CORRADE_ASSERT(object != RootObject, "DynamicSceneGraph::reparent(): the root has no parent", false);
    CORRADE_ASSERT(isValid(object), "DynamicSceneGraph::reparent(): there is no object" << object, false);
    CORRADE_ASSERT(isValid(parent), "DynamicSceneGraph::reparent(): there is no object" << parent, false);
    if(_objects[object].parent == parent) return true;
    if(isInSubtree(parent, object)) {
        Utility::Error{} << "DynamicSceneGraph::reparent(): object" << object << "cannot become a child of object"
                         << parent << Utility::Debug::nospace << ", which is itself or a descendant of it";
        return false;
    }
    _ancestry->cut(object);
    _ancestry->link(object, parent);
    unlinkChild(object);
    appendChild(parent, object);
    _objects[object].parent = parent;
    _isOrderPending = true;
    setDirty(object);
    setRearranged(object);
    return true;
}

// Makes the order from the links: one walk down and up again.
void DynamicSceneGraph::order() const {
    if(!_isOrderPending) return;
    // The order is no part of what the graph says until somebody asks for it.
    DynamicSceneGraph& self = const_cast<DynamicSceneGraph&>(*this);
    self._isOrderPending = false;
    Id index = 0;
    Id object = RootObject;
    const auto enter = [&](Id entered) {
        object = entered;
        self._order[index] = object;
        self._objects[object].index = index++;
    };
    const auto leave = [&] {
        self._objects[object].descendants = UnsignedShort(index - 1 - self._objects[object].index);
    };
    enter(RootObject);
    for(;;) {
        if(_siblings[object].firstChild != NoObject) {
            enter(_siblings[object].firstChild);
            continue;
        }
        leave();
        while(object != RootObject && _siblings[object].next == NoObject) {
            object = _objects[object].parent;
            leave();
        }
        if(object == RootObject) return;
        enter(_siblings[object].next);
    }
}

Id DynamicSceneGraph::toId(std::size_t index) const {
    CORRADE_ASSERT(
        index < _size, "DynamicSceneGraph::toId(): there is no index" << index << "among" << _size, NoObject);
    order();
    return _order[index];
}

ObjectData DynamicSceneGraph::objectData(Id object) const {
    checked(object);
    order();
    return _objects[object];
}

void DynamicSceneGraph::setHidden(Id object, bool hidden) {
    if(isHidden(object) == hidden) return;
    _hidden.set(object, hidden);
    const auto components = this->components(object);
    const auto types = componentTypes(object);
    for(std::size_t i = 0; i != components.size(); ++i)
        if(_managers[types[i]]->hidesWithObject()) _managers[types[i]]->setHidden(components[i], hidden);
}

void DynamicSceneGraph::setRearranged(Id object) {
    _rearranged.set(object);
    _isAnyRearranged = true;
}

void DynamicSceneGraph::resetRearranged() {
    if(_isAnyRearranged) _rearranged.clear();
    _isAnyRearranged = false;
}

Matrix4 DynamicSceneGraph::localTransformationAsMatrix(Id object) const {
    const Local& from = local(object);
    const RotationTranslation rigid = decomposed(from.transformation);
    return toMatrix(rigid.rotation, rigid.translation, from.scaling);
}

void DynamicSceneGraph::setDirty(Id object) {
    checked(object);
    _dirty.set(object);
    _isAnyDirty = true;
}

std::size_t DynamicSceneGraph::computeAbsoluteTransformations() {
    if(!_isAnyDirty) return 0;
    order();
    BitSetView dirtyIndices{_dirtyIndexWords, _size};
    dirtyIndices.clear();
    for(std::size_t id = _dirty.findFirstSet(); id != _dirty.size(); id = _dirty.findFirstSet(id + 1))
        dirtyIndices.set(_objects[id].index);

    std::size_t count = 0;
    for(std::size_t begin = dirtyIndices.findFirstSet(), end; begin != _size; begin = dirtyIndices.findFirstSet(end)) {
        end = begin + 1 + _objects[_order[begin]].descendants;
        compute(begin, end);
        count += end - begin;
    }
    _dirty.clear();
    _isAnyDirty = false;
    return count;
}

void DynamicSceneGraph::compute(std::size_t begin, std::size_t end) {
    const Absolute none;
    // Without the containers' checks of every index.
    const Id* const ids = _order.data();
    const ObjectData* const objects = _objects.data();
    const Local* const locals = _local.data();
    Absolute* const absolutes = _absolute.data();
    // Neighbours in the order may lie far apart in memory. (The parent was met shortly before.)
    constexpr std::size_t ahead = 16;
    for(std::size_t i = begin; i != end; ++i) {
        if(i + ahead < end) {
            const Id next = ids[i + ahead];
            __builtin_prefetch(locals + next);
            __builtin_prefetch(absolutes + next, 1);
            __builtin_prefetch(objects + next);
        }
        const Id object = ids[i];
        const Local& from = locals[object];
        const Absolute& above = object == RootObject ? none : absolutes[objects[object].parent];
        Absolute& to = absolutes[object];

        const RotationTranslation rigid = decomposed(from.transformation);
        // Of two unit ones; the length is corrected so that it does not drift along a chain.
        const Quaternion rotation = above.rotation * rigid.rotation;
        to.rotation = rotation * newtonFactor(rotation.dot());
        to.translation = above.translation + rotated(above.rotation, above.scaling * rigid.translation);
        to.scaling = above.scaling * from.scaling;
        if(finiteProbe(to.translation) + finiteProbe(to.scaling) != 0.0f) {
            if(!isFinite(to.translation)) to.translation = above.translation;
            if(!isFinite(to.scaling)) to.scaling = above.scaling;
        }
        _changed.set(object);
    }
}

bool DynamicSceneGraph::isSurelyClean(Id object) const {
    if(!_isAnyDirty) return true;
    // As deep as scenes are; beyond that a pass over what is dirty costs less in the long run.
    constexpr std::size_t maxDepth = 32;
    for(std::size_t depth = 0; depth != maxDepth && !_dirty.isSet(object); ++depth) {
        if(object == RootObject) return true;
        object = _objects[object].parent;
    }
    return false;
}

void DynamicSceneGraph::computeAbsoluteTransformation(Id object) {
    checked(object);
    if(!isSurelyClean(object)) computeAbsoluteTransformations();
}

DualQuaternion DynamicSceneGraph::absoluteTransformation(Id object) const {
    const Absolute& from = absolute(object);
    return DualQuaternion::from(from.rotation, from.translation);
}

Matrix4 DynamicSceneGraph::absoluteTransformationAsMatrix(Id object) const {
    const Absolute& from = absolute(object);
    return toMatrix(from.rotation, from.translation, from.scaling);
}

DualQuaternion DynamicSceneGraph::absoluteTransformationSafe(Id object) {
    computeAbsoluteTransformation(object);
    return absoluteTransformation(object);
}

Matrix4 DynamicSceneGraph::absoluteTransformationAsMatrixSafe(Id object) {
    computeAbsoluteTransformation(object);
    return absoluteTransformationAsMatrix(object);
}

void DynamicSceneGraph::setComponentManager(std::size_t index, ComponentManager& manager) {
    CORRADE_ASSERT(index < _managers.size() && !_managers[index],
        "DynamicSceneGraph::setComponentManager(): index" << index << "is not free among" << _managers.size(), );
    CORRADE_ASSERT(!manager._graph && componentManagerIndex(manager.name()) == NoManager,
        "DynamicSceneGraph::setComponentManager(): the" << manager.name() << "manager is registered already", );
    manager._graph = this;
    manager._graphIndex = UnsignedByte(index);
    _managers[index] = &manager;
}

UnsignedByte DynamicSceneGraph::componentManagerIndex(Containers::StringView name) const {
    for(std::size_t i = 0; i != _managers.size(); ++i)
        if(_managers[i] && _managers[i]->name() == name) return UnsignedByte(i);
    return NoManager;
}

ComponentManager* DynamicSceneGraph::componentManager(std::size_t index) const {
    CORRADE_ASSERT(index < _managers.size(),
        "DynamicSceneGraph::componentManager(): there is no index" << index << "among" << _managers.size(), {});
    return _managers[index];
}

Containers::ArrayView<const Id> DynamicSceneGraph::components(Id object) const {
    checked(object);
    return _components.sliceSize(_lists[object].offset, _lists[object].count);
}

Containers::ArrayView<const UnsignedByte> DynamicSceneGraph::componentTypes(Id object) const {
    checked(object);
    return _componentTypes.sliceSize(_lists[object].offset, _lists[object].count);
}

UnsignedInt DynamicSceneGraph::attachComponent(Id object, UnsignedByte managerIndex, Id component) {
    ComponentList& list = _lists[object];
    if(list.sizeClass < 0 || list.count == UnsignedInt{1} << list.sizeClass) growList(list);
    _components[list.offset + list.count] = component;
    _componentTypes[list.offset + list.count] = managerIndex;
    _componentsCapacity = std::max(_componentsCapacity, ++_componentsSize);
    return list.count++;
}

void DynamicSceneGraph::growList(ComponentList& list) {
    ComponentList grown{0, list.count, Byte(list.sizeClass + 1)};
    Containers::Array<UnsignedInt>& free = _freeLists[grown.sizeClass];
    if(!free.isEmpty()) {
        grown.offset = free.back();
        arrayRemoveSuffix(free);
    } else {
        grown.offset = UnsignedInt(_components.size());
        arrayAppend(_components, NoInit, std::size_t{1} << grown.sizeClass);
        arrayAppend(_componentTypes, NoInit, std::size_t{1} << grown.sizeClass);
    }
    std::copy_n(_components.begin() + list.offset, list.count, _components.begin() + grown.offset);
    std::copy_n(_componentTypes.begin() + list.offset, list.count, _componentTypes.begin() + grown.offset);
    freeList(list);
    list = grown;
}

void DynamicSceneGraph::freeList(ComponentList& list) {
    if(list.sizeClass >= 0) arrayAppend(_freeLists[list.sizeClass], list.offset);
    list = {};
}

void DynamicSceneGraph::deleteComponent(Id object, std::size_t managerIndex, Id component) {
    checked(object);
    ComponentManager* const manager = componentManager(managerIndex);
    CORRADE_ASSERT(manager && manager->isValid(component) && manager->object(component) == object,
        "DynamicSceneGraph::deleteComponent(): object" << object << "has no component" << component << "of manager"
                                                       << managerIndex, );
    ComponentList& list = _lists[object];
    const std::size_t position = list.offset + manager->_records[component].position;
    const std::size_t last = list.offset + --list.count;
    _components[position] = _components[last];
    _componentTypes[position] = _componentTypes[last];
    _managers[_componentTypes[position]]->_records[_components[position]].position =
        UnsignedInt(position - list.offset);
    --_componentsSize;
    manager->remove(component);
}

}
