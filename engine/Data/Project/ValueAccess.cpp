#include "Vantrel/EngineData/ValueAccess.h"

#include <string_view>

#include <Corrade/Utility/Assert.h>

#include "Vantrel/EngineData/JsonObject.h"
#include "Vantrel/EngineData/ProjectFile.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

const JsonValue* memberOf(const JsonValue* object, std::string_view key) {
    if(!object || !object->IsObject()) return nullptr;
    for(auto member = object->MemberBegin(); member != object->MemberEnd(); ++member)
        if(key == std::string_view{member->name.GetString(), member->name.GetStringLength()}) return &member->value;
    return nullptr;
}

const JsonValue* elementOf(const JsonValue* array, std::size_t index) {
    return array && array->IsArray() && index < array->Size() ? &(*array)[rapidjson::SizeType(index)] : nullptr;
}

std::string escaped(std::string_view key) {
    std::string text;
    for(const char c: key) c == '~' ? text += "~0" : c == '/' ? text += "~1" : text += c;
    return text;
}

} // namespace

ValueAccess::ValueAccess(const ProjectFile& file):
    _file{&file}, _value{&file.projectFile()}, _default{&file.defaults()} {}

ValueAccess ValueAccess::withValue(Containers::StringView key, const JsonValue& value) const {
    ValueAccess child = step(stepTo(key));
    child._value = &value;
    child._default = nullptr;
    return child;
}

ValueAccess ValueAccess::operator[](Containers::StringView key) const {
    ValueAccess child = step(stepTo(key));
    const std::string_view name{key.data(), key.size()};
    child._default = memberOf(_default, name);
    // What stands only among the defaults is not looked for in the document.
    if(!_value || _value == _default)
        child._value = nullptr;
    else
        child._value =
            _depth == 1 && _steps[0].key ? _file->member({_steps[0].key, _steps[0].size}, key) : memberOf(_value, name);
    if(!child._value) child._value = child._default;
    return child;
}

ValueAccess ValueAccess::operator[](std::size_t index) const {
    ValueAccess child = step({nullptr, 0, std::uint32_t(index)});
    child._value = elementOf(_value, index);
    child._default = elementOf(_default, index);
    if(!child._value) child._value = child._default;
    return child;
}

// A null key stands for an index, and an empty view may have no address.
ValueAccess::Step ValueAccess::stepTo(Containers::StringView key) {
    return {key.data() ? key.data() : "", std::uint32_t(key.size()), 0};
}

ValueAccess ValueAccess::step(const Step& step) const {
    CORRADE_ASSERT(_depth != MaxSteps, "ValueAccess: more than" << MaxSteps << "steps from the root", *this);
    ValueAccess child{*this};
    child._steps[child._depth++] = step;
    return child;
}

Containers::Array<Containers::StringView> ValueAccess::keys() const {
    if(!_value || !_value->IsObject()) return {};
    Containers::Array<Containers::StringView> keys{NoInit, _value->MemberCount()};
    std::size_t i = 0;
    for(auto member = _value->MemberBegin(); member != _value->MemberEnd(); ++member)
        keys[i++] = {member->name.GetString(), member->name.GetStringLength()};
    return keys;
}

JsonObject ValueAccess::readValue() const { return JsonObject{*this}; }

std::string ValueAccess::path() const {
    std::string path;
    for(std::size_t i = 0; i != _depth; ++i) {
        const Step& step = _steps[i];
        path += '/';
        path += step.key ? escaped({step.key, step.size}) : std::to_string(step.index);
    }
    return path;
}

std::string ValueAccess::description() const {
    std::string text;
    for(std::size_t i = 0; i != _depth; ++i) {
        const Step& step = _steps[i];
        if(i) text += '/';
        text += step.key ? std::string{step.key, step.size} : std::to_string(step.index);
    }
    return text;
}

} // namespace VantrelEngine
