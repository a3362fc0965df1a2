#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/Math/Vector.h>
#include <Vantrel/EngineData/Json.h>

namespace VantrelImport {

using VantrelEngine::JsonDocument;
using VantrelEngine::JsonValue;

// A document with sections of entries, each with an id.
class JsonBuilder {
public:
    explicit JsonBuilder();

    JsonValue object() const { return JsonValue{rapidjson::kObjectType}; }
    JsonValue list() const { return JsonValue{rapidjson::kArrayType}; }
    JsonValue text(std::string_view text);
    // The shortest number that is read as the same float; 0 for what is not finite.
    JsonValue number(float value) const;
    JsonValue numbers(std::initializer_list<float> values);
    template<std::size_t size> JsonValue numbers(const Magnum::Math::Vector<size, float>& vector) {
        JsonValue values = list();
        for(std::size_t i = 0; i != size; ++i) append(values, number(vector[i]));
        return values;
    }
    JsonValue copy(const JsonValue& value);

    void set(JsonValue& object, std::string_view key, JsonValue value);
    void set(JsonValue& object, std::string_view key, const char* value) { set(object, key, text(value)); }
    void set(JsonValue& object, std::string_view key, const std::string& value) { set(object, key, text(value)); }
    void append(JsonValue& list, JsonValue value);

    // Adds a section in its place, empty.
    void addSection(std::string_view name) { set(_document, name, object()); }
    void add(std::string_view section, std::string_view id, JsonValue value);
    bool has(std::string_view section, std::string_view id);
    void setMember(std::string_view key, JsonValue value) { set(_document, key, std::move(value)); }

    const JsonDocument& document() const { return _document; }

private:
    JsonValue& section(std::string_view name);

    JsonDocument _document;
};

} // namespace VantrelImport
