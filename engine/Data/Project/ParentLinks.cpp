#include "Data/Project/ParentLinks.h"

#include <algorithm>
#include <unordered_map>

namespace VantrelEngine {

std::string_view parentTextOf(const JsonValue& object) {
    if(!object.IsObject()) return {};
    const auto parent = object.FindMember("parent");
    if(parent == object.MemberEnd() || !parent->value.IsString()) return {};
    return {parent->value.GetString(), parent->value.GetStringLength()};
}

ParentLinks::ParentLinks(const JsonValue& objects) {
    std::unordered_map<std::string_view, std::uint32_t> positions;
    positions.reserve(objects.MemberCount());
    for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object)
        positions.emplace(std::string_view{object->name.GetString(), object->name.GetStringLength()},
            std::uint32_t(positions.size()));
    _parents.reserve(objects.MemberCount());
    for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object) {
        const std::string_view parent = parentTextOf(object->value);
        const auto found = positions.find(parent);
        _parents.push_back(parent.empty() ? Root : found == positions.end() ? Missing : found->second);
    }
}

std::vector<std::uint32_t> ParentLinks::cycles() const {
    // The walk that came by first; a walk that meets itself has gone round.
    constexpr std::uint32_t NotYet = ~std::uint32_t{};
    std::vector<std::uint32_t> walks(_parents.size(), NotYet), cycles;
    for(std::uint32_t walk = 0; walk != _parents.size(); ++walk) {
        std::uint32_t at = walk;
        for(; at < _parents.size() && walks[at] == NotYet; at = _parents[at]) walks[at] = walk;
        if(at < _parents.size() && walks[at] == walk) cycles.push_back(firstOfCycle(at));
    }
    std::sort(cycles.begin(), cycles.end());
    return cycles;
}

std::uint32_t ParentLinks::firstOfCycle(std::uint32_t position) const {
    std::uint32_t first = position;
    for(std::uint32_t at = _parents[position]; at != position; at = _parents[at]) first = std::min(first, at);
    return first;
}

} // namespace VantrelEngine
