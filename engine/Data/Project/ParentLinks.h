#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

// Who is whose parent among the members of "objects", by their positions. Linear to make.
class ParentLinks {
public:
    static constexpr std::uint32_t Root = ~std::uint32_t{};
    // A text that is no object's id.
    static constexpr std::uint32_t Missing = Root - 1;

    // Keys are different. What is no object, and who has no text as "parent", is at the root.
    explicit ParentLinks(const JsonValue& objects);

    std::uint32_t parentOf(std::size_t position) const { return _parents[position]; }

    // Of each cycle, an object that is its own parent included, the first object; ascending. Linear.
    std::vector<std::uint32_t> cycles() const;

private:
    std::uint32_t firstOfCycle(std::uint32_t position) const;

    std::vector<std::uint32_t> _parents;
};

// The text of an object's "parent"; empty where there is none.
std::string_view parentTextOf(const JsonValue& object);

} // namespace VantrelEngine
