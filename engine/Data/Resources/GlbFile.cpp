#include "Data/Resources/GlbFile.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <string_view>
#include <vector>

#include <Corrade/Utility/Assert.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

constexpr std::uint32_t Magic = 0x46546c67;     // "glTF"
constexpr std::uint32_t JsonChunk = 0x4e4f534a; // "JSON"
constexpr std::uint32_t DataChunk = 0x004e4942; // "BIN"
constexpr std::size_t HeaderSize = 12;
constexpr std::size_t ChunkHeaderSize = 8;

// The JSON takes several times the memory of its text.
constexpr std::size_t MaximumJsonSize = 64 << 20;
constexpr std::size_t MaximumDepth = 64;

// Little endian.
std::uint32_t wordAt(Containers::ArrayView<const char> bytes, std::size_t offset) {
    std::uint32_t word = 0;
    for(std::size_t i = 4; i-- != 0;) word = word << 8 | static_cast<unsigned char>(bytes[offset + i]);
    return word;
}

std::string_view nameOf(const GlbValue& text) { return {text.GetString(), text.GetStringLength()}; }

// Before the text is parsed: the parser recurses.
bool isTooDeep(Containers::ArrayView<const char> text) {
    std::size_t depth = 0;
    bool inString = false;
    for(std::size_t i = 0; i != text.size(); ++i) {
        const char c = text[i];
        if(inString && c == '\\')
            i = std::min(i + 1, text.size() - 1);
        else if(c == '"')
            inString = !inString;
        else if(!inString && (c == '{' || c == '[') && ++depth > MaximumDepth)
            return true;
        else if(!inString && (c == '}' || c == ']') && depth)
            --depth;
    }
    return false;
}

// A name that occurs twice in one object; empty where there is none.
std::string duplicateName(const GlbValue& value) {
    std::string found;
    if(value.IsArray())
        for(auto i = value.Begin(); i != value.End() && found.empty(); ++i) found = duplicateName(*i);
    if(!value.IsObject()) return found;
    std::vector<std::string_view> names;
    for(auto i = value.MemberBegin(); i != value.MemberEnd() && found.empty(); ++i) {
        names.push_back(nameOf(i->name));
        found = duplicateName(i->value);
    }
    std::sort(names.begin(), names.end());
    const auto twice = std::adjacent_find(names.begin(), names.end());
    return found.empty() && twice != names.end() ? '"' + std::string{*twice} + '"' : found;
}

// Extensions that say nothing of geometry, skins and animations.
bool isHarmless(std::string_view extension) {
    for(const std::string_view prefix: {"KHR_materials_", "KHR_texture_", "KHR_lights_"})
        if(extension.substr(0, prefix.size()) == prefix) return true;
    return false;
}

unsigned componentCount(std::string_view type) {
    static constexpr struct {
        std::string_view name;
        unsigned count;
    } Types[]{{"SCALAR", 1}, {"VEC2", 2}, {"VEC3", 3}, {"VEC4", 4}, {"MAT4", 16}};
    for(const auto& known: Types)
        if(known.name == type) return known.count;
    return 0;
}

unsigned componentSize(std::uint64_t type) {
    switch(type) {
    case 5120:
    case 5121: return 1;
    case 5122:
    case 5123: return 2;
    case 5125:
    case 5126: return 4;
    }
    return 0;
}

template<class To, class From> To convert(From value, bool isNormalized) {
    if constexpr(std::numeric_limits<From>::is_integer && !std::numeric_limits<To>::is_integer)
        if(isNormalized) return std::max(To(value) / To(std::numeric_limits<From>::max()), To(-1));
    return To(value);
}

template<class From, class To>
void convertAll(const GlbAccessor& from, char* destination, std::size_t stride, unsigned count) {
    for(std::size_t i = 0; i != from.count; ++i) {
        for(unsigned j = 0; j != count; ++j) {
            From value;
            std::memcpy(&value, from.data + i * from.stride + j * sizeof(From), sizeof(From));
            const To converted = convert<To>(value, from.isNormalized);
            std::memcpy(destination + i * stride + j * sizeof(To), &converted, sizeof(To));
        }
    }
}

template<class To> void convertAny(const GlbAccessor& from, char* destination, std::size_t stride, unsigned count) {
    switch(from.type) {
    case GlbAccessor::Type::Byte: return convertAll<std::int8_t, To>(from, destination, stride, count);
    case GlbAccessor::Type::UnsignedByte: return convertAll<std::uint8_t, To>(from, destination, stride, count);
    case GlbAccessor::Type::Short: return convertAll<std::int16_t, To>(from, destination, stride, count);
    case GlbAccessor::Type::UnsignedShort: return convertAll<std::uint16_t, To>(from, destination, stride, count);
    case GlbAccessor::Type::UnsignedInt: return convertAll<std::uint32_t, To>(from, destination, stride, count);
    case GlbAccessor::Type::Float: break;
    }
    if constexpr(!std::numeric_limits<To>::is_integer) return convertAll<float, To>(from, destination, stride, count);
}

} // namespace

void GlbAccessor::readFloats(void* destination, std::size_t destinationStride, unsigned wanted) const {
    CORRADE_ASSERT(wanted <= components, "GlbAccessor::readFloats():" << wanted << "components of" << components, );
    convertAny<float>(*this, static_cast<char*>(destination), destinationStride, wanted);
}

void GlbAccessor::readUnsignedShorts(void* destination, std::size_t destinationStride, unsigned wanted) const {
    CORRADE_ASSERT(wanted <= components && isUnsignedSmall(),
        "GlbAccessor::readUnsignedShorts():" << wanted << "components of" << components, );
    convertAny<std::uint16_t>(*this, static_cast<char*>(destination), destinationStride, wanted);
}

std::uint32_t GlbAccessor::unsignedAt(std::size_t element) const {
    const auto* const bytes = reinterpret_cast<const unsigned char*>(data + element * stride);
    if(type == Type::UnsignedByte) return bytes[0];
    std::uint32_t value = 0;
    std::memcpy(&value, bytes, type == Type::UnsignedShort ? 2 : 4);
    return value;
}

std::optional<GlbFile> GlbFile::open(Containers::ArrayView<const char> bytes, std::string& reason) {
    GlbFile file;
    if(!file.readChunks(bytes, reason) || !file.checkVersion(reason)) return {};
    return std::optional<GlbFile>{std::move(file)};
}

bool GlbFile::readChunks(Containers::ArrayView<const char> bytes, std::string& reason) {
    if(bytes.size() < 4 || wordAt(bytes, 0) != Magic) {
        reason = "this is not a GLB file";
        return false;
    }
    if(bytes.size() < HeaderSize || wordAt(bytes, 8) > bytes.size()) {
        reason = "the file is truncated";
        return false;
    }
    if(wordAt(bytes, 4) != 2) {
        reason = "this is version " + std::to_string(wordAt(bytes, 4)) + " of the container, not 2";
        return false;
    }
    if(wordAt(bytes, 8) != bytes.size()) {
        reason = "the file is longer than its header says";
        return false;
    }
    for(std::size_t offset = HeaderSize, i = 0; offset != bytes.size(); ++i) {
        if(bytes.size() - offset < ChunkHeaderSize || wordAt(bytes, offset) > bytes.size() - offset - ChunkHeaderSize) {
            reason = "a chunk reaches beyond the end of the file";
            return false;
        }
        const auto chunk = bytes.sliceSize(offset + ChunkHeaderSize, wordAt(bytes, offset));
        const std::uint32_t type = wordAt(bytes, offset + 4);
        if((i == 0) != (type == JsonChunk)) {
            reason = i ? "there are two JSON chunks" : "the first chunk is not JSON";
            return false;
        }
        if(i == 0 && !readJson(chunk, reason)) return false;
        if(i == 1 && type == DataChunk) _data = chunk;
        offset += ChunkHeaderSize + chunk.size();
    }
    if(_json.IsObject()) return true;
    reason = "the file has no JSON chunk";
    return false;
}

bool GlbFile::readJson(Containers::ArrayView<const char> text, std::string& reason) {
    if(text.size() > MaximumJsonSize) {
        reason = "its JSON has more than " + std::to_string(MaximumJsonSize) + " bytes";
        return false;
    }
    if(isTooDeep(text)) {
        reason = "its JSON is nested deeper than " + std::to_string(MaximumDepth) + " levels";
        return false;
    }
    _json.Parse<rapidjson::kParseValidateEncodingFlag>(text.data(), text.size());
    if(_json.HasParseError() || !_json.IsObject()) {
        reason = "its JSON is damaged at byte " + std::to_string(_json.GetErrorOffset());
        return false;
    }
    const std::string twice = duplicateName(_json);
    if(twice.empty()) return true;
    reason = "its JSON has " + twice + " twice in one object";
    return false;
}

bool GlbFile::checkVersion(std::string& reason) const {
    const GlbValue* const asset = member(_json, "asset");
    const GlbValue* const version = asset ? member(*asset, "version") : nullptr;
    if(!version || !version->IsString() || nameOf(*version).substr(0, 2) != "2.") {
        reason = "this is not version 2 of glTF";
        return false;
    }
    const GlbValue* const required = member(_json, "extensionsRequired");
    if(!required) return true;
    if(!required->IsArray()) {
        reason = "\"extensionsRequired\" is not a list";
        return false;
    }
    for(const GlbValue& extension: required->GetArray()) {
        if(extension.IsString() && isHarmless(nameOf(extension))) continue;
        reason = "the extension " + (extension.IsString() ? std::string{nameOf(extension)} : "without a name") +
            " is not supported";
        return false;
    }
    return true;
}

const GlbValue* GlbFile::element(const char* list, std::uint64_t index) const {
    const GlbValue* const values = member(_json, list);
    return values && values->IsArray() && index < values->Size() ? &(*values)[rapidjson::SizeType(index)] : nullptr;
}

const GlbValue* GlbFile::member(const GlbValue& object, const char* key) {
    if(!object.IsObject()) return nullptr;
    const auto found = object.FindMember(key);
    return found == object.MemberEnd() ? nullptr : &found->value;
}

bool GlbFile::isText(const GlbValue& object, const char* key, const char* text) {
    const GlbValue* const value = member(object, key);
    return value && value->IsString() && nameOf(*value) == text;
}

bool GlbFile::readIndex(const GlbValue& object, const char* key, std::uint64_t& value, std::string& reason) {
    const GlbValue* const number = member(object, key);
    if(!number) return true;
    if(!number->IsUint64()) {
        reason = std::string{"\""} + key + "\" is not a whole number";
        return false;
    }
    value = number->GetUint64();
    return true;
}

std::optional<GlbAccessor> GlbFile::accessor(std::uint64_t index, std::string& reason) const {
    const auto refuse = [&](const std::string& problem) {
        reason = "accessor " + std::to_string(index) + ": " + problem;
        return std::optional<GlbAccessor>{};
    };
    const GlbValue* const json = element("accessors", index);
    if(!json || !json->IsObject()) return refuse("it is not there");
    if(member(*json, "sparse")) return refuse("sparse accessors are not supported");

    GlbAccessor accessor{};
    std::uint64_t type = 0, count = 0;
    std::string problem;
    if(!readIndex(*json, "componentType", type, problem) || !readIndex(*json, "count", count, problem))
        return refuse(problem);
    const GlbValue* const shape = member(*json, "type");
    accessor.components = shape && shape->IsString() ? componentCount(nameOf(*shape)) : 0;
    if(!componentSize(type) || !accessor.components) return refuse("its type is not known");
    if(!count) return refuse("it has no elements");
    const GlbValue* const normalized = member(*json, "normalized");
    if(normalized && !normalized->IsBool()) return refuse("\"normalized\" is neither true nor false");
    accessor.type = GlbAccessor::Type(type);
    accessor.count = count;
    accessor.isNormalized = normalized && normalized->GetBool();
    if(!place(*json, accessor, componentSize(type) * accessor.components, problem)) return refuse(problem);
    return accessor;
}

bool GlbFile::place(const GlbValue& json, GlbAccessor& accessor, std::uint64_t elementSize, std::string& reason) const {
    std::uint64_t viewIndex = ~std::uint64_t{}, offset = 0;
    if(!readIndex(json, "bufferView", viewIndex, reason) || !readIndex(json, "byteOffset", offset, reason))
        return false;
    const std::optional<DataView> view = bufferView(viewIndex, reason);
    if(!view) return false;
    const std::uint64_t stride = view->stride ? view->stride : elementSize;
    if(stride < elementSize) {
        reason = "its elements overlap";
        return false;
    }
    // In terms that do not overflow.
    if(offset > view->size || elementSize > view->size - offset ||
        accessor.count - 1 > (view->size - offset - elementSize) / stride) {
        reason = "it reaches beyond its buffer view";
        return false;
    }
    accessor.data = view->data + offset;
    accessor.stride = stride;
    return true;
}

std::optional<GlbFile::DataView> GlbFile::bufferView(std::uint64_t index, std::string& reason) const {
    const GlbValue* const json = element("bufferViews", index);
    if(!json || !json->IsObject()) {
        reason = "its buffer view is not there";
        return {};
    }
    std::uint64_t buffer = ~std::uint64_t{}, offset = 0, size = 0, stride = 0;
    if(!readIndex(*json, "buffer", buffer, reason) || !readIndex(*json, "byteOffset", offset, reason) ||
        !readIndex(*json, "byteLength", size, reason) || !readIndex(*json, "byteStride", stride, reason))
        return {};
    const std::uint64_t limit = std::numeric_limits<std::uint64_t>::max();
    if(!checkBuffer(buffer, size > limit - offset ? limit : offset + size, reason)) return {};
    return DataView{_data.data() + offset, size, stride};
}

bool GlbFile::checkBuffer(std::uint64_t index, std::uint64_t end, std::string& reason) const {
    const GlbValue* const json = element("buffers", index);
    if(!json || !json->IsObject()) {
        reason = "its buffer is not there";
        return false;
    }
    if(index != 0 || member(*json, "uri")) {
        reason = "its data are not in the file itself";
        return false;
    }
    std::uint64_t size = 0;
    if(!readIndex(*json, "byteLength", size, reason)) return false;
    if(end <= size && end <= _data.size()) return true;
    reason = "its buffer view reaches beyond the data";
    return false;
}

} // namespace VantrelEngine
