#include "Import/Converter/GltfFile.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "Import/Converter/Messages.h"
#include "Import/Converter/Text.h"

namespace VantrelImport {

namespace {

// Of the container, little endian. https://registry.khronos.org/glTF/specs/2.0/glTF-2.0.html#binary-gltf-layout
constexpr std::uint32_t Magic = 0x46546c67;     // "glTF"
constexpr std::uint32_t JsonChunk = 0x4e4f534a; // "JSON"
constexpr std::uint32_t DataChunk = 0x004e4942; // "BIN"
constexpr std::size_t HeaderSize = 12;
constexpr std::size_t ChunkHeaderSize = 8;

// Bytes that one accessor may take: one without values in the file can ask for any number.
constexpr std::uint64_t MaximumDecodedSize = std::uint64_t{1} << 30;

enum ComponentType { Byte = 5120, UnsignedByte, Short, UnsignedShort, UnsignedInt = 5125, Float };

std::uint32_t wordAt(const std::vector<char>& bytes, std::size_t offset) {
    std::uint32_t word = 0;
    for(std::size_t i = 4; i-- != 0;) word = word << 8 | static_cast<unsigned char>(bytes[offset + i]);
    return word;
}

unsigned sizeOfType(int type) {
    switch(type) {
    case Byte:
    case UnsignedByte: return 1;
    case Short:
    case UnsignedShort: return 2;
    case UnsignedInt:
    case Float: return 4;
    }
    throw Unusable{"the type of an accessor's components is not known"};
}

unsigned componentsOfShape(std::string_view shape) {
    static constexpr struct {
        std::string_view name;
        unsigned count;
    } Shapes[]{{"SCALAR", 1}, {"VEC2", 2}, {"VEC3", 3}, {"VEC4", 4}, {"MAT4", 16}};
    for(const auto& known: Shapes)
        if(known.name == shape) return known.count;
    throw Unusable{"an accessor of type " + quoted(shape) + " is not supported"};
}

// https://registry.khronos.org/glTF/specs/2.0/glTF-2.0.html#animations, on normalized integers.
template<class To, class From> To converted(From value, bool isNormalized) {
    if constexpr(std::is_integral_v<From> && std::is_floating_point_v<To>)
        if(isNormalized) return std::max(To(value) / To(std::numeric_limits<From>::max()), To(-1));
    return To(value);
}

template<class From, class To> void convert(const char* from, bool isNormalized, unsigned count, To* to) {
    for(unsigned i = 0; i != count; ++i) {
        From value;
        std::memcpy(&value, from + i * sizeof(From), sizeof(From));
        to[i] = converted<To>(value, isNormalized);
    }
}

template<class To> void convert(int type, const char* from, bool isNormalized, unsigned count, To* to) {
    if constexpr(std::is_floating_point_v<To>) switch(type) {
        case Byte: return convert<std::int8_t>(from, isNormalized, count, to);
        case Short: return convert<std::int16_t>(from, isNormalized, count, to);
        case Float: return convert<float>(from, isNormalized, count, to);
        }
    switch(type) {
    case UnsignedByte: return convert<std::uint8_t>(from, isNormalized, count, to);
    case UnsignedShort: return convert<std::uint16_t>(from, isNormalized, count, to);
    case UnsignedInt: return convert<std::uint32_t>(from, isNormalized, count, to);
    }
}

// Where an element lies, in terms that do not overflow.
void checkRange(
    std::uint64_t size, std::uint64_t offset, std::uint64_t stride, std::uint64_t elementSize, std::uint64_t count) {
    if(count == 0) return;
    if(offset > size || elementSize > size - offset || (stride && count - 1 > (size - offset - elementSize) / stride))
        throw Unusable{"an accessor reaches beyond its buffer view"};
}

bool isKnownExtension(std::string_view name) {
    // Without what they add, a material looks less well, and is there.
    return name.substr(0, 14) == "KHR_materials_" || name == "KHR_texture_transform" || name == "KHR_lights_punctual" ||
        name == "KHR_mesh_quantization" || name == "KHR_texture_basisu" || name == "EXT_texture_webp";
}

} // namespace

bool isGltfContainer(const std::vector<char>& bytes) { return bytes.size() >= 4 && wordAt(bytes, 0) == Magic; }

GltfFile::GltfFile(std::vector<char> bytes, const AssetFolder& folder): _folder{folder} {
    if(isGltfContainer(bytes))
        readContainer(bytes);
    else
        readJson(bytes.data(), bytes.size());
    checkVersion();
    checkExtensions();
}

void GltfFile::readContainer(const std::vector<char>& bytes) {
    if(bytes.size() < HeaderSize) throw Unusable{"the file is truncated"};
    if(wordAt(bytes, 4) != 2)
        throw Unusable{"this is version " + std::to_string(wordAt(bytes, 4)) + " of glTF; version 2 can be read"};
    const std::size_t end = std::min<std::size_t>(bytes.size(), wordAt(bytes, 8));
    bool hasJson = false;
    for(std::size_t offset = HeaderSize; end > offset && end - offset >= ChunkHeaderSize;) {
        const std::size_t size = wordAt(bytes, offset);
        const std::uint32_t type = wordAt(bytes, offset + 4);
        offset += ChunkHeaderSize;
        if(size > end - offset) throw Unusable{"the file is truncated"};
        if(type == JsonChunk && !hasJson) readJson(bytes.data() + offset, size);
        hasJson = hasJson || type == JsonChunk;
        if(type == DataChunk && !_hasBinary) {
            _binary.assign(bytes.begin() + std::ptrdiff_t(offset), bytes.begin() + std::ptrdiff_t(offset + size));
            _hasBinary = true;
        }
        offset += size;
    }
    if(!hasJson) throw Unusable{"the file has no JSON chunk"};
}

void GltfFile::readJson(const char* text, std::size_t size) {
    // A byte order mark is not allowed, and harmless.
    if(size >= 3 && std::memcmp(text, "\xef\xbb\xbf", 3) == 0) {
        text += 3;
        size -= 3;
    }
    // The iterative parser takes any depth.
    _json.Parse<rapidjson::kParseIterativeFlag | rapidjson::kParseValidateEncodingFlag>(text, size);
    if(_json.HasParseError()) throw Unusable{"its JSON is damaged at byte " + std::to_string(_json.GetErrorOffset())};
    if(!_json.IsObject()) throw Unusable{"its JSON is no object"};
}

void GltfFile::checkVersion() const {
    const std::string_view version = asText(member(list("asset"), "version"));
    if(version.substr(0, 2) == "2.") return;
    if(version.empty()) throw Unusable{"this is not glTF: it names no version"};
    throw Unusable{"this is version " + quoted(version) + " of glTF; version 2 can be read"};
}

void GltfFile::checkExtensions() const {
    const Json* const required = list("extensionsRequired");
    for(std::size_t i = 0; i != sizeOf(required); ++i) {
        const std::string_view name = asText(elementOf(required, i));
        if(!isKnownExtension(name))
            throw Unusable{"it needs the extension " + quoted(name) + ", which is not supported"};
    }
}

const std::vector<char>& GltfFile::buffer(int index) {
    const auto found = _buffers.find(index);
    if(found != _buffers.end()) return found->second;
    const Json* const json = element("buffers", index);
    if(!json) throw Unusable{"there is no buffer " + std::to_string(index)};
    const Json* const uri = member(json, "uri");
    if(!uri && (index != 0 || !_hasBinary)) throw Unusable{"buffer " + std::to_string(index) + " has no data"};
    std::vector<char> bytes = uri ? uriBytes(asText(uri)) : std::move(_binary);
    // Data may be padded behind the end.
    const std::uint64_t size = asSize(member(json, "byteLength"), 0);
    if(size < bytes.size()) bytes.resize(size);
    return _buffers[index] = std::move(bytes);
}

std::vector<char> GltfFile::uriBytes(std::string_view uri) const {
    if(uri.substr(0, 5) == "data:") {
        auto bytes = dataOfUri(uri);
        if(!bytes) throw Unusable{"a data: URI is damaged"};
        return std::move(*bytes);
    }
    const std::string name = percentDecoded(uri);
    std::string reason;
    auto bytes = _folder.read(name, reason);
    if(!bytes) throw Unusable{quoted(name) + ": " + reason};
    return std::move(*bytes);
}

GltfFile::View GltfFile::view(int index) {
    const Json* const json = element("bufferViews", index);
    if(!json) throw Unusable{"there is no buffer view " + std::to_string(index)};
    const std::vector<char>& bytes = buffer(asIndex(member(json, "buffer")));
    const std::uint64_t offset = asSize(member(json, "byteOffset"), 0), size = asSize(member(json, "byteLength"), 0);
    if(offset > bytes.size() || size > bytes.size() - offset)
        throw Unusable{"buffer view " + std::to_string(index) + " reaches beyond its buffer"};
    return {bytes.data() + offset, size, asSize(member(json, "byteStride"), 0)};
}

std::vector<char> GltfFile::viewBytes(int index) {
    const View bytes = view(index);
    return {bytes.data, bytes.data + bytes.size};
}

unsigned GltfFile::componentsOf(int accessor) const {
    const Json* const json = element("accessors", accessor);
    return json ? componentsOfShape(asText(member(json, "type"))) : 0;
}

bool GltfFile::hasValues(int accessor) const {
    const Json* const json = element("accessors", accessor);
    return member(json, "bufferView") || member(json, "sparse");
}

template<class To> std::vector<To> GltfFile::values(int accessor, unsigned wanted) {
    const Json* const json = element("accessors", accessor);
    if(!json) throw Unusable{"there is no accessor " + std::to_string(accessor)};
    const int type = asIndex(member(json, "componentType"));
    const unsigned components = componentsOfShape(asText(member(json, "type")));
    const bool isNormalized = asBool(member(json, "normalized"), false);
    if(components < wanted ||
        (!std::is_floating_point_v<To> && (isNormalized || type == Byte || type == Short || type == Float)))
        throw Unusable{"the type of accessor " + std::to_string(accessor) + " is not supported there"};
    const std::uint64_t count = asSize(member(json, "count"), 0);
    const std::uint64_t elementSize = std::uint64_t{components} * sizeOfType(type);
    if(count > MaximumDecodedSize / (wanted * sizeof(To)))
        throw Unusable{
            "accessor " + std::to_string(accessor) + " has " + std::to_string(count) + " elements, too many"};

    const Json* const viewIndex = member(json, "bufferView");
    View bytes{nullptr, 0, 0};
    const std::uint64_t offset = asSize(member(json, "byteOffset"), 0);
    if(viewIndex) {
        bytes = view(asIndex(viewIndex));
        if(bytes.stride == 0) bytes.stride = elementSize;
        checkRange(bytes.size, offset, bytes.stride, elementSize, count);
    }
    std::vector<To> result(count * wanted);
    if(viewIndex)
        for(std::uint64_t i = 0; i != count; ++i)
            convert(type, bytes.data + offset + i * bytes.stride, isNormalized, wanted, result.data() + i * wanted);
    if(const Json* const sparse = member(json, "sparse"))
        putSparse(*sparse, type, isNormalized, components, wanted, count, result);
    return result;
}

template<class To>
void GltfFile::putSparse(const Json& sparse, int type, bool isNormalized, unsigned components, unsigned wanted,
    std::size_t count, std::vector<To>& values) {
    const Json* const indices = member(&sparse, "indices");
    const Json* const elements = member(&sparse, "values");
    const std::uint64_t changed = asSize(member(&sparse, "count"), 0);
    const int indexType = asIndex(member(indices, "componentType"));
    const unsigned indexSize = sizeOfType(indexType), elementSize = components * sizeOfType(type);
    const View indexView = view(asIndex(member(indices, "bufferView")));
    const std::uint64_t indexOffset = asSize(member(indices, "byteOffset"), 0);
    checkRange(indexView.size, indexOffset, indexSize, indexSize, changed);
    const View valueView = view(asIndex(member(elements, "bufferView")));
    const std::uint64_t valueOffset = asSize(member(elements, "byteOffset"), 0);
    checkRange(valueView.size, valueOffset, elementSize, elementSize, changed);
    for(std::uint64_t i = 0; i != changed; ++i) {
        std::uint32_t at = 0;
        convert(indexType, indexView.data + indexOffset + i * indexSize, false, 1, &at);
        if(at >= count) throw Unusable{"a sparse accessor changes an element that is not there"};
        convert(type, valueView.data + valueOffset + i * elementSize, isNormalized, wanted, &values[at * wanted]);
    }
}

std::vector<float> GltfFile::floats(int accessor, unsigned components) { return values<float>(accessor, components); }

std::vector<std::uint32_t> GltfFile::integers(int accessor, unsigned components) {
    return values<std::uint32_t>(accessor, components);
}

} // namespace VantrelImport
