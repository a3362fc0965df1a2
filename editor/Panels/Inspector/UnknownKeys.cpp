#include "Panels/Inspector/UnknownKeys.h"

#include <algorithm>
#include <cstdint>
#include <functional>
#include <string_view>
#include <unordered_set>

#include "Panels/Inspector/JsonPlace.h"

namespace VantrelEngine {

namespace {

enum class Knowledge { None, OnTheWay, Row };

Knowledge knowledgeOf(std::string_view tail, const std::vector<SchemaKey>& known) {
    Knowledge knowledge = Knowledge::None;
    for(const SchemaKey& row: known) {
        const std::string_view key{row.key};
        if(key == tail) return Knowledge::Row;
        if(key.size() > tail.size() && key[tail.size()] == '/' && key.substr(0, tail.size()) == tail)
            knowledge = Knowledge::OnTheWay;
    }
    return knowledge;
}

void collect(const JsonValue& object, const std::string& tail, const std::vector<SchemaKey>& known,
    std::vector<std::string>& unknown) {
    for(auto member = object.MemberBegin(); member != object.MemberEnd(); ++member) {
        const std::string token = escapedToken({member->name.GetString(), member->name.GetStringLength()});
        const std::string key = tail.empty() ? token : tail + '/' + token;
        const Knowledge knowledge = knowledgeOf(key, known);
        if(knowledge == Knowledge::OnTheWay && member->value.IsObject())
            collect(member->value, key, known, unknown);
        else if(knowledge != Knowledge::Row)
            unknown.push_back(key);
    }
}

// A number for the names in a value, and for which of them hold others.
std::uint64_t shapeOf(const JsonValue& value) {
    if(!value.IsObject()) return 1;
    std::uint64_t shape = 2;
    const auto add = [&shape](std::uint64_t more) { shape = (shape ^ more) * 0x9e3779b97f4a7c15u; };
    for(auto member = value.MemberBegin(); member != value.MemberEnd(); ++member) {
        add(std::hash<std::string_view>{}({member->name.GetString(), member->name.GetStringLength()}));
        add(shapeOf(member->value));
    }
    return shape ^ shape >> 29;
}

} // namespace

std::vector<std::string> unknownKeys(const JsonValue& value, const std::vector<SchemaKey>& known) {
    std::vector<std::string> unknown;
    if(value.IsObject())
        collect(value, {}, known, unknown);
    else
        unknown.emplace_back();
    return unknown;
}

std::vector<std::string> unknownKeys(const std::vector<const JsonValue*>& values, const std::vector<SchemaKey>& known) {
    std::vector<std::string> unknown;
    std::unordered_set<std::uint64_t> shapes;
    for(const JsonValue* const value: values) {
        if(!value || !shapes.insert(shapeOf(*value)).second) continue;
        for(std::string& key: unknownKeys(*value, known))
            if(std::find(unknown.begin(), unknown.end(), key) == unknown.end()) unknown.push_back(std::move(key));
    }
    return unknown;
}

} // namespace VantrelEngine
