#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <rapidjson/document.h>

namespace VantrelEngine {

using GlbValue = rapidjson::Value;

// Elements of a GLB file, checked to lie inside of it: at least one, each of a number of components without gaps, and
// not overlapping each other. Not aligned.
struct GlbAccessor {
    // Values as in the file.
    enum class Type : std::uint16_t {
        Byte = 5120,
        UnsignedByte = 5121,
        Short = 5122,
        UnsignedShort = 5123,
        UnsignedInt = 5125,
        Float = 5126
    };

    const char* data;
    std::size_t count;
    // Bytes from one element to the next.
    std::size_t stride;
    // 1 for scalars to 16 for matrices of four columns; those of two or three columns are not supported.
    unsigned components;
    Type type;
    // Whether integers stand for numbers in [0, 1] or [-1, 1].
    bool isNormalized;

    bool isFloat() const { return type == Type::Float; }
    bool isUnsignedSmall() const { return type == Type::UnsignedByte || type == Type::UnsignedShort; }

    // Converts the first components of every element, as many as are wanted, and writes them at a distance in bytes.
    // Expects that an element has as many.
    void readFloats(void* destination, std::size_t destinationStride, unsigned wanted) const;
    // The same as 16-bit integers; expects unsigned ones of 8 or 16 bits.
    void readUnsignedShorts(void* destination, std::size_t destinationStride, unsigned wanted) const;
    // The first component; expects unsigned integers.
    std::uint32_t unsignedAt(std::size_t element) const;
};

// The binary container of glTF 2.0: a JSON text and a block of data. Every reference that is followed is checked.
//
// What says no gives a reason in words that continue "NAME: ".
class GlbFile {
public:
    // Reads the JSON; the data are left where they are, so the bytes have to stay for as long as the file is used. None,
    // and a reason, for what is no such file.
    static std::optional<GlbFile> open(Corrade::Containers::ArrayView<const char> bytes, std::string& reason);

    // An element of a list below the root; null where there is none.
    const GlbValue* element(const char* list, std::uint64_t index) const;

    // Reads a whole number that is not negative. Where it is missing the value stays; false, and a reason, where it is
    // something else.
    static bool readIndex(const GlbValue& object, const char* key, std::uint64_t& value, std::string& reason);
    // Null for what is no object, too.
    static const GlbValue* member(const GlbValue& object, const char* key);
    // Whether a text stands there.
    static bool isText(const GlbValue& object, const char* key, const char* text);

    std::optional<GlbAccessor> accessor(std::uint64_t index, std::string& reason) const;

private:
    struct DataView {
        const char* data;
        std::uint64_t size;
        std::uint64_t stride; // 0: none is given
    };

    GlbFile() = default;

    bool readChunks(Corrade::Containers::ArrayView<const char> bytes, std::string& reason);
    bool readJson(Corrade::Containers::ArrayView<const char> text, std::string& reason);
    bool checkVersion(std::string& reason) const;
    std::optional<DataView> bufferView(std::uint64_t index, std::string& reason) const;
    bool checkBuffer(std::uint64_t index, std::uint64_t end, std::string& reason) const;
    bool place(const GlbValue& json, GlbAccessor& accessor, std::uint64_t elementSize, std::string& reason) const;

    rapidjson::Document _json;
    Corrade::Containers::ArrayView<const char> _data;
};

} // namespace VantrelEngine
