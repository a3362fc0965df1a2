#include "Panels/Inspector/CommonValue.h"

#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Inspector/Refusal.h"

namespace VantrelEngine {

namespace {

// Copies have the same allocator; it has no state.
JsonAllocator allocator;

bool hasParts(KeyKind kind) {
    return kind == KeyKind::Vector || kind == KeyKind::WholeVector || kind == KeyKind::Color ||
        kind == KeyKind::ScreenColor || kind == KeyKind::Rotation;
}

JsonValue initialOf(const SchemaKey& key) {
    JsonDocument initial;
    if(key.initial) initial.Parse(key.initial);
    return JsonValue{initial, allocator};
}

JsonValue arrayOf(const EulerAngles& angles) {
    JsonValue array{rapidjson::kArrayType};
    for(const double angle: angles) array.PushBack(angle, allocator);
    return array;
}

// What is shown of a value that can be shown.
JsonValue shownValue(const SchemaKey& key, const JsonValue& value, const std::string& base, const TypedAngles& angles) {
    if(key.kind != KeyKind::Rotation) return JsonValue{value, allocator};
    return arrayOf(angles.anglesOf(pointerBelow(base, key.key), quaternionNumbers(&value)));
}

unsigned bitsOf(const JsonValue& value) { return value.IsNumber() ? unsigned(value.GetDouble()) : 0; }

unsigned differingParts(const JsonValue& a, const JsonValue& b, unsigned size) {
    const std::vector<double> first = numbersOf(a, size), second = numbersOf(b, size);
    unsigned parts = 0;
    for(unsigned i = 0; i != size; ++i) parts |= unsigned(first[i] != second[i]) << i;
    return parts;
}

} // namespace

CommonValue commonValue(const SchemaKey& key, const std::vector<std::string>& bases,
    const std::vector<const JsonValue*>& values, const TypedAngles& angles) {
    CommonValue common;
    const JsonValue initial = initialOf(key);
    const unsigned parts = key.kind == KeyKind::Rotation ? 3 : key.size;
    const JsonValue* first = nullptr;
    for(std::size_t i = 0; i != values.size(); ++i) {
        const JsonValue* const there = valueBelow(values[i], key.key);
        (there ? common.isMissing : common.isSomewhereMissing) = !there;
        const JsonValue& value = there ? *there : initial;
        // What the first one has was looked at.
        if(first && value == *first) continue;
        if(there && !common.whyNotShown) common.whyNotShown = whyNotShown(key, value);
        if(there && !common.whyNotShown && common.complaint.empty()) common.complaint = whyRefused(key, value);
        if(!first) {
            first = &value;
            if(common.whyNotShown || value.IsNull())
                common.value.CopyFrom(value, allocator);
            else
                common.value = shownValue(key, value, bases[i], angles);
        } else {
            common.isMixed = true;
            if(key.kind == KeyKind::Flags && !common.whyNotShown)
                common.mixedParts |= bitsOf(value) ^ bitsOf(common.value);
            else if(hasParts(key.kind) && !common.whyNotShown)
                common.mixedParts |= differingParts(common.value, shownValue(key, value, bases[i], angles), parts);
        }
    }
    return common;
}

QuaternionNumbers quaternionNumbers(const JsonValue* value) {
    QuaternionNumbers numbers{0.0, 0.0, 0.0, 1.0};
    if(!value || !value->IsArray() || value->Size() != 4) return numbers;
    for(const JsonValue& number: value->GetArray())
        if(!number.IsNumber()) return numbers;
    for(std::size_t i = 0; i != 4; ++i) numbers[i] = (*value)[rapidjson::SizeType(i)].GetDouble();
    return numbers;
}

std::vector<double> numbersOf(const JsonValue& value, unsigned size) {
    std::vector<double> numbers(size, 1.0);
    if(!value.IsArray()) return numbers;
    for(unsigned i = 0; i != size && i != value.Size(); ++i)
        if(value[i].IsNumber()) numbers[i] = value[i].GetDouble();
    return numbers;
}

} // namespace VantrelEngine
