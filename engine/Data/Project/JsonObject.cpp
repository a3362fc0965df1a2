#include "Vantrel/EngineData/JsonObject.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <string>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/Math/Vector4.h>

#include "Vantrel/EngineData/ProjectFile.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

bool fitsFloat(const JsonValue& value) {
    return value.IsNumber() && std::abs(value.GetDouble()) <= double(std::numeric_limits<float>::max());
}

template<class Vector> std::optional<Vector> numbers(const JsonValue& value) {
    if(!value.IsArray() || value.Size() != Vector::Size) return {};
    Vector vector;
    for(rapidjson::SizeType i = 0; i != rapidjson::SizeType(Vector::Size); ++i) {
        if(!fitsFloat(value[i])) return {};
        vector[i] = float(value[i].GetDouble());
    }
    return vector;
}

std::optional<Containers::StringView> text(const JsonValue& value) {
    if(!value.IsString()) return {};
    return Containers::StringView{
        value.GetString(), value.GetStringLength(), Containers::StringViewFlag::NullTerminated};
}

std::optional<bool> truth(const JsonValue& value) {
    if(!value.IsBool()) return {};
    return value.GetBool();
}

std::optional<float> number(const JsonValue& value) {
    if(!fitsFloat(value)) return {};
    return float(value.GetDouble());
}

std::optional<float> numberOrInfinity(const JsonValue& value) {
    if(!value.IsNumber()) return {};
    if(fitsFloat(value)) return float(value.GetDouble());
    return std::copysign(std::numeric_limits<float>::infinity(), float(value.GetDouble() < 0 ? -1 : 1));
}

// Editors write whole numbers as 1.0, too.
template<class T> std::optional<T> wholeNumber(const JsonValue& value) {
    if(!value.IsNumber()) return {};
    const double number = value.GetDouble();
    if(number != std::floor(number) || number < double(std::numeric_limits<T>::min()) ||
        number > double(std::numeric_limits<T>::max()))
        return {};
    return T(number);
}

std::optional<Quaternion> rotation(const JsonValue& value) {
    const std::optional<Vector4> components = numbers<Vector4>(value);
    if(!components) return {};
    // The largest component first, so that neither tiny nor huge ones are lost when they are squared.
    const float largest = Math::abs(*components).max();
    if(!(largest > 0.0f)) return {};
    const Vector4 scaled = *components / largest;
    return Quaternion{scaled.xyz(), scaled.w()}.normalized();
}

} // namespace

void JsonObject::warnMissing(const char* expected) const {
    _place.file().warnOnce(_place.description() + ": missing, expected is " + expected);
}

template<class T, class Reader>
T JsonObject::read(const char* expected, Reader reader, const T& fallback, WhenMissing whenMissing) const {
    const JsonValue* const value = _place.value();
    if(!value) {
        if(whenMissing == WhenMissing::Warn) warnMissing(expected);
        return fallback;
    }
    if(const std::optional<T> read = reader(*value)) return *read;
    _place.file().warnUnusable(
        {_place.path(), std::string{"not usable, expected is "} + expected}, _place.description());
    if(const JsonValue* const other = _place.defaultValue())
        if(const std::optional<T> read = reader(*other)) return *read;
    return fallback;
}

Containers::StringView JsonObject::asString(Containers::StringView fallback, WhenMissing whenMissing) const {
    return read("a text", text, fallback, whenMissing);
}

bool JsonObject::asBool(bool fallback, WhenMissing whenMissing) const {
    return read("true or false", truth, fallback, whenMissing);
}

Float JsonObject::asFloat(Float fallback, WhenMissing whenMissing) const {
    return read("a number", number, fallback, whenMissing);
}

Float JsonObject::asFloatOrInfinity(Float fallback, WhenMissing whenMissing) const {
    return read("a number", numberOrInfinity, fallback, whenMissing);
}

Int JsonObject::asInt(Int fallback, WhenMissing whenMissing) const {
    return read("a whole number", wholeNumber<Int>, fallback, whenMissing);
}

UnsignedInt JsonObject::asUnsignedInt(UnsignedInt fallback, WhenMissing whenMissing) const {
    return read("a whole number that is not negative", wholeNumber<UnsignedInt>, fallback, whenMissing);
}

Vector2i JsonObject::asVector2i() const {
    const auto whole = [](const JsonValue& value) -> std::optional<Vector2i> {
        if(!value.IsArray() || value.Size() != 2) return {};
        const std::optional<Int> x = wholeNumber<Int>(value[0]), y = wholeNumber<Int>(value[1]);
        if(!x || !y) return {};
        return Vector2i{*x, *y};
    };
    return read("an array of 2 whole numbers", whole, Vector2i{});
}

Vector3 JsonObject::asVector3() const { return asVector3(Vector3{}); }

Vector3 JsonObject::asVector3(const Vector3& fallback, WhenMissing whenMissing) const {
    return read("an array of 3 numbers", numbers<Vector3>, fallback, whenMissing);
}

Vector4 JsonObject::asVector4() const { return read("an array of 4 numbers", numbers<Vector4>, Vector4{}); }

Quaternion JsonObject::asQuaternion() const {
    return read("an array of 4 numbers, not all zero", rotation, Quaternion{});
}

Vector3 JsonObject::asScaling() const {
    Vector3 scaling = read("an array of 3 numbers", numbers<Vector3>, Vector3{1.0f});
    for(float& factor: scaling.data())
        if(factor == 0.0f) factor = std::copysign(SafeScaling, factor);
    return scaling;
}

Matrix4 JsonObject::asTransform() const {
    const Vector3 translation = _place["translation"].readValue().asVector3();
    const Quaternion rotation = _place["rotation"].readValue().asQuaternion();
    const Vector3 scaling = _place["scaling"].readValue().asScaling();
    return Matrix4::from(rotation.toMatrix(), translation) * Matrix4::scaling(scaling);
}

std::size_t JsonObject::size() const {
    const JsonValue* const value = _place.value();
    return !value ? 0 : value->IsArray() ? value->Size() : value->IsObject() ? value->MemberCount() : 0;
}

JsonValue* JsonObject::valueByPointer(ProjectFile& file, Containers::StringView pointer) {
    return file.valueByPointer(pointer);
}

} // namespace VantrelEngine
