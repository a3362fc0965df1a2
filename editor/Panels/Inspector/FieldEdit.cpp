#include "Panels/Inspector/FieldEdit.h"

#include <algorithm>
#include <cmath>

#include <Vantrel/EngineData/ProjectFile.h>

#include "ChangeManager.h"
#include "Panels/Inspector/JsonPlace.h"
#include "Panels/Inspector/Refusal.h"

namespace VantrelEngine {

namespace {

// It has no state.
JsonAllocator allocator;

JsonValue numberValue(const SchemaKey& key, double number) {
    const bool isWhole =
        key.kind == KeyKind::WholeNumber || key.kind == KeyKind::WholeVector || key.kind == KeyKind::Flags;
    if(isWhole && std::abs(number) < 4294967296.0) return JsonValue{std::int64_t(std::llround(number))};
    return JsonValue{number};
}

JsonValue initialOf(const SchemaKey& key) {
    JsonDocument initial;
    if(key.initial) initial.Parse(key.initial);
    return JsonValue{initial, allocator};
}

// One of the numbers of a vector or a colour, of what stands there or would be used.
JsonValue withPart(const SchemaKey& key, const JsonValue* there, const FieldInput& input) {
    const bool isUsable = there && !whyNotShown(key, *there);
    const JsonValue initial = initialOf(key);
    const JsonValue& old = isUsable ? *there : initial;
    if(!old.IsArray()) {
        const double before = old.IsNumber() ? old.GetDouble() : 0.0;
        return numberValue(key, input.isOffset ? before + input.number : input.number);
    }
    JsonValue array{old, allocator};
    while(int(array.Size()) <= input.part) array.PushBack(1.0, allocator);
    JsonValue& number = array[rapidjson::SizeType(input.part)];
    number = numberValue(key, input.isOffset ? number.GetDouble() + input.number : input.number);
    return array;
}

// One bit of a number.
JsonValue withBit(const SchemaKey& key, const JsonValue* there, const FieldInput& input) {
    const bool isUsable = there && !whyNotShown(key, *there);
    const std::uint64_t bits = isUsable ? std::uint64_t(there->GetDouble()) : 0, bit = std::uint64_t{1} << input.part;
    return JsonValue{input.number != 0.0 ? bits | bit : bits & ~bit};
}

JsonValue turned(
    const std::string& place, const JsonValue* there, const FieldInput& input, const TypedAngles& typed, Edit& edit) {
    EulerAngles degrees = typed.anglesOf(place, quaternionNumbers(there));
    double& angle = degrees[std::size_t(input.part)];
    angle = input.isOffset ? angle + input.number : input.number;
    const QuaternionNumbers quaternion = quaternionFromAngles(degrees);
    edit.angles.push_back({place, degrees, quaternion});
    JsonValue array{rapidjson::kArrayType};
    for(const double number: quaternion) array.PushBack(number, allocator);
    return array;
}

std::optional<JsonValue> newValue(const InspectedGroup& group, std::size_t row, std::size_t i, const FieldInput& input,
    const TypedAngles& typed, Edit& edit) {
    const SchemaKey& key = group.rows[row];
    const JsonValue* const there = valueBelow(group.values[i], key.key);
    if(input.isReset) return {};
    if(input.value) return JsonValue{*input.value, allocator};
    if(key.kind == KeyKind::Rotation) return turned(pointerBelow(group.bases[i], key.key), there, input, typed, edit);
    return key.kind == KeyKind::Flags ? withBit(key, there, input) : withPart(key, there, input);
}

// Of several numbers only the one that is edited counts: the others may be what has to be repaired next.
std::string whyKeyRefuses(const SchemaKey& key, const JsonValue& value, const FieldInput& input) {
    if(key.kind == KeyKind::Rotation) return std::isfinite(input.number) ? "" : "the number is not finite";
    return input.part >= 0 && value.IsArray()
        ? whyNumberRefused(key, value[rapidjson::SizeType(input.part)].GetDouble())
        : whyRefused(key, value);
}

Edit refused(std::string reason) {
    Edit edit;
    edit.reason = std::move(reason);
    return edit;
}

// Whether taking a value away would leave nothing in the base, which would go with it.
bool emptiesBase(const JsonValue* place, std::string_view tail) {
    while(place && !tail.empty()) {
        const std::size_t count = place->IsObject() ? place->MemberCount() : place->IsArray() ? place->Size() : 0;
        if(count != 1) return false;
        const std::size_t end = std::min(tail.find('/'), tail.size());
        place = valueBelow(place, tail.substr(0, end));
        tail.remove_prefix(std::min(end + 1, tail.size()));
    }
    return place;
}

void removeBelow(ChangeManager& changes, const ProjectFile& file, const EditRecord& record) {
    const JsonValue* const base = file.valueByPointer({record.base.data(), record.base.size()});
    if(record.tail.empty() || !emptiesBase(base, record.tail)) {
        const std::string pointer = pointerBelow(record.base, record.tail);
        return changes.recordChange({pointer.data(), pointer.size()}, nullptr, false);
    }
    // The base stays, with nothing in it but an empty member where the value stood deeper.
    const std::size_t end = record.tail.find('/');
    const std::string pointer = end == record.tail.npos ? record.base : record.base + '/' + record.tail.substr(0, end);
    const JsonValue* const place = file.valueByPointer({pointer.data(), pointer.size()});
    const JsonValue empty{place->IsArray() ? rapidjson::kArrayType : rapidjson::kObjectType};
    changes.recordChange({pointer.data(), pointer.size()}, &empty, false);
}

} // namespace

Edit fieldEdit(const ProjectFile& file, const InspectedGroup& group, std::size_t row, const FieldInput& input,
    const TypedAngles& angles) {
    const SchemaKey& key = group.rows[row];
    Edit edit;
    edit.isHeld = input.isHeld;
    for(std::size_t i = 0; i != group.bases.size(); ++i) {
        std::optional<JsonValue> value = newValue(group, row, i, input, angles, edit);
        const JsonValue* const there = valueBelow(group.values[i], key.key);
        if(!value && !there) continue;
        if(value && there && *value == *there) continue;
        if(value) {
            std::string reason = whyKeyRefuses(key, *value, input);
            if(reason.empty()) reason = whyProjectRefuses(file, pointerBelow(group.bases[i], key.key), &*value);
            if(!reason.empty()) return refused(std::move(reason));
        }
        edit.records.push_back({group.bases[i], key.key, std::move(value)});
    }
    return edit;
}

void recordEdit(ChangeManager& changes, const ProjectFile& file, const Edit& edit, bool merge) {
    for(const EditRecord& record: edit.records)
        if(record.value)
            recordBelow(changes, file, record.base, record.tail, *record.value, merge);
        else
            removeBelow(changes, file, record);
}

Edit addComponentEdit(const std::vector<std::string>& objects, const std::vector<const JsonValue*>& values,
    const std::string& type, const JsonValue& initial) {
    Edit edit;
    for(std::size_t i = 0; i != objects.size(); ++i) {
        const JsonValue* const components = valueBelow(values[i], "components");
        if(components && !components->IsArray()) return refused("components: expected is an array");
        JsonValue component{rapidjson::kObjectType};
        JsonValue name{type.data(), rapidjson::SizeType(type.size()), allocator};
        component.AddMember("type", JsonValue{name, allocator}, allocator);
        component.AddMember(name, JsonValue{initial, allocator}, allocator);
        const std::size_t count = components ? components->Size() : 0;
        edit.records.push_back({objects[i], "components/" + std::to_string(count), std::move(component)});
    }
    return edit;
}

Edit removeEdit(const std::vector<std::string>& pointers) {
    Edit edit;
    for(const std::string& pointer: pointers) {
        // Whose array, and which element of which.
        const std::size_t index = pointer.rfind('/'), array = pointer.rfind('/', index - 1);
        edit.records.push_back({pointer.substr(0, array), pointer.substr(array + 1), {}});
    }
    return edit;
}

} // namespace VantrelEngine
