#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace VantrelImport::Test {

// A node of a binary FBX file of version 7.4: where it ends, how many properties there are, how many bytes they take, its
// name, the properties, and its children followed by an empty node.
class FbxNode {
public:
    explicit FbxNode(std::string name): _name{std::move(name)} {}

    FbxNode& text(const std::string& value) { return property('S', sized(value)); }
    FbxNode& number(std::int64_t value) { return property('L', bytesOf(value)); }
    FbxNode& small(std::int32_t value) { return property('I', bytesOf(value)); }
    FbxNode& real(double value) { return property('D', bytesOf(value)); }
    template<class T> FbxNode& array(char type, const std::vector<T>& values) {
        std::string bytes = bytesOf(std::uint32_t(values.size())) + bytesOf(std::uint32_t{0}) +
            bytesOf(std::uint32_t(values.size() * sizeof(T)));
        for(const T value: values) bytes += bytesOf(value);
        return property(type, bytes);
    }
    FbxNode& child(FbxNode node) {
        _children.push_back(std::move(node));
        return *this;
    }

    // The node where it begins at an offset in the file.
    std::string at(std::size_t offset) const {
        const std::size_t head = 13 + _name.size() + _properties.size();
        std::string children;
        for(const FbxNode& node: _children) children += node.at(offset + head + children.size());
        if(!_children.empty()) children += std::string(13, '\0');
        return bytesOf(std::uint32_t(offset + head + children.size())) + bytesOf(_count) +
            bytesOf(std::uint32_t(_properties.size())) + char(_name.size()) + _name + _properties + children;
    }

    template<class T> static std::string bytesOf(T value) {
        return {reinterpret_cast<const char*>(&value), sizeof(value)};
    }

private:
    static std::string sized(const std::string& text) { return bytesOf(std::uint32_t(text.size())) + text; }

    FbxNode& property(char type, const std::string& bytes) {
        _properties += type + bytes;
        ++_count;
        return *this;
    }

    std::string _name, _properties;
    std::uint32_t _count = 0;
    std::vector<FbxNode> _children;
};

// One triangle.
inline std::string binaryFbx() {
    const auto name = [](const char* text, const char* kind) { return text + std::string{"\0\1", 2} + kind; };
    std::string bytes = std::string{"Kaydara FBX Binary  \0\x1a\0", 23} + FbxNode::bytesOf(std::uint32_t{7400});
    FbxNode header{"FBXHeaderExtension"}, objects{"Objects"}, connections{"Connections"};
    header.child(FbxNode{"FBXVersion"}.small(7400));
    FbxNode geometry{"Geometry"};
    geometry.number(1001).text(name("Tri", "Geometry")).text("Mesh");
    geometry.child(FbxNode{"Vertices"}.array('d', std::vector<double>{0, 0, 0, 1, 0, 0, 0, 1, 0}));
    geometry.child(FbxNode{"PolygonVertexIndex"}.array('i', std::vector<std::int32_t>{0, 1, -3}));
    FbxNode model{"Model"};
    model.number(2001).text(name("Thing", "Model")).text("Mesh").child(FbxNode{"Version"}.small(232));
    objects.child(geometry).child(model);
    connections.child(FbxNode{"C"}.text("OO").number(2001).number(0));
    connections.child(FbxNode{"C"}.text("OO").number(1001).number(2001));
    for(const FbxNode& node: {header, objects, connections}) bytes += node.at(bytes.size());
    return bytes + std::string(13, '\0');
}

} // namespace VantrelImport::Test
