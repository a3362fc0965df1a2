#pragma once

#include <cstdint>
#include <string_view>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector.h>
#include <rapidjson/document.h>

#include "Import/Converter/Model.h"

// Values of a JSON text that may hold anything: what is missing or of another type is as if it were not there.
namespace VantrelImport {

using Json = rapidjson::Value;

// Null for what is no object, too.
const Json* member(const Json* object, const char* key);
// The elements of a list; none for what is no list.
std::size_t sizeOf(const Json* list);
// Null where there is none.
const Json* elementOf(const Json* list, std::uint64_t index);

// A whole number from 0 on that fits with one more, or Nothing.
int asIndex(const Json* value);
bool asBool(const Json* value, bool otherwise);
// Finite.
float asFloat(const Json* value, float otherwise);
std::uint64_t asSize(const Json* value, std::uint64_t otherwise);
std::string_view asText(const Json* value);

// Of exactly as many numbers, or of more.
template<std::size_t size>
Magnum::Math::Vector<size, float> asVector(const Json* value, const Magnum::Math::Vector<size, float>& otherwise) {
    if(sizeOf(value) < size) return otherwise;
    Magnum::Math::Vector<size, float> vector;
    for(std::size_t i = 0; i != size; ++i) vector[i] = asFloat(elementOf(value, i), otherwise[i]);
    return vector;
}

} // namespace VantrelImport
