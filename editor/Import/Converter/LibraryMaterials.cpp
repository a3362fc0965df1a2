#include "Import/Converter/LibraryMaterials.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <optional>

#include <assimp/material.h>

#include "Import/Converter/Images.h"
#include "Import/Converter/SpecularGlossiness.h"
#include "Import/Converter/Text.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

std::optional<float> number(const aiMaterial& material, const char* key, unsigned type, unsigned index) {
    ai_real value = 0;
    if(material.Get(key, type, index, value) != aiReturn_SUCCESS || !std::isfinite(value)) return {};
    return value;
}

std::optional<Vector3> color(const aiMaterial& material, const char* key, unsigned type, unsigned index) {
    aiColor4D value;
    if(material.Get(key, type, index, value) != aiReturn_SUCCESS) return {};
    if(!std::isfinite(value.r) || !std::isfinite(value.g) || !std::isfinite(value.b)) return {};
    return Vector3{value.r, value.g, value.b};
}

Wrap wrapOf(aiTextureMapMode mode) {
    if(mode == aiTextureMapMode_Mirror) return Wrap::Mirror;
    return mode == aiTextureMapMode_Wrap ? Wrap::Repeat : Wrap::Clamp;
}

std::string pathOf(const aiMaterial& material, aiTextureType type) {
    aiString path;
    return material.GetTexture(type, 0, &path) == aiReturn_SUCCESS ? std::string{path.C_Str()} : std::string{};
}

bool looksLikeNormals(const std::string& path) {
    const std::string name = lowerCase(baseName(path));
    for(const char* const part: {"normal", "nrm", "_n.", "-n."})
        if(name.find(part) != name.npos) return true;
    return false;
}

// Pixels without a file around them, as a TGA image of 32 bits a pixel, rows downwards.
std::vector<char> tgaFile(const aiTexture& texture) {
    constexpr std::size_t HeaderSize = 18;
    const std::size_t size = std::size_t{texture.mWidth} * texture.mHeight * sizeof(aiTexel);
    std::vector<char> bytes(HeaderSize + size);
    bytes[2] = 2;
    for(int i = 0; i != 2; ++i) {
        bytes[std::size_t(12 + i)] = char(texture.mWidth >> 8 * i & 255);
        bytes[std::size_t(14 + i)] = char(texture.mHeight >> 8 * i & 255);
    }
    bytes[16] = 32;
    bytes[17] = 0x28;
    std::memcpy(bytes.data() + HeaderSize, texture.pcData, size);
    return bytes;
}

} // namespace

int LibraryMaterials::use(unsigned index) {
    if(index >= _scene.mNumMaterials) return Nothing;
    const auto [found, isNew] = _materials.emplace(index, Nothing);
    if(!isNew) return found->second;
    const aiMaterial& source = *_scene.mMaterials[index];
    aiString name;
    source.Get(AI_MATKEY_NAME, name);
    // The library's own, for files that have none.
    if(std::string_view{name.C_Str()} == AI_DEFAULT_MATERIAL_NAME) return Nothing;
    _model.materials.push_back(read(source, nameOr(name.C_Str(), "Material " + std::to_string(index + 1))));
    return found->second = int(_model.materials.size()) - 1;
}

Material LibraryMaterials::read(const aiMaterial& source, const std::string& name) {
    Material material;
    material.name = name;
    readColors(source, material);
    readTextures(source, material);
    readOpacity(source, material);
    int isTwoSided = 0;
    material.isDoubleSided = source.Get(AI_MATKEY_TWOSIDED, isTwoSided) == aiReturn_SUCCESS && isTwoSided;
    int shading = 0;
    material.isUnlit =
        source.Get(AI_MATKEY_SHADING_MODEL, shading) == aiReturn_SUCCESS && shading == aiShadingMode_NoShading;
    return material;
}

void LibraryMaterials::readColors(const aiMaterial& source, Material& material) {
    auto base = color(source, AI_MATKEY_BASE_COLOR);
    if(!base) base = color(source, AI_MATKEY_COLOR_DIFFUSE);
    if(base) material.baseColor = Vector4{*base, 1.0f};
    material.emissiveColor = color(source, AI_MATKEY_COLOR_EMISSIVE).value_or(Vector3{0.0f}) *
        number(source, AI_MATKEY_EMISSIVE_INTENSITY).value_or(1.0f);
    material.metalness = std::clamp(number(source, AI_MATKEY_METALLIC_FACTOR).value_or(0.0f), 0.0f, 1.0f);
    const Vector3 specular = color(source, AI_MATKEY_COLOR_SPECULAR).value_or(Vector3{0.0f});
    const float exponent = number(source, AI_MATKEY_SHININESS).value_or(0.0f);
    if(const auto roughness = number(source, AI_MATKEY_ROUGHNESS_FACTOR))
        material.roughness = std::clamp(*roughness, 0.0f, 1.0f);
    else if(exponent > 0.0f && specular != Vector3{0.0f})
        material.roughness = roughnessOfExponent(exponent);
}

void LibraryMaterials::readTextures(const aiMaterial& source, Material& material) {
    const auto read = [&](std::initializer_list<aiTextureType> types) {
        for(const aiTextureType type: types) {
            const TextureUse use = texture(source, type, material.name);
            if(use.image != Nothing) return use;
        }
        return TextureUse{};
    };
    material.baseColorTexture = read({aiTextureType_BASE_COLOR, aiTextureType_DIFFUSE});
    material.normalTexture = read({aiTextureType_NORMALS, aiTextureType_NORMAL_CAMERA});
    material.emissiveTexture = read({aiTextureType_EMISSIVE, aiTextureType_EMISSION_COLOR});
    material.occlusionTexture = read({aiTextureType_AMBIENT_OCCLUSION, aiTextureType_LIGHTMAP});
    // A texture stands for the colour, not for a factor of it, which some programs write as black then.
    if(material.emissiveTexture.image != Nothing && material.emissiveColor == Vector3{0.0f})
        material.emissiveColor = Vector3{1.0f};

    const std::string bumps = pathOf(source, aiTextureType_HEIGHT);
    const bool areNormals = material.normalTexture.image == Nothing && looksLikeNormals(bumps);
    if(areNormals) material.normalTexture = read({aiTextureType_HEIGHT});
    if(!bumps.empty() && !areNormals)
        _messages.warn("material " + quoted(material.name) + ": its height map " + quoted(bumps) + " is left out");

    const std::string metalness = pathOf(source, aiTextureType_METALNESS);
    const std::string roughness = pathOf(source, aiTextureType_DIFFUSE_ROUGHNESS);
    if(!metalness.empty() && metalness == roughness)
        material.metallicRoughnessTexture = read({aiTextureType_METALNESS});
    else if(!metalness.empty() || !roughness.empty())
        _messages.warn(
            "material " + quoted(material.name) + ": metalness and roughness in images of their own are left out");
    const std::string specular = pathOf(source, aiTextureType_SPECULAR);
    if(!specular.empty())
        _messages.warn("material " + quoted(material.name) + ": its specular map " + quoted(specular) + " is left out");
}

void LibraryMaterials::readOpacity(const aiMaterial& source, Material& material) {
    const float opacity = std::clamp(number(source, AI_MATKEY_OPACITY).value_or(1.0f), 0.0f, 1.0f);
    material.baseColor.w() = opacity;
    if(opacity < 1.0f) material.alphaMode = AlphaMode::Blend;
    const std::string map = pathOf(source, aiTextureType_OPACITY);
    if(map.empty()) return;
    if(map == pathOf(source, aiTextureType_DIFFUSE))
        material.alphaMode = AlphaMode::Blend;
    else
        _messages.warn("material " + quoted(material.name) + ": its opacity map " + quoted(map) + " is left out");
}

TextureUse LibraryMaterials::texture(const aiMaterial& source, aiTextureType type, const std::string& material) {
    TextureUse use;
    aiString path;
    aiTextureMapping mapping = aiTextureMapping_UV;
    unsigned uvSet = 0;
    aiTextureMapMode modes[3]{aiTextureMapMode_Wrap, aiTextureMapMode_Wrap, aiTextureMapMode_Wrap};
    if(source.GetTexture(type, 0, &path, &mapping, &uvSet, nullptr, nullptr, modes) != aiReturn_SUCCESS) return use;
    if(mapping != aiTextureMapping_UV)
        _messages.warn("material " + quoted(material) + ": a projected texture is put on by texture coordinates");
    if(uvSet < UvSets)
        use.uvSet = int(uvSet);
    else
        _messages.warn("material " + quoted(material) + " uses texture coordinates " + std::to_string(uvSet) +
            "; the first take their place");
    use.sampler.wrap = wrapOf(modes[0]);
    use.image = image(path.C_Str());
    aiUVTransform transform;
    if(source.Get(AI_MATKEY_UVTRANSFORM(type, 0), transform) == aiReturn_SUCCESS) {
        // About the middle of the image, v upwards: https://assimp.sourceforge.net/lib_html/structai_u_v_transform.html
        const float cosine = std::cos(transform.mRotation), sine = std::sin(transform.mRotation);
        const Vector2 scale{transform.mScaling.x, transform.mScaling.y};
        const Vector2 middle = scale * 0.5f;
        const Vector2 upwards = Vector2{transform.mTranslation.x, transform.mTranslation.y} + Vector2{0.5f} -
            Vector2{cosine * middle.x() - sine * middle.y(), sine * middle.x() + cosine * middle.y()};
        use.rotation = transform.mRotation;
        use.scale = scale;
        use.offset = {upwards.x() - sine * scale.y(), 1.0f - upwards.y() - cosine * scale.y()};
    }
    return use;
}

int LibraryMaterials::image(const std::string& path) {
    const auto [found, isNew] = _images.emplace(path, Nothing);
    if(!isNew) return found->second;
    const std::string file = baseName(path);
    const std::string name = nameOr(stemOf(file), "Image " + std::to_string(_images.size()));
    if(const aiTexture* const embedded = _scene.GetEmbeddedTexture(path.data()))
        return found->second = embeddedImage(*embedded, name);
    // Paths of the machine that the file was made on lead nowhere; the image may lie beside the file.
    std::string reason, otherReason;
    auto bytes = _folder.read(path, reason);
    if(!bytes) bytes = _folder.read(percentDecoded(path), otherReason);
    if(!bytes) bytes = _folder.read(file, otherReason);
    if(bytes) return found->second = addImage(_model, name, std::move(*bytes), _messages);
    _messages.warn("image " + quoted(path) + " is left out: " + reason);
    return Nothing;
}

int LibraryMaterials::embeddedImage(const aiTexture& texture, const std::string& name) {
    if(texture.mHeight == 0) {
        const auto* const bytes = reinterpret_cast<const char*>(texture.pcData);
        return addImage(_model, name, {bytes, bytes + texture.mWidth}, _messages);
    }
    return addImage(_model, name, tgaFile(texture), _messages);
}

} // namespace VantrelImport
