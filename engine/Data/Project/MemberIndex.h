#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

// Finds the members of one large JSON object by name without a scan, while
// members are appended and removed and their order stays. The object is passed
// to each call: it may move in memory.
//
// Each member has a slot, in order of appearance; a removed member leaves an
// empty slot. The position of a member is its slot less the empty slots before
// it, which a Fenwick tree counts (P. Fenwick, "A new data structure for
// cumulative frequency tables", 1994). Find, append and remove take logarithmic
// time, beside the move of the members behind a removed one, which the JSON
// library does in one piece.
class MemberIndex {
public:
    // Reads all names. Linear.
    explicit MemberIndex(const JsonValue& object);

    // Whether the object can still be the one that the index knows: the number of
    // members is the same.
    bool fits(const JsonValue& object) const { return object.MemberCount() == _liveCount; }

    static constexpr std::size_t NotFound = ~std::size_t{};
    // Position of the first member of this name. A member found is checked by its
    // name.
    std::size_t find(const JsonValue& object, std::string_view name) const;

    // Call after a member was appended.
    void appended(std::string_view name);
    // Call before the member at this position, found by find(), is removed.
    void removing(std::string_view name, std::size_t position);

private:
    using Slot = std::uint32_t;

    std::size_t position(Slot slot) const { return slot - emptyBefore(slot); }
    std::size_t emptyBefore(std::size_t slot) const;
    void addSlot(std::string_view name);
    // Numbers the slots anew, without the empty ones.
    void compact();

    std::unordered_multimap<std::size_t, Slot> _slots; // by the hash of the name
    std::vector<std::uint32_t> _emptySlots;            // Fenwick tree
    std::size_t _liveCount = 0;
};

} // namespace VantrelEngine
