#include "Panels/Inspector/JsonPlace.h"

#include <algorithm>

#include <Vantrel/EngineData/ProjectFile.h>
#include <rapidjson/error/en.h>
#include <rapidjson/stringbuffer.h>
#include <rapidjson/writer.h>

#include "ChangeManager.h"
#include "Utils/PointerToken.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

// The first token of a tail, and what follows it.
std::string_view takeToken(std::string_view& tail) {
    const std::size_t end = std::min(tail.find('/'), tail.size());
    const std::string_view token = tail.substr(0, end);
    tail.remove_prefix(std::min(end + 1, tail.size()));
    return token;
}

std::string nameOf(std::string_view token) { return unescaped({token.data(), token.size()}); }

bool isIndex(std::string_view token) {
    return !token.empty() && token.size() < 10 &&
        std::all_of(token.begin(), token.end(), [](char c) { return c >= '0' && c <= '9'; });
}

const JsonValue* memberOf(const JsonValue& object, std::string_view name) {
    const auto member =
        object.FindMember(JsonValue{rapidjson::StringRef(name.data(), rapidjson::SizeType(name.size()))});
    return member == object.MemberEnd() ? nullptr : &member->value;
}

const JsonValue* childOf(const JsonValue& value, std::string_view token) {
    if(value.IsArray()) {
        if(!isIndex(token)) return nullptr;
        const std::size_t index = std::stoul(std::string{token});
        return index < value.Size() ? &value[rapidjson::SizeType(index)] : nullptr;
    }
    if(!value.IsObject()) return nullptr;
    // Nearly no key has an escape, which costs memory.
    return token.find('~') == token.npos ? memberOf(value, token) : memberOf(value, nameOf(token));
}

bool takesChild(const JsonValue& value, std::string_view token) {
    return value.IsObject() || (value.IsArray() && isIndex(token));
}

// The value inside of objects with the members of a tail.
JsonValue nestedIn(std::string_view tail, JsonValue value, JsonAllocator& allocator) {
    if(tail.empty()) return value;
    const std::string name = nameOf(takeToken(tail));
    JsonValue object{rapidjson::kObjectType};
    JsonValue inner = nestedIn(tail, std::move(value), allocator);
    object.AddMember(JsonValue{name.data(), rapidjson::SizeType(name.size()), allocator}, inner, allocator);
    return object;
}

} // namespace

std::string escapedToken(std::string_view name) { return pointerToken({name.data(), name.size()}); }

const JsonValue* valueBelow(const JsonValue* base, std::string_view tail) {
    while(base && !tail.empty()) {
        const std::string_view token = takeToken(tail);
        base = childOf(*base, token);
    }
    return base;
}

std::string pointerBelow(const std::string& base, std::string_view tail) {
    std::string pointer = base;
    if(tail.empty()) return pointer;
    pointer += '/';
    return pointer.append(tail.data(), tail.size());
}

std::string jsonText(const JsonValue& value) {
    rapidjson::StringBuffer buffer;
    rapidjson::Writer<rapidjson::StringBuffer> writer{buffer};
    value.Accept(writer);
    return {buffer.GetString(), buffer.GetSize()};
}

std::string parseJson(std::string_view text, JsonDocument& value) {
    value.Parse<rapidjson::kParseFullPrecisionFlag | rapidjson::kParseIterativeFlag>(text.data(), text.size());
    if(!value.HasParseError()) return {};
    return std::string{"not JSON: "} + rapidjson::GetParseError_En(value.GetParseError());
}

void recordBelow(ChangeManager& changes, const ProjectFile& file, const std::string& base, std::string_view tail,
    const JsonValue& value, bool merge) {
    const std::string pointer = pointerBelow(base, tail);
    const JsonValue* place = file.valueByPointer({base.data(), base.size()});
    std::string reached = base;
    for(std::string_view rest = tail; place && !rest.empty();) {
        const std::string_view below = rest, token = takeToken(rest);
        if(!takesChild(*place, token)) {
            JsonAllocator allocator;
            JsonValue copy{value, allocator};
            const JsonValue nested = nestedIn(below, std::move(copy), allocator);
            return changes.recordChange({reached.data(), reached.size()}, &nested, merge);
        }
        place = childOf(*place, token);
        reached = pointerBelow(reached, token);
    }
    changes.recordWithParents({pointer.data(), pointer.size()}, value, merge);
}

std::string whyProjectRefuses(const ProjectFile& file, const std::string& pointer, const JsonValue* value) {
    ProjectFile::EditGuard* const guard = file.editGuard();
    return guard ? guard->whyRefused(file, {pointer.data(), pointer.size()}, value) : std::string{};
}

} // namespace VantrelEngine
