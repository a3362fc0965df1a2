#include <Vantrel/EngineData/ComponentManager.h>

#include <algorithm>
#include <cstring>
#include <utility>

#include <Corrade/Containers/GrowableArray.h>

#include <Vantrel/EngineData/DynamicSceneGraph.h>

namespace VantrelEngine {

using namespace Corrade;

ComponentManager::FieldBase::FieldBase(ComponentManager& manager, std::size_t stride, const void* initial):
    _data{NoInit, manager._records.size() * stride}, _stride{stride}, _initial{initial}, _next{manager._fields} {
    manager._fields = this;
}

ComponentManager::ComponentManager(
    Containers::StringView name, std::size_t capacity, std::size_t groups, Forget forget):
    _name{name},
    _forget{forget}, _starts{ValueInit, groups + 2}, _ids{*this, NoComponent}, _objects{*this, NoObject} {
    allocate(capacity);
}

ComponentManager::~ComponentManager() = default;

void ComponentManager::allocate(std::size_t capacity) {
    CORRADE_ASSERT(capacity <= MaxComponents,
        "ComponentManager::allocate(): a manager holds at most" << MaxComponents << "components, not" << capacity, );
    _capacity = std::max(_capacity, capacity);
    if(capacity > _records.size()) grow(std::max(capacity, _records.size() * 3 / 2));
}

void ComponentManager::grow(std::size_t capacity) {
    capacity = std::min(capacity, MaxComponents);
    for(FieldBase* field = _fields; field; field = field->_next) {
        Containers::Array<char> data{NoInit, capacity * field->_stride};
        if(_starts.back()) std::memcpy(data.data(), field->_data.data(), _starts.back() * field->_stride);
        field->_data = std::move(data);
    }
    arrayResize(_records, ValueInit, capacity);
}

Id ComponentManager::takeId() {
    if(_firstFree == NoComponent) return Id(_idEnd++);
    const Id component = _firstFree;
    _firstFree = Id(_records[component].position);
    return component;
}

void ComponentManager::freeId(Id component) {
    _records[component].position = NoComponent;
    if(_firstFree == NoComponent)
        _firstFree = component;
    else
        _records[_lastFree].position = component;
    _lastFree = component;
}

Id ComponentManager::addComponent(Id object) {
    CORRADE_ASSERT(
        _graph, "ComponentManager::addComponent(): the" << _name << "manager belongs to no scene graph", NoComponent);
    CORRADE_ASSERT(
        _graph->isValid(object), "ComponentManager::addComponent(): there is no object" << object, NoComponent);
    if(_size == MaxComponents) {
        Utility::Error{} << "ComponentManager::addComponent(): object" << object << "gets no" << _name
                         << "component, the scene has" << MaxComponents << "already";
        return NoComponent;
    }
    // Slots that wait to be taken out are taken out where there is nothing else, or where that frees half of the memory.
    if(_starts.back() == MaxComponents || (_starts.back() == _records.size() && _size < _records.size() / 2)) settle();
    if(_starts.back() == _records.size()) grow(std::max<std::size_t>(_records.size() * 3 / 2, 4));

    const Id component = takeId();
    const std::size_t slot = _starts.back()++;
    for(FieldBase* field = _fields; field; field = field->_next)
        std::memcpy(field->_data.data() + slot * field->_stride, field->_initial, field->_stride);
    _ids[slot] = component;
    _objects[slot] = object;
    _capacity = std::max(_capacity, ++_size);
    const bool isHidden = _hidesWithObject && _graph->isHidden(object);
    _records[component] = {
        0, _graph->attachComponent(object, _graphIndex, component), Id(slot), true, false, isHidden, false};
    return component;
}

void ComponentManager::remove(Id component) {
    Record& removed = record(component);
    if(removed.isUsed()) --_activeCount;
    --_size;
    removed.isAlive = false;
    removed.isActive = false;
    setPending(component);
    if(_forget) _forget(*this, component);
}

void ComponentManager::setActive(Id component, bool active) { setUse(component, active, record(component).isHidden); }

void ComponentManager::setHidden(Id component, bool hidden) { setUse(component, record(component).isActive, hidden); }

void ComponentManager::setUse(Id component, bool active, bool hidden) {
    Record& changed = record(component);
    const bool wasUsed = changed.isUsed();
    changed.isActive = active;
    changed.isHidden = hidden;
    if(changed.isUsed() == wasUsed) return;
    _activeCount = wasUsed ? _activeCount - 1 : _activeCount + 1;
    setPending(component);
}

Id ComponentManager::toIndex(Id component) const {
    record(component);
    settle();
    return _records[component].slot;
}

std::size_t ComponentManager::addGroup() {
    // Before the inactive ones.
    const Magnum::UnsignedInt end = _starts.back();
    arrayAppend(_starts, end);
    const std::size_t group = groupCount() - 1;
    _starts[group + 1] = _starts[group];
    return group;
}

void ComponentManager::setGroupOf(Id component, std::size_t group) {
    Record& changed = record(component);
    CORRADE_ASSERT(group < groupCount(), "ComponentManager: there is no group" << group << "among" << groupCount(), );
    changed.group = Magnum::UnsignedInt(group);
    if(changed.isUsed()) setPending(component);
}

Containers::Pair<Id, Id> ComponentManager::groupRange(std::size_t group) const {
    CORRADE_ASSERT(group < groupCount(), "ComponentManager: there is no group" << group << "among" << groupCount(), {});
    settle();
    return {Id(_starts[group]), Id(_starts[group + 1])};
}

std::size_t ComponentManager::bucketOf(const Record& record) const {
    return record.isUsed() ? record.group : groupCount() + !record.isAlive;
}

std::size_t ComponentManager::bucketAt(std::size_t slot) const {
    return std::size_t(std::upper_bound(_starts.begin(), _starts.end() - 1, slot) - _starts.begin()) - 1;
}

void ComponentManager::setPending(Id component) {
    if(_records[component].isPending) return;
    _records[component].isPending = true;
    arrayAppend(_pending, component);
}

void ComponentManager::settle() const {
    if(_pending.isEmpty()) return;
    // The slots are no part of what the manager says until somebody asks for them.
    ComponentManager& self = const_cast<ComponentManager&>(*this);
    if(_pending.size() * (groupCount() + 1) <= _starts.back())
        self.settleOneByOne();
    else
        self.settleAll();
    self.dropDeleted();
}

void ComponentManager::settleOneByOne() {
    for(const Id component: _pending) {
        const std::size_t wanted = bucketOf(_records[component]);
        std::size_t slot = _records[component].slot;
        std::size_t bucket = bucketAt(slot);
        // From bucket to bucket, over the last or first slot of each.
        for(; bucket < wanted; ++bucket) {
            const std::size_t last = --_starts[bucket + 1];
            swapRows(slot, last);
            slot = last;
        }
        for(; bucket > wanted; --bucket) {
            const std::size_t first = _starts[bucket]++;
            swapRows(slot, first);
            slot = first;
        }
    }
}

void ComponentManager::settleAll() {
    const std::size_t slots = _starts.back();
    // First slots, counted one bucket further on.
    Containers::Array<Magnum::UnsignedInt> ends{ValueInit, groupCount() + 3};
    for(std::size_t slot = 0; slot != slots; ++slot) ++ends[bucketOf(_records[_ids[slot]]) + 1];
    for(std::size_t i = 1; i != ends.size(); ++i) ends[i] += ends[i - 1];
    std::copy(ends.begin(), ends.begin() + _starts.size(), _starts.begin());

    Containers::Array<Id> targets{NoInit, slots};
    for(std::size_t slot = 0; slot != slots; ++slot) targets[slot] = Id(ends[bucketOf(_records[_ids[slot]])]++);
    for(FieldBase* field = _fields; field; field = field->_next) {
        const std::size_t stride = field->_stride;
        Containers::Array<char> data{NoInit, _records.size() * stride};
        for(std::size_t slot = 0; slot != slots; ++slot)
            std::memcpy(data.data() + targets[slot] * stride, field->_data.data() + slot * stride, stride);
        field->_data = std::move(data);
    }
    for(std::size_t slot = 0; slot != slots; ++slot) _records[_ids[slot]].slot = Id(slot);
}

void ComponentManager::swapRows(std::size_t a, std::size_t b) {
    if(a == b) return;
    for(FieldBase* field = _fields; field; field = field->_next) {
        char* const row = field->_data.data() + a * field->_stride;
        std::swap_ranges(row, row + field->_stride, field->_data.data() + b * field->_stride);
    }
    _records[_ids[a]].slot = Id(a);
    _records[_ids[b]].slot = Id(b);
}

void ComponentManager::dropDeleted() {
    for(const Id component: _pending) {
        _records[component].isPending = false;
        if(!_records[component].isAlive) freeId(component);
    }
    _starts.back() = Magnum::UnsignedInt(_size);
    arrayClear(_pending);
}

}
