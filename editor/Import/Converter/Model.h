#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector3.h>
#include <Magnum/Math/Vector4.h>

// What a file holds, in the terms of glTF: metres, +Y upwards, counter-clockwise fronts, texture coordinates from the top
// left, colours linear. Readers make it, the writer takes it. Everything refers by position in the lists of a Model; -1
// is nothing.
namespace VantrelImport {

constexpr int Nothing = -1;

// What of an image file can be used as it is.
struct ImageData {
    std::string name;
    // Without the point: "png".
    std::string extension;
    std::vector<char> bytes;
};

enum class Filter { Linear, Nearest };
enum class Mipmap { Linear, Nearest, None };
enum class Wrap { Repeat, Mirror, Clamp };

struct Sampler {
    Filter filter = Filter::Linear;
    Mipmap mipmap = Mipmap::Linear;
    Wrap wrap = Wrap::Repeat;
};

// An image on a surface. Coordinates are scaled, turned and moved, in this order, as KHR_texture_transform has it: the
// angle, in radians, is from the u axis away from the v axis.
struct TextureUse {
    int image = Nothing;
    Sampler sampler;
    int uvSet = 0;
    Magnum::Vector2 offset{0.0f};
    float rotation = 0.0f;
    Magnum::Vector2 scale{1.0f};

    bool isPlaced() const {
        return uvSet != 0 || rotation != 0.0f || offset != Magnum::Vector2{0.0f} || scale != Magnum::Vector2{1.0f};
    }
};

enum class AlphaMode { Opaque, Mask, Blend };

struct Material {
    std::string name;
    Magnum::Vector4 baseColor{1.0f};
    float metalness = 0.0f;
    float roughness = 0.8f;
    float normalScale = 1.0f;
    // May be above 1.
    Magnum::Vector3 emissiveColor{0.0f};
    AlphaMode alphaMode = AlphaMode::Opaque;
    float alphaCutoff = 0.5f;
    bool isDoubleSided = false;
    bool isUnlit = false;
    TextureUse baseColorTexture, metallicRoughnessTexture, normalTexture, occlusionTexture, emissiveTexture;
};

constexpr std::size_t UvSets = 2;

// Triangles of one material. An attribute is empty or has an element for each position. Without indices each three
// vertices are a triangle.
struct Mesh {
    std::string name;
    int material = Nothing;
    std::vector<Magnum::Vector3> positions, normals;
    // The fourth component is the side of the bitangent, 1 or -1.
    std::vector<Magnum::Vector4> tangents;
    std::array<std::vector<Magnum::Vector2>, UvSets> uvs;
    std::vector<Magnum::Vector4> colors;
    std::vector<std::array<std::uint16_t, 4>> joints;
    std::vector<Magnum::Vector4> weights;
    std::vector<std::uint32_t> indices;
};

enum class LightType { Point, Spot, Sun };

// Shines along -Z of its node.
struct Light {
    LightType type = LightType::Point;
    Magnum::Vector3 color{1.0f};
    // Candela; of a sun lux.
    float intensity = 1.0f;
    // Radians from the axis.
    float innerAngle = 0.0f, outerAngle = 0.785398f;
    // How far it reaches, if the file says so. Above 0.
    std::optional<float> range;
};

// Looks along -Z of its node.
struct Camera {
    // Radians from the left to the right edge.
    float horizontalAngle = 1.5f;
    float near = 0.1f;
    // None: infinitely far.
    std::optional<float> far;
};

struct Node {
    std::string name;
    // Stands before its children.
    int parent = Nothing;
    Magnum::Vector3 translation{0.0f};
    Magnum::Quaternion rotation;
    Magnum::Vector3 scaling{1.0f};
    std::vector<int> meshes;
    // That moves the meshes.
    int skin = Nothing;
    std::optional<Light> light;
    std::optional<Camera> camera;
};

struct Skin {
    std::string name;
    // Nodes.
    std::vector<int> joints;
    // By joint.
    std::vector<Magnum::Matrix4> inverseBindMatrices;
};

enum class ChannelPath { Translation, Rotation, Scaling };

inline unsigned componentsOf(ChannelPath path) { return path == ChannelPath::Rotation ? 4 : 3; }

struct Channel {
    int node = Nothing;
    ChannelPath path = ChannelPath::Translation;
    // A value holds until the next one.
    bool isConstant = false;
    // Seconds.
    std::vector<float> keys;
    // Three a key, or x, y, z, w of a quaternion.
    std::vector<float> values;
};

struct Animation {
    std::string name;
    std::vector<Channel> channels;
};

struct Model {
    std::vector<Node> nodes;
    std::vector<Mesh> meshes;
    std::vector<Material> materials;
    std::vector<ImageData> images;
    std::vector<Skin> skins;
    std::vector<Animation> animations;
};

} // namespace VantrelImport
