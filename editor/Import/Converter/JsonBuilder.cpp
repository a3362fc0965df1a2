#include "Import/Converter/JsonBuilder.h"

#include <charconv>
#include <cmath>

namespace VantrelImport {

JsonBuilder::JsonBuilder() { _document.SetObject(); }

JsonValue JsonBuilder::text(std::string_view text) {
    return JsonValue{text.data(), rapidjson::SizeType(text.size()), _document.GetAllocator()};
}

JsonValue JsonBuilder::number(float value) const {
    if(!std::isfinite(value)) return JsonValue{0.0};
    char digits[32];
    const auto end = std::to_chars(digits, digits + sizeof(digits), value).ptr;
    double number = 0.0;
    std::from_chars(digits, end, number);
    // Zero has no sign for a reader of projects.
    return JsonValue{number == 0.0 ? 0.0 : number};
}

JsonValue JsonBuilder::numbers(std::initializer_list<float> values) {
    JsonValue result = list();
    for(const float value: values) append(result, number(value));
    return result;
}

JsonValue JsonBuilder::copy(const JsonValue& value) { return JsonValue{value, _document.GetAllocator()}; }

void JsonBuilder::set(JsonValue& object, std::string_view key, JsonValue value) {
    object.AddMember(text(key), value, _document.GetAllocator());
}

void JsonBuilder::append(JsonValue& list, JsonValue value) { list.PushBack(value, _document.GetAllocator()); }

JsonValue& JsonBuilder::section(std::string_view name) {
    return _document.FindMember(JsonValue{rapidjson::StringRef(name.data(), name.size())})->value;
}

void JsonBuilder::add(std::string_view name, std::string_view id, JsonValue value) {
    set(section(name), id, std::move(value));
}

bool JsonBuilder::has(std::string_view name, std::string_view id) {
    return section(name).HasMember(JsonValue{rapidjson::StringRef(id.data(), id.size())});
}

} // namespace VantrelImport
