#include "Import/Converter/GltfMaterials.h"

#include <algorithm>

#include "Import/Converter/Images.h"
#include "Import/Converter/SpecularGlossiness.h"
#include "Import/Converter/Text.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

enum SamplerValue {
    NearestFilter = 9728,
    LinearFilter = 9729,
    NearestMipmapNearest = 9984,
    LinearMipmapNearest = 9985,
    ClampToEdge = 33071,
    MirroredRepeat = 33648
};

Wrap wrapOf(int value) {
    if(value == ClampToEdge) return Wrap::Clamp;
    return value == MirroredRepeat ? Wrap::Mirror : Wrap::Repeat;
}

Mipmap mipmapOf(int value) {
    if(value == NearestFilter || value == LinearFilter) return Mipmap::None;
    return value == NearestMipmapNearest || value == LinearMipmapNearest ? Mipmap::Nearest : Mipmap::Linear;
}

const Json* extension(const Json* json, const char* name) { return member(member(json, "extensions"), name); }

} // namespace

int GltfMaterials::use(int index) {
    const Json* const json = _file.element("materials", index);
    if(!json) return Nothing;
    const auto [found, isNew] = _materials.emplace(index, Nothing);
    if(!isNew) return found->second;
    const std::string name = nameOr(asText(member(json, "name")), "Material " + std::to_string(index + 1));
    _model.materials.push_back(read(*json, name));
    return found->second = int(_model.materials.size()) - 1;
}

Material GltfMaterials::read(const Json& json, const std::string& name) {
    Material material;
    material.name = name;
    material.isDoubleSided = asBool(member(&json, "doubleSided"), false);
    const std::string_view mode = asText(member(&json, "alphaMode"));
    if(mode == "MASK") material.alphaMode = AlphaMode::Mask;
    if(mode == "BLEND") material.alphaMode = AlphaMode::Blend;
    material.alphaCutoff = asFloat(member(&json, "alphaCutoff"), 0.5f);
    readMetallicRoughness(member(&json, "pbrMetallicRoughness"), material);
    const Json* const normal = member(&json, "normalTexture");
    material.normalTexture = texture(normal, name);
    material.normalScale = asFloat(member(normal, "scale"), 1.0f);
    const Json* const occlusion = member(&json, "occlusionTexture");
    material.occlusionTexture = texture(occlusion, name);
    if(asFloat(member(occlusion, "strength"), 1.0f) != 1.0f)
        _messages.warn("material " + quoted(name) + ": the strength of its occlusion is left out");
    material.emissiveTexture = texture(member(&json, "emissiveTexture"), name);
    material.emissiveColor = Vector3{asVector<3>(member(&json, "emissiveFactor"), Vector3{0.0f})};
    readExtensions(json, material);
    return material;
}

void GltfMaterials::readMetallicRoughness(const Json* json, Material& material) {
    material.baseColor = Vector4{asVector<4>(member(json, "baseColorFactor"), Vector4{1.0f})};
    material.metalness = asFloat(member(json, "metallicFactor"), 1.0f);
    material.roughness = asFloat(member(json, "roughnessFactor"), 1.0f);
    material.baseColorTexture = texture(member(json, "baseColorTexture"), material.name);
    material.metallicRoughnessTexture = texture(member(json, "metallicRoughnessTexture"), material.name);
}

void GltfMaterials::readExtensions(const Json& json, Material& material) {
    material.isUnlit = extension(&json, "KHR_materials_unlit");
    material.emissiveColor *=
        asFloat(member(extension(&json, "KHR_materials_emissive_strength"), "emissiveStrength"), 1.0f);
    if(const Json* const gloss = extension(&json, "KHR_materials_pbrSpecularGlossiness"))
        if(!member(&json, "pbrMetallicRoughness")) readSpecularGlossiness(*gloss, material);
    const Json* const all = member(&json, "extensions");
    if(!all || !all->IsObject()) return;
    static constexpr std::string_view Known[]{
        "KHR_materials_unlit", "KHR_materials_emissive_strength", "KHR_materials_pbrSpecularGlossiness"};
    for(const auto& entry: all->GetObject()) {
        const std::string_view name = asText(&entry.name);
        if(std::find(std::begin(Known), std::end(Known), name) == std::end(Known))
            _messages.warn("material " + quoted(material.name) + ": " + quoted(name) + " is left out");
    }
}

void GltfMaterials::readSpecularGlossiness(const Json& json, Material& material) {
    const Vector4 diffuse{asVector<4>(member(&json, "diffuseFactor"), Vector4{1.0f})};
    const Vector3 specular{asVector<3>(member(&json, "specularFactor"), Vector3{1.0f})};
    const MetallicRoughness converted =
        fromSpecularGlossiness(diffuse.xyz(), specular, asFloat(member(&json, "glossinessFactor"), 1.0f));
    material.baseColor = Vector4{converted.baseColor, diffuse.w()};
    material.metalness = converted.metalness;
    material.roughness = converted.roughness;
    material.baseColorTexture = texture(member(&json, "diffuseTexture"), material.name);
    _messages.warn("material " + quoted(material.name) + ": its specular colour and glossiness are approximated" +
        (member(&json, "specularGlossinessTexture") ? ", without their texture" : ""));
}

TextureUse GltfMaterials::texture(const Json* info, const std::string& material) {
    TextureUse use;
    if(!info) return use;
    const Json* const json = _file.element("textures", asIndex(member(info, "index")));
    if(!json) {
        _messages.warn("material " + quoted(material) + " uses a texture that is not there");
        return use;
    }
    use.image = image(*json, material);
    use.sampler = sampler(*json);
    place(*info, use, material);
    return use;
}

void GltfMaterials::place(const Json& info, TextureUse& use, const std::string& material) {
    const Json* const transform = extension(&info, "KHR_texture_transform");
    use.offset = Vector2{asVector<2>(member(transform, "offset"), Vector2{0.0f})};
    use.rotation = asFloat(member(transform, "rotation"), 0.0f);
    use.scale = Vector2{asVector<2>(member(transform, "scale"), Vector2{1.0f})};
    const Json* const other = member(transform, "texCoord");
    const std::uint64_t set = asSize(other ? other : member(&info, "texCoord"), 0);
    if(set < UvSets)
        use.uvSet = int(set);
    else
        _messages.warn("material " + quoted(material) + " uses texture coordinates " + std::to_string(set) +
            "; the first take their place");
}

// One with an image in a format that is not read names a PNG or JPEG image besides, or goes without.
int GltfMaterials::image(const Json& texture, const std::string& material) {
    const Json* const source = member(&texture, "source");
    if(source) return loadImage(asIndex(source));
    _messages.warn("material " + quoted(material) + ": a texture without a PNG or JPEG image is left out");
    return Nothing;
}

int GltfMaterials::loadImage(int index) {
    const auto [found, isNew] = _images.emplace(index, Nothing);
    if(!isNew) return found->second;
    const Json* const json = _file.element("images", index);
    const std::string_view uri = asText(member(json, "uri"));
    const std::string number = "Image " + std::to_string(index + 1);
    const bool isFile = !uri.empty() && uri.substr(0, 5) != "data:";
    const std::string name =
        nameOr(asText(member(json, "name")), isFile ? nameOr(stemOf(baseName(percentDecoded(uri))), number) : number);
    try {
        std::vector<char> bytes =
            uri.empty() ? _file.viewBytes(asIndex(member(json, "bufferView"))) : _file.uriBytes(uri);
        return found->second = addImage(_model, name, std::move(bytes), _messages);
    } catch(const Unusable& problem) {
        _messages.warn("image " + quoted(name) + " is left out: " + problem.what());
        return Nothing;
    }
}

Sampler GltfMaterials::sampler(const Json& texture) {
    const Json* const json = _file.element("samplers", asIndex(member(&texture, "sampler")));
    const int wrapS = asIndex(member(json, "wrapS")), wrapT = asIndex(member(json, "wrapT"));
    if(wrapOf(wrapS) != wrapOf(wrapT))
        _messages.warn("a texture that repeats in one direction only is taken to repeat as along u in both");
    return {asIndex(member(json, "magFilter")) == NearestFilter ? Filter::Nearest : Filter::Linear,
        mipmapOf(asIndex(member(json, "minFilter"))), wrapOf(wrapS)};
}

} // namespace VantrelImport
