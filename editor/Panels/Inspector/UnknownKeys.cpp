#include "Panels/Inspector/UnknownKeys.h"

#include <string_view>

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

} // namespace

std::vector<std::string> unknownKeys(const JsonValue& value, const std::vector<SchemaKey>& known) {
    std::vector<std::string> unknown;
    if(value.IsObject())
        collect(value, {}, known, unknown);
    else
        unknown.emplace_back();
    return unknown;
}

} // namespace VantrelEngine
