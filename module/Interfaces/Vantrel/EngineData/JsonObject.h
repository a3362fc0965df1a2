#pragma once

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>

#include "Vantrel/EngineData/ValueAccess.h"

namespace VantrelEngine {

// The scaling that the engine computes with where the document says zero: small enough to look flat, and large enough
// for a matrix with it to be taken apart again. Scene units.
constexpr float SafeScaling = 1.0e-4f;

// A value of the project that is read as what it should be.
//
// Where it is missing or of a wrong type, the reader gets the project's default or else the fallback, and one line on the
// warning output names the place, the first time that this is found out there; what may be missing is so without a word.
// Numbers have to fit a float. The document stays as it is in any case.
//
// Made by ValueAccess::readValue(), and valid as long as the place.
class CORRADE_VISIBILITY_EXPORT JsonObject {
public:
    explicit JsonObject(const ValueAccess& place): _place{place} {}

    bool exists() const { return _place.exists(); }

    enum class WhenMissing { Warn, Accept };

    // Valid until the document is changed.
    Corrade::Containers::StringView asString(
        Corrade::Containers::StringView fallback = "", WhenMissing whenMissing = WhenMissing::Warn) const;
    bool asBool(bool fallback = false, WhenMissing whenMissing = WhenMissing::Warn) const;
    Magnum::Float asFloat(Magnum::Float fallback = 0.0f, WhenMissing whenMissing = WhenMissing::Warn) const;
    // As asFloat(), but what is beyond a float is infinity.
    Magnum::Float asFloatOrInfinity(Magnum::Float fallback = 0.0f, WhenMissing whenMissing = WhenMissing::Warn) const;
    // Whole numbers of 32 bits; fractions are a wrong type.
    Magnum::Int asInt(Magnum::Int fallback = 0, WhenMissing whenMissing = WhenMissing::Warn) const;
    Magnum::UnsignedInt asUnsignedInt(
        Magnum::UnsignedInt fallback = 0, WhenMissing whenMissing = WhenMissing::Warn) const;
    // Arrays of as many numbers.
    Magnum::Vector2i asVector2i() const;
    Magnum::Vector3 asVector3() const;
    Magnum::Vector3 asVector3(const Magnum::Vector3& fallback, WhenMissing whenMissing = WhenMissing::Warn) const;
    Magnum::Vector4 asVector4() const;
    // x, y, z, w; normalised. Identity by default, and for a length of zero.
    Magnum::Quaternion asQuaternion() const;
    // Three numbers, 1 by default; zero is read as SafeScaling, with the sign of the zero.
    Magnum::Vector3 asScaling() const;
    // Of an object of the scene: the matrix of "translation", "rotation" and "scaling".
    Magnum::Matrix4 asTransform() const;

    // Elements or members; 0 for what is neither an array nor an object.
    std::size_t size() const;

    // The mutable value at a JSON pointer of the document, null where there is none. See ProjectFile.
    static JsonValue* valueByPointer(ProjectFile& file, Corrade::Containers::StringView pointer);

private:
    void warnMissing(const char* expected) const;
    template<class T, class Reader>
    T read(const char* expected, Reader reader, const T& fallback, WhenMissing whenMissing = WhenMissing::Warn) const;

    ValueAccess _place;
};

} // namespace VantrelEngine
