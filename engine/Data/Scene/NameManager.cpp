#include <Vantrel/EngineData/NameManager.h>

#include <algorithm>

#include <Corrade/Utility/Assert.h>

namespace VantrelEngine {

void NameManager::allocate(std::size_t capacity, std::size_t bytesPerAddedName) {
    if(capacity <= _names.countCapacity()) return;
    const std::size_t added = capacity - _names.countCapacity();
    _names.reserve(capacity, _names.capacity() + added * bytesPerAddedName);
}

void NameManager::setSize(std::size_t size) {
    std::size_t needed = std::max(size, _names.size());
    while(needed > size && _names[needed - 1].isEmpty()) --needed;
    _names.setSize(needed);
}

Corrade::Containers::StringView NameManager::nameOf(Id object) const {
    if(object < _names.size()) return _names[object];
    return {"", 0, Corrade::Containers::StringViewFlag::Global | Corrade::Containers::StringViewFlag::NullTerminated};
}

void NameManager::setName(Id object, Corrade::Containers::StringView name) {
    CORRADE_ASSERT(object != NoObject, "NameManager::setName(): there is no object" << object, );
    if(object >= _names.size()) {
        if(name.isEmpty()) return;
        _names.setSize(object + 1);
    }
    _names.set(object, name);
    ++_revision;
}

}
