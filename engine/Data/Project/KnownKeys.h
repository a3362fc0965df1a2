#pragma once

#include <string>
#include <string_view>

#include <Corrade/Containers/ArrayView.h>

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

// What the engine reads a value of the project as.
enum class KeyType {
    Text,
    Truth,
    // Fits a float.
    Number,
    // What is beyond a float is infinity.
    NumberOrInfinity,
    WholeNumber,
    // Not negative.
    UnsignedNumber,
    Vector2i,
    Vector3,
    Vector4,
    // Four numbers, not all zero.
    Rotation,
    Object,
    Array
};

struct KnownKey {
    // With "/" between the steps; an object on the way stands in front of what it holds.
    const char* key;
    KeyType type;
};

// The keys of each object below "objects".
Corrade::Containers::ArrayView<const KnownKey> objectKeys();
// The keys of a component of this type besides "type"; empty for a type that is not built in.
Corrade::Containers::ArrayView<const KnownKey> componentKeys(std::string_view type);
// The keys below "settings".
Corrade::Containers::ArrayView<const KnownKey> settingsKeys();

// The value at a key with steps, null where there is none.
const JsonValue* valueAtKey(const JsonValue& value, std::string_view key);

// Whether a name is that of a section: a member of the root that the engine reads.
bool isSection(std::string_view name);

// The place of the bloom kernel's size, a section's key, and what the size can be.
constexpr const char* BloomKernelSizeKey = "rendering/bloom/kernelSize";
constexpr double MaxBloomKernelSize = 21.0;

// Why a value cannot be read as a type; null where it can.
const char* whyNotUsable(const JsonValue& value, KeyType type);

// A finite number beyond the largest float.
bool isBeyondFloat(const JsonValue& value);

} // namespace VantrelEngine
