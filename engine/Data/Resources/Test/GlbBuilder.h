#pragma once

#include <cstdint>
#include <cstring>
#include <string>
#include <vector>

#include <Corrade/Containers/ArrayView.h>

namespace VantrelEngine::Test {

inline void appendWord(std::string& bytes, std::uint32_t word) {
    for(int i = 0; i != 4; ++i) bytes += char(word >> 8 * i & 255);
}

inline Corrade::Containers::ArrayView<const char> view(const std::string& bytes) {
    return {bytes.data(), bytes.size()};
}

// The container around a JSON text and its data.
inline std::string glb(std::string json, std::string data) {
    while(json.size() % 4) json += ' ';
    while(data.size() % 4) data += '\0';
    std::string file;
    appendWord(file, 0x46546c67);
    appendWord(file, 2);
    appendWord(file, std::uint32_t(12 + 8 + json.size() + (data.empty() ? 0 : 8 + data.size())));
    appendWord(file, std::uint32_t(json.size()));
    appendWord(file, 0x4e4f534a);
    file += json;
    if(data.empty()) return file;
    appendWord(file, std::uint32_t(data.size()));
    appendWord(file, 0x004e4942);
    return file + data;
}

inline std::string replaced(std::string text, const std::string& from, const std::string& to) {
    const std::size_t at = text.find(from);
    return at == text.npos ? std::string{"nothing to replace"} : text.replace(at, from.size(), to);
}

enum ComponentType {
    Byte = 5120,
    UnsignedByte = 5121,
    Short = 5122,
    UnsignedShort = 5123,
    UnsignedInt = 5125,
    Float = 5126
};

// Puts accessors, each with a view of its own, and whatever else is wanted into one file.
class GlbBuilder {
public:
    // The number of the accessor. A stride of 0 is none.
    template<class T>
    int add(ComponentType type, const char* shape, std::size_t components, const std::vector<T>& values,
        bool normalized = false, std::size_t stride = 0) {
        const std::size_t offset = _data.size(), elementSize = components * sizeof(T);
        const std::size_t count = values.size() / components;
        for(std::size_t i = 0; i != count; ++i) {
            std::string element(std::max(stride, elementSize), '\x7f');
            std::memcpy(&element[0], values.data() + i * components, elementSize);
            _data += element;
        }
        while(_data.size() % 4) _data += '\0';
        _views += (_count ? "," : "") + std::string{"{\"buffer\":0,\"byteOffset\":"} + std::to_string(offset) +
            ",\"byteLength\":" + std::to_string(_data.size() - offset) +
            (stride ? ",\"byteStride\":" + std::to_string(stride) : "") + "}";
        _accessors += (_count ? "," : "") + std::string{"{\"bufferView\":"} + std::to_string(_count) +
            ",\"componentType\":" + std::to_string(type) + ",\"count\":" + std::to_string(count) + ",\"type\":\"" +
            shape + "\"" + (normalized ? ",\"normalized\":true" : "") + "}";
        return _count++;
    }

    std::string file(const std::string& members) const {
        return glb("{\"asset\":{\"version\":\"2.0\"},\"buffers\":[{\"byteLength\":" + std::to_string(_data.size()) +
                "}],\"bufferViews\":[" + _views + "],\"accessors\":[" + _accessors + "]," + members + "}",
            _data);
    }

private:
    std::string _data, _views, _accessors;
    int _count = 0;
};

// A mesh of these triangles; with joints if wanted.
inline std::string meshFile(const std::vector<float>& positions, bool withJoints = false) {
    GlbBuilder builder;
    std::string attributes = "\"POSITION\":" + std::to_string(builder.add(Float, "VEC3", 3, positions));
    if(withJoints) {
        const std::size_t count = positions.size() / 3 * 4;
        const int joints = builder.add(UnsignedByte, "VEC4", 4, std::vector<std::uint8_t>(count));
        const int weights = builder.add(Float, "VEC4", 4, std::vector<float>(count, 0.25f));
        attributes += ",\"JOINTS_0\":" + std::to_string(joints) + ",\"WEIGHTS_0\":" + std::to_string(weights);
    }
    return builder.file("\"meshes\":[{\"primitives\":[{\"attributes\":{" + attributes + "}}]}]");
}

inline std::string skinFile(const std::vector<float>& matrices) {
    GlbBuilder builder;
    builder.add(Float, "MAT4", 16, matrices);
    return builder.file("\"skins\":[{\"joints\":[0],\"inverseBindMatrices\":0}]");
}

// Moves as many nodes along X, by this much.
inline std::string animationFile(int nodes, float x) {
    GlbBuilder builder;
    builder.add(Float, "SCALAR", 1, std::vector<float>{0, 1});
    builder.add(Float, "VEC3", 3, std::vector<float>{0, 0, 0, x, 0, 0});
    std::string channels, list;
    for(int i = 0; i != nodes; ++i) {
        channels += (i ? "," : "") + std::string{"{\"sampler\":0,\"target\":{\"path\":\"translation\",\"node\":"} +
            std::to_string(i) + "}}";
        list += i ? ",{}" : "{}";
    }
    return builder.file("\"nodes\":[" + list +
        "],\"animations\":[{\"samplers\":[{\"input\":0,\"output\":1}],\"channels\":[" + channels + "]}]");
}

}
