#include "Import/Converter/GlbWriter.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <limits>

namespace VantrelImport {

namespace {

// https://registry.khronos.org/glTF/specs/2.0/glTF-2.0.html#binary-gltf-layout
constexpr std::uint32_t Magic = 0x46546c67;
constexpr std::uint32_t JsonChunk = 0x4e4f534a;
constexpr std::uint32_t DataChunk = 0x004e4942;

enum ComponentType { UnsignedShort = 5123, UnsignedInt = 5125, Float = 5126 };

constexpr const char* shapeOf(std::size_t components) {
    return components == 1 ? "SCALAR"
        : components == 2  ? "VEC2"
        : components == 3  ? "VEC3"
        : components == 4  ? "VEC4"
                           : "MAT4";
}

void appendWord(std::string& bytes, std::uint32_t word) {
    for(int i = 0; i != 4; ++i) bytes += char(word >> 8 * i & 255);
}

std::string text(float number) {
    char digits[32];
    return {digits, std::to_chars(digits, digits + sizeof(digits), number).ptr};
}

std::string member(const std::string& name, int accessor) { return '"' + name + "\":" + std::to_string(accessor); }

// "min" and "max", by component.
std::string bounds(const float* values, std::size_t count, std::size_t components) {
    std::string least, most;
    for(std::size_t i = 0; i != components; ++i) {
        float low = values[i], high = values[i];
        for(std::size_t j = 1; j != count; ++j) {
            low = std::min(low, values[j * components + i]);
            high = std::max(high, values[j * components + i]);
        }
        least += (i ? "," : "") + text(low);
        most += (i ? "," : "") + text(high);
    }
    return ",\"min\":[" + least + "],\"max\":[" + most + ']';
}

class Builder {
public:
    // Elements of so many components each, in a view of their own; the number of the accessor.
    template<class T>
    int add(
        ComponentType type, std::size_t components, const T* values, std::size_t count, const std::string& more = {}) {
        const std::size_t size = count * components * sizeof(T);
        _views += (_count ? "," : "") + std::string{"{\"buffer\":0,\"byteOffset\":"} + std::to_string(_data.size()) +
            ",\"byteLength\":" + std::to_string(size) + '}';
        _accessors += (_count ? "," : "") + std::string{"{\"bufferView\":"} + std::to_string(_count) +
            ",\"componentType\":" + std::to_string(type) + ",\"count\":" + std::to_string(count) + ",\"type\":\"" +
            shapeOf(components) + '"' + more + '}';
        _data.append(reinterpret_cast<const char*>(values), size);
        _data.resize((_data.size() + 3) / 4 * 4);
        return _count++;
    }

    // The container, with further members of the outermost object.
    std::string file(const std::string& members) const {
        std::string json =
            "{\"asset\":{\"version\":\"2.0\"},\"buffers\":[{\"byteLength\":" + std::to_string(_data.size()) +
            "}],\"bufferViews\":[" + _views + "],\"accessors\":[" + _accessors + "]," + members + '}';
        json.resize((json.size() + 3) / 4 * 4, ' ');
        std::string bytes;
        bytes.reserve(28 + json.size() + _data.size());
        appendWord(bytes, Magic);
        appendWord(bytes, 2);
        appendWord(bytes, std::uint32_t(28 + json.size() + _data.size()));
        appendWord(bytes, std::uint32_t(json.size()));
        appendWord(bytes, JsonChunk);
        bytes += json;
        appendWord(bytes, std::uint32_t(_data.size()));
        appendWord(bytes, DataChunk);
        return bytes += _data;
    }

private:
    std::string _views, _accessors, _data;
    int _count = 0;
};

template<class T>
void addFloats(Builder& builder, std::string& attributes, const char* name, const std::vector<T>& values) {
    if(values.empty()) return;
    const auto* const numbers = reinterpret_cast<const float*>(values.data());
    attributes += ',' + member(name, builder.add(Float, sizeof(T) / sizeof(float), numbers, values.size()));
}

int addIndices(Builder& builder, const Mesh& mesh) {
    // The largest 16-bit number means a restart.
    if(mesh.positions.size() > std::numeric_limits<std::uint16_t>::max())
        return builder.add(UnsignedInt, 1, mesh.indices.data(), mesh.indices.size());
    const std::vector<std::uint16_t> small(mesh.indices.begin(), mesh.indices.end());
    return builder.add(UnsignedShort, 1, small.data(), small.size());
}

const char* nameOf(ChannelPath path) {
    switch(path) {
    case ChannelPath::Translation: return "translation";
    case ChannelPath::Rotation: return "rotation";
    case ChannelPath::Scaling: return "scale";
    }
    return "";
}

} // namespace

std::string meshFile(const Mesh& mesh) {
    Builder builder;
    const auto* const positions = reinterpret_cast<const float*>(mesh.positions.data());
    std::string attributes = member("POSITION",
        builder.add(Float, 3, positions, mesh.positions.size(), bounds(positions, mesh.positions.size(), 3)));
    addFloats(builder, attributes, "NORMAL", mesh.normals);
    addFloats(builder, attributes, "TANGENT", mesh.tangents);
    for(std::size_t i = 0; i != UvSets; ++i)
        addFloats(builder, attributes, i ? "TEXCOORD_1" : "TEXCOORD_0", mesh.uvs[i]);
    addFloats(builder, attributes, "COLOR_0", mesh.colors);
    if(!mesh.joints.empty())
        attributes +=
            ',' + member("JOINTS_0", builder.add(UnsignedShort, 4, mesh.joints[0].data(), mesh.joints.size()));
    addFloats(builder, attributes, "WEIGHTS_0", mesh.weights);
    const int indices = addIndices(builder, mesh);
    return builder.file(
        "\"meshes\":[{\"primitives\":[{\"attributes\":{" + attributes + "}," + member("indices", indices) + "}]}]");
}

std::string skinFile(const Skin& skin) {
    Builder builder;
    builder.add(Float, 16, skin.inverseBindMatrices[0].data(), skin.inverseBindMatrices.size());
    std::string joints, nodes;
    for(std::size_t i = 0; i != skin.joints.size(); ++i) {
        joints += (i ? "," : "") + std::to_string(i);
        nodes += i ? ",{}" : "{}";
    }
    return builder.file(
        "\"nodes\":[" + nodes + "],\"skins\":[{\"joints\":[" + joints + "],\"inverseBindMatrices\":0}]");
}

AnimationFile animationFile(const Animation& animation) {
    AnimationFile file;
    Builder builder;
    std::string samplers, channels;
    // The first node of the file is that of the first channel, and so on.
    std::vector<std::pair<int, std::size_t>> places;
    for(const Channel& channel: animation.channels) places.emplace_back(channel.node, places.size());
    std::sort(places.begin(), places.end());
    for(std::size_t i = 0; i != animation.channels.size(); ++i) {
        const Channel& channel = animation.channels[i];
        const std::size_t count = channel.keys.size();
        const int keys = builder.add(Float, 1, channel.keys.data(), count, bounds(channel.keys.data(), count, 1));
        const int values = builder.add(Float, componentsOf(channel.path), channel.values.data(), count);
        samplers += (i ? ",{" : "{") + member("input", keys) + ',' + member("output", values) +
            (channel.isConstant ? ",\"interpolation\":\"STEP\"}" : "}");
        // Where the node is named first.
        const auto first = std::lower_bound(places.begin(), places.end(), std::pair{channel.node, std::size_t{0}});
        if(first->second == i) file.targets.push_back(channel.node);
        channels += (i ? ",{" : "{") + member("sampler", int(i)) + ",\"target\":{" +
            member("node", int(first->second)) + ",\"path\":\"" + nameOf(channel.path) + "\"}}";
    }
    std::string nodes;
    for(std::size_t i = 0; i != animation.channels.size(); ++i) nodes += i ? ",{}" : "{}";
    file.bytes = builder.file(
        "\"nodes\":[" + nodes + "],\"animations\":[{\"samplers\":[" + samplers + "],\"channels\":[" + channels + "]}]");
    return file;
}

} // namespace VantrelImport
