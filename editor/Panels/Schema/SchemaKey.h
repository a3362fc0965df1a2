#pragma once

#include <cstdint>
#include <limits>

#include <Corrade/Containers/ArrayView.h>

namespace VantrelEngine {

// What a key of the project holds, as far as the user has to know to edit it.
enum class KeyKind : std::uint8_t {
    Text,
    // Of several lines.
    LongText,
    Truth,
    Number,
    // What is beyond a float stands for infinity.
    NumberOrInfinity,
    WholeNumber,
    // As many numbers as the size says.
    Vector,
    WholeVector,
    // Three or four linear numbers, red, green, blue and alpha; as many of them as the size says.
    Color,
    // The same of a colour that is shown as it is.
    ScreenColor,
    // A quaternion x, y, z, w, shown as angles.
    Rotation,
    // One of the choices.
    Choice,
    // A whole number of bits; each of the choices names one, from the lowest.
    Flags,
    // The id of a resource, or of an object, of the section; "" for none.
    Reference,
    // Arrays of the two.
    References,
    Texts,
    // Has rows of its own: the components of an object, the parameters of a shader.
    Group,
    // Anything, as JSON.
    Raw
};

// One key: where it stands, what it holds, and how it is told to the user. Texts are literals.
struct SchemaKey {
    // From the object, the component, the resource or the settings on, as the end of a JSON pointer without its "/" in
    // front.
    const char* key;
    const char* label;
    KeyKind kind;
    // JSON: what is used where the key is missing. A null pointer where nothing can be.
    const char* initial;
    const char* tip;

    const char* unitText = "";
    double min = -std::numeric_limits<double>::infinity();
    double max = std::numeric_limits<double>::infinity();
    // Whether the two are no values themselves.
    bool isOpen = false;
    bool isNeverZero = false;
    std::uint8_t size = 1;
    // With "|" between them.
    const char* choiceTexts = "";
    const char* section = "";
    // The key counts only where the key "onlyOf" holds one of these, with "|" between them.
    const char* onlyOf = nullptr;
    const char* onlyFor = "";

    constexpr SchemaKey unit(const char* text) const {
        SchemaKey key = *this;
        key.unitText = text;
        return key;
    }
    constexpr SchemaKey range(double least, double most = std::numeric_limits<double>::infinity()) const {
        SchemaKey key = *this;
        key.min = least;
        key.max = most;
        return key;
    }
    constexpr SchemaKey between(double below, double above = std::numeric_limits<double>::infinity()) const {
        SchemaKey key = range(below, above);
        key.isOpen = true;
        return key;
    }
    constexpr SchemaKey neverZero() const {
        SchemaKey key = *this;
        key.isNeverZero = true;
        return key;
    }
    constexpr SchemaKey of(std::uint8_t count) const {
        SchemaKey key = *this;
        key.size = count;
        return key;
    }
    constexpr SchemaKey choices(const char* texts) const {
        SchemaKey key = *this;
        key.choiceTexts = texts;
        return key;
    }
    constexpr SchemaKey from(const char* name) const {
        SchemaKey key = *this;
        key.section = name;
        return key;
    }
    constexpr SchemaKey only(const char* other, const char* values) const {
        SchemaKey key = *this;
        key.onlyOf = other;
        key.onlyFor = values;
        return key;
    }
};

using SchemaKeys = Corrade::Containers::ArrayView<const SchemaKey>;

} // namespace VantrelEngine
