#include "Data/Resources/ResourceEntry.h"

#include <cmath>

#include <Corrade/Containers/StringStl.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

Containers::StringView textOf(const JsonValue& value) { return {value.GetString(), value.GetStringLength()}; }

} // namespace

ResourceEntry::ResourceEntry(const JsonValue& value, std::vector<std::string>& reasons):
    ResourceEntry{value.IsObject() ? &value : nullptr, {}, reasons} {
    if(!_value) report("this is not an object");
}

ResourceEntry::ResourceEntry(const JsonValue* value, std::string path, std::vector<std::string>& reasons):
    _value{value}, _path{std::move(path)}, _reasons{&reasons} {}

std::string ResourceEntry::pathOf(Containers::StringView key) const { return _path + std::string{key}; }

void ResourceEntry::report(Containers::StringView key, const std::string& problem) const {
    report('"' + pathOf(key) + "\" " + problem);
}

const JsonValue* ResourceEntry::find(Containers::StringView key) const {
    if(!_value) return nullptr;
    for(auto member = _value->MemberBegin(); member != _value->MemberEnd(); ++member)
        if(textOf(member->name) == key) return &member->value;
    return nullptr;
}

const JsonValue* ResourceEntry::require(Containers::StringView key) const {
    const JsonValue* const value = find(key);
    if(!value && _value) report(key, "is missing");
    return value;
}

std::optional<Containers::StringView> ResourceEntry::asText(Containers::StringView key, const JsonValue& value) const {
    if(value.IsString()) return textOf(value);
    report(key, "is not a text");
    return {};
}

std::optional<float> ResourceEntry::asFloat(Containers::StringView key, const JsonValue& value) const {
    const float number = value.IsNumber() ? float(value.GetDouble()) : NAN;
    if(std::isfinite(number)) return number;
    report(key, value.IsNumber() ? "is too large a number" : "is not a number");
    return {};
}

std::optional<std::size_t> ResourceEntry::asChoice(Containers::StringView key, const JsonValue& value,
    Containers::ArrayView<const Containers::StringView> names) const {
    const auto text = asText(key, value);
    if(!text) return {};
    std::string list;
    for(std::size_t i = 0; i != names.size(); ++i) {
        if(names[i] == *text) return i;
        list += (i ? ", " : "") + std::string{names[i]};
    }
    report(key, "is \"" + std::string{*text} + "\", none of " + list);
    return {};
}

Containers::StringView ResourceEntry::text(Containers::StringView key) const {
    const JsonValue* const value = require(key);
    return value ? asText(key, *value).value_or(Containers::StringView{}) : Containers::StringView{};
}

Containers::StringView ResourceEntry::text(Containers::StringView key, Containers::StringView missing) const {
    const JsonValue* const value = find(key);
    return value ? asText(key, *value).value_or(missing) : missing;
}

std::vector<std::string> ResourceEntry::texts(Containers::StringView key) const {
    std::vector<std::string> result;
    const JsonValue* const value = require(key);
    if(!value) return result;
    if(!value->IsArray()) {
        report(key, "is not a list");
        return result;
    }
    for(const JsonValue& element: value->GetArray())
        result.push_back(asText(std::string{key} + '/' + std::to_string(result.size()), element).value_or(""));
    return result;
}

std::optional<std::size_t> ResourceEntry::choice(
    Containers::StringView key, Containers::ArrayView<const Containers::StringView> names) const {
    const JsonValue* const value = require(key);
    return value ? asChoice(key, *value, names) : std::nullopt;
}

std::size_t ResourceEntry::choice(
    Containers::StringView key, Containers::ArrayView<const Containers::StringView> names, std::size_t missing) const {
    const JsonValue* const value = find(key);
    return value ? asChoice(key, *value, names).value_or(missing) : missing;
}

bool ResourceEntry::boolean(Containers::StringView key, bool missing) const {
    const JsonValue* const value = find(key);
    if(!value || value->IsBool()) return value ? value->GetBool() : missing;
    report(key, "is neither true nor false");
    return missing;
}

unsigned ResourceEntry::number(Containers::StringView key, unsigned maximum, unsigned missing) const {
    const JsonValue* const value = find(key);
    if(!value) return missing;
    if(value->IsUint() && value->GetUint() <= maximum) return value->GetUint();
    report(key, "is not a whole number from 0 to " + std::to_string(maximum));
    return missing;
}

Vector4 ResourceEntry::scalar(Containers::StringView key, const Vector4& missing) const {
    const JsonValue* const value = find(key);
    const auto number = value ? asFloat(key, *value) : std::nullopt;
    return number ? Vector4{*number, 0.0f, 0.0f, 0.0f} : missing;
}

Vector4 ResourceEntry::vector(Containers::StringView key, const Vector4& missing) const {
    const JsonValue* const value = find(key);
    if(!value) return missing;
    if(!value->IsArray() || value->Size() < 3 || value->Size() > 4) {
        report(key, "is not a list of 3 or 4 numbers");
        return missing;
    }
    Vector4 result{0.0f, 0.0f, 0.0f, 1.0f};
    for(rapidjson::SizeType i = 0; i != value->Size(); ++i) {
        const auto number = asFloat(key, (*value)[i]);
        if(!number) return missing;
        result[i] = *number;
    }
    return result;
}

std::optional<FileLink> ResourceEntry::link(Containers::StringView key, Containers::StringView missingAsset) const {
    const JsonValue* const value = require(key);
    const auto file = value ? asText(key, *value) : std::nullopt;
    if(file && file->isEmpty()) report(key, "is empty");
    if(!file || file->isEmpty()) return {};
    return FileLink{text("asset", missingAsset), *file};
}

ResourceEntry ResourceEntry::member(Containers::StringView key) const {
    const JsonValue* value = find(key);
    if(value && !value->IsObject()) {
        report(key, "is not an object");
        value = nullptr;
    }
    return ResourceEntry{value, pathOf(key) + '/', *_reasons};
}

std::vector<ResourceEntry> ResourceEntry::elements(Containers::StringView key) const {
    std::vector<ResourceEntry> result;
    const JsonValue* const value = find(key);
    if(!value) return result;
    if(!value->IsArray()) {
        report(key, "is not a list");
        return result;
    }
    for(rapidjson::SizeType i = 0; i != value->Size(); ++i) {
        const std::string path = pathOf(key) + '/' + std::to_string(i);
        const JsonValue& element = (*value)[i];
        if(element.IsObject())
            result.push_back(ResourceEntry{&element, path + '/', *_reasons});
        else
            report('"' + path + "\" is not an object");
    }
    return result;
}

} // namespace VantrelEngine
