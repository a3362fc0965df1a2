#include "Data/Project/MemberIndex.h"

#include <functional>

namespace VantrelEngine {

namespace {

std::size_t hashOf(std::string_view name) { return std::hash<std::string_view>{}(name); }

std::string_view nameOf(const JsonValue& object, std::size_t position) {
    const JsonValue& name = (object.MemberBegin() + std::ptrdiff_t(position))->name;
    return {name.GetString(), name.GetStringLength()};
}

constexpr std::size_t lowestBit(std::size_t i) { return i & (~i + 1); }

} // namespace

MemberIndex::MemberIndex(const JsonValue& object) {
    _slots.reserve(object.MemberCount());
    _emptySlots.reserve(object.MemberCount());
    for(std::size_t i = 0; i != object.MemberCount(); ++i) addSlot(nameOf(object, i));
}

std::size_t MemberIndex::find(const JsonValue& object, std::string_view name) const {
    std::size_t found = NotFound;
    const auto candidates = _slots.equal_range(hashOf(name));
    for(auto candidate = candidates.first; candidate != candidates.second; ++candidate) {
        const std::size_t at = position(candidate->second);
        // The first of several members of one name is the one that counts.
        if(at < found && at < object.MemberCount() && nameOf(object, at) == name) found = at;
    }
    return found;
}

void MemberIndex::appended(std::string_view name) { addSlot(name); }

void MemberIndex::removing(std::string_view name, std::size_t position) {
    const auto candidates = _slots.equal_range(hashOf(name));
    for(auto candidate = candidates.first; candidate != candidates.second; ++candidate) {
        if(this->position(candidate->second) != position) continue;
        for(std::size_t i = candidate->second + 1; i <= _emptySlots.size(); i += lowestBit(i)) ++_emptySlots[i - 1];
        _slots.erase(candidate);
        --_liveCount;
        break;
    }
    if(_emptySlots.size() > 2 * _liveCount + 64) compact();
}

std::size_t MemberIndex::emptyBefore(std::size_t slot) const {
    if(_emptySlots.size() == _liveCount) return 0;
    std::size_t count = 0;
    for(std::size_t i = slot; i; i -= lowestBit(i)) count += _emptySlots[i - 1];
    return count;
}

void MemberIndex::addSlot(std::string_view name) {
    _slots.emplace(hashOf(name), Slot(_emptySlots.size()));
    // The new node of the tree counts the empty slots of the range that ends with
    // it.
    const std::size_t i = _emptySlots.size() + 1;
    _emptySlots.push_back(std::uint32_t(emptyBefore(i - 1) - emptyBefore(i - lowestBit(i))));
    ++_liveCount;
}

void MemberIndex::compact() {
    for(auto& slot: _slots) slot.second = Slot(position(slot.second));
    _emptySlots.assign(_liveCount, 0);
}

} // namespace VantrelEngine
