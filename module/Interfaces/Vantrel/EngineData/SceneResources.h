#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/String.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Math/Vector4.h>
#include <Magnum/Sampler.h>
#include <Magnum/Trade/AnimationData.h>
#include <Magnum/Trade/MeshData.h>

#include "Vantrel/EngineData/FileLink.h"
#include "Vantrel/EngineData/Types.h"

namespace VantrelEngine {

// The compiled resources of a scene: a list a kind, by runtime index. Slot 0 is reserved in each and stands for none; a
// slot that is not in use has no id. An index is kept for as long as the resource is in the document.

struct ImageHeader {
    Magnum::Vector2i size;
    // Tiles of a compressed image, as many as there are hashes of them; 0 where there are none.
    Magnum::UnsignedInt tileCount = 0;
    bool isCompressed = false;
};

struct SceneImage {
    std::string id;
    ImageHeader header;
    // RGBA, 8 bits a channel; or, of an image of high dynamic range, RGBA of 32-bit floats. Rows upwards.
    std::optional<Magnum::Image2D> pixels;
    // Another one whenever the pixels, or the colours that they stand for, are others.
    std::uint32_t revision = 0;
    // By tile: where the compressed atlas knows it from. Empty for an image that goes into the plain atlas.
    std::vector<std::uint64_t> tileHashes;
    // Colours in the sRGB curve; else linear values (directions, roughness, ...).
    bool isSrgb = true;
};

struct TextureHeader {
    Id texture = 0;
    Id image = 0;
};

struct SceneTexture {
    std::string id;
    TextureHeader header;
    Magnum::SamplerFilter filter = Magnum::SamplerFilter::Linear;
    Magnum::SamplerMipmap mipmap = Magnum::SamplerMipmap::Linear;
    Magnum::SamplerWrapping wrapping = Magnum::SamplerWrapping::Repeat;
};

enum class ShaderStage : std::uint8_t { None = 0, Mesh = 1, Text = 2, Skinning = 3 };

struct ShaderHeader {
    ShaderStage stage = ShaderStage::None;
    // Of a mesh shader: 1 where it takes part in the depth passes. Otherwise 0.
    std::uint16_t variant = 0;
};

// What a material gives to a shader. Values are codes that stand in a runtime pipeline's parameter list.
enum class ParameterType : std::uint8_t { Float = 0, Vector = 1, Color = 2, Texture = 3 };

struct ShaderParameter {
    std::string name;
    ParameterType type = ParameterType::Float;
    // Where the material has none; a float stands in the first component. Textures have none.
    Magnum::Vector4 initial{0.0f};
};

struct SceneShader {
    std::string id, name;
    ShaderHeader header;
    FileLink vertex, fragment;
    std::vector<ShaderParameter> parameters;
};

struct PipelineHeader {
    enum Flag : std::uint32_t { DoubleSided = 1, DepthTest = 2, DepthWrite = 4, Blend = 8, AlphaMask = 16 };
    std::uint32_t flags = DepthTest | DepthWrite;
    // The order in which pipelines draw; less is earlier.
    std::uint8_t order = 0;
};

struct ScenePipeline {
    std::string id, name;
    Id shader = 0;
    PipelineHeader header;
    // Names that the shader's sources see defined.
    std::vector<std::string> features;
    // Those of its shader.
    std::vector<ShaderParameter> parameters;
};

struct SceneMaterial {
    std::string id, name;
    Id pipeline = 0;
    // By parameter of the pipeline: the value, and for a texture parameter the texture's index.
    std::vector<Magnum::Vector4> values;
    std::vector<Id> textures;
};

struct SceneMesh {
    std::string id, name;
    // Triangles, with positions at least. Always there in a slot in use.
    std::optional<Magnum::Trade::MeshData> data;
    // Another one whenever the data are others.
    std::uint32_t revision = 0;
    // Around the positions; and the radius of the sphere around its centre.
    Magnum::Range3D bounds;
    Magnum::Float radius = 0.0f;
    // Where the file could not be used.
    bool isPlaceholder = false;
};

struct SceneSkin {
    std::string id, name;
    // Objects of the document, and for each the matrix from the mesh's space to the joint's.
    std::vector<std::string> joints;
    std::vector<Magnum::Matrix4> inverseBindMatrices;
};

struct SceneAnimation {
    std::string id, name;
    // Without tracks where the file could not be used. Always there in a slot in use, and at the same place until the
    // animation itself changes: components that play it refer to it.
    std::unique_ptr<Magnum::Trade::AnimationData> data;
    // Objects of the document, by target of the tracks.
    std::vector<std::string> targets;
};

struct SceneFont {
    std::string id, name;
    // The font file as it is.
    Corrade::Containers::Array<char> data;
};

// Vertex attributes besides the position that some mesh of the scene has.
enum MeshLayoutFlag : std::uint32_t {
    LayoutNormal = 1,
    LayoutTangent = 2,
    LayoutTextureCoordinates = 4,
    LayoutSecondTextureCoordinates = 8,
    LayoutColor = 16,
    // Bits of value 96 are the view's own.
    LayoutJoints = 128,
};

struct SceneResources {
    // Slot 0 in each.
    SceneResources();

    std::vector<SceneImage> images;
    std::vector<SceneTexture> textures;
    std::vector<SceneShader> shaders;
    std::vector<ScenePipeline> pipelines;
    std::vector<SceneMaterial> materials;
    std::vector<SceneMesh> meshes;
    std::vector<SceneSkin> skins;
    std::vector<SceneAnimation> animations;
    std::vector<SceneFont> fonts;

    // MeshLayoutFlag, of all meshes together.
    std::uint32_t meshLayoutFlags = 0;
};

} // namespace VantrelEngine
