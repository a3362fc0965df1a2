#include "Import/Converter/MaterialWriter.h"

#include <cmath>

#include "Data/Project/DefaultSettings.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

constexpr float DefaultCutoff = 0.5f;

const char* nameOf(Filter filter) { return filter == Filter::Nearest ? "nearest" : "linear"; }
const char* nameOf(Mipmap mipmap) {
    return mipmap == Mipmap::None ? "none" : mipmap == Mipmap::Nearest ? "nearest" : "linear";
}
const char* nameOf(Wrap wrap) { return wrap == Wrap::Clamp ? "clamp" : wrap == Wrap::Mirror ? "mirror" : "repeat"; }

constexpr const char* LitTextures[]{
    "baseColorTexture", "metallicRoughnessTexture", "normalTexture", "occlusionTexture", "emissiveTexture"};

// Whether the shaders of a new project cannot say what the material says.
bool needsPlacement(const Material& material) {
    if(!material.isUnlit)
        return material.baseColorTexture.isPlaced() || material.metallicRoughnessTexture.isPlaced() ||
            material.normalTexture.isPlaced() || material.occlusionTexture.isPlaced() ||
            material.emissiveTexture.isPlaced();
    const bool hasCutoff = material.alphaMode == AlphaMode::Mask && material.alphaCutoff != DefaultCutoff;
    return material.baseColorTexture.isPlaced() || hasCutoff;
}

struct Placement {
    Vector4 place, turn;
};

// Coordinates begin at the top in the file and at the bottom in the engine. With F(u, v) = (u, 1 - v), which undoes
// itself, the engine's placement is F after the file's after F, and an angle away from the v axis of the one leads
// towards that of the other.
Placement placementOf(const TextureUse& use) {
    const float cosine = std::cos(use.rotation), sine = std::sin(use.rotation);
    return {{use.offset.x() + sine * use.scale.y(), 1.0f - use.offset.y() - cosine * use.scale.y(), use.scale.x(),
                use.scale.y()},
        {use.rotation, float(use.uvSet), 0.0f, 0.0f}};
}

} // namespace

MaterialWriter::MaterialWriter(JsonBuilder& json, OutputFolder& output):
    _json{json}, _output{output}, _project{VantrelEngine::newProject()} {}

std::string MaterialWriter::add(const Model& model, const Material& material) {
    const bool isPlaced = needsPlacement(material);
    const std::string shaderName = std::string{material.isUnlit ? "Flat" : "Lit"} + (isPlaced ? " Placed" : "");
    JsonValue entry = _json.object();
    _json.set(entry, "name", material.name);
    _json.set(entry, "pipeline", pipeline(material, isPlaced));
    _json.set(entry, shaderName,
        material.isUnlit ? flatValues(model, material, isPlaced) : litValues(model, material, isPlaced));
    const std::string id = "material" + std::to_string(_materials++);
    _json.add("materials", id, std::move(entry));
    return id;
}

std::string MaterialWriter::addDefault() {
    if(!_default.empty()) return _default;
    Material material;
    material.name = "Default";
    material.baseColor = {0.8f, 0.8f, 0.8f, 1.0f};
    return _default = add({}, material);
}

MaterialWriter::ImageIds MaterialWriter::addImage(const Model& model, int index) {
    TextureUse use;
    use.image = index;
    return {image(model.images[std::size_t(index)], ColorSpace::Srgb), texture(model, use, ColorSpace::Srgb)};
}

std::string MaterialWriter::image(const ImageData& data, ColorSpace space) {
    const auto [found, isNew] = _images.emplace(std::pair{&data, space}, "image" + std::to_string(_images.size()));
    if(!isNew) return found->second;
    JsonValue entry = _json.object();
    _json.set(entry, "name", data.name);
    _json.set(entry, "file", _output.add(data.bytes.data(), data.bytes.size(), data.extension));
    const bool isLinear = space == ColorSpace::Linear || data.extension == "hdr";
    _json.set(entry, "colorSpace", isLinear ? "linear" : "srgb");
    _json.add("images", found->second, std::move(entry));
    return found->second;
}

std::string MaterialWriter::texture(const Model& model, const TextureUse& use, ColorSpace space) {
    if(use.image == Nothing) return {};
    const ImageData& data = model.images[std::size_t(use.image)];
    const std::string imageId = image(data, space);
    const auto [found, isNew] =
        _textures.emplace(std::tuple{imageId, use.sampler.filter, use.sampler.mipmap, use.sampler.wrap},
            "texture" + std::to_string(_textures.size()));
    if(!isNew) return found->second;
    JsonValue entry = _json.object();
    _json.set(entry, "name", data.name);
    _json.set(entry, "image", imageId);
    _json.set(entry, "filter", nameOf(use.sampler.filter));
    _json.set(entry, "mipmap", nameOf(use.sampler.mipmap));
    _json.set(entry, "wrap", nameOf(use.sampler.wrap));
    _json.add("textures", found->second, std::move(entry));
    return found->second;
}

std::string MaterialWriter::shader(bool isUnlit, bool isPlaced) {
    const std::string plain = isUnlit ? "flat" : "lit", id = plain + (isPlaced ? "Placed" : "");
    if(_json.has("shaders", id)) return id;
    JsonValue entry = _json.copy(_project["shaders"][plain.data()]);
    if(isPlaced) {
        entry["name"] = _json.text(isUnlit ? "Flat Placed" : "Lit Placed");
        const auto addParameter = [&](const std::string& name, const char* type, JsonValue value) {
            JsonValue parameter = _json.object();
            _json.set(parameter, "name", name);
            _json.set(parameter, "type", type);
            _json.set(parameter, "default", std::move(value));
            _json.append(entry["parameters"], std::move(parameter));
        };
        const auto addPlacement = [&](const std::string& name) {
            addParameter(name + "Place", "vector", _json.numbers({0.0f, 0.0f, 1.0f, 1.0f}));
            addParameter(name + "Turn", "vector", _json.numbers({0.0f, 0.0f, 0.0f, 0.0f}));
        };
        if(isUnlit) {
            addParameter("alphaCutoff", "float", _json.number(DefaultCutoff));
            addPlacement("colorTexture");
        } else
            for(const char* const name: LitTextures) addPlacement(name);
    }
    _json.add("shaders", id, std::move(entry));
    return id;
}

std::string MaterialWriter::pipeline(const Material& material, bool isPlaced) {
    const bool isMasked = material.alphaMode == AlphaMode::Mask, isBlended = material.alphaMode == AlphaMode::Blend;
    const std::string shaderId = shader(material.isUnlit, isPlaced);
    const std::string id = shaderId +
        (isMasked           ? "Mask"
                : isBlended ? "Blend"
                            : "") +
        (material.isDoubleSided ? "DoubleSided" : "");
    if(_json.has("pipelines", id)) return id;
    JsonValue entry = _json.object();
    _json.set(entry, "name",
        std::string{material.isUnlit ? "Flat" : "Lit"} + (isPlaced ? " Placed" : "") +
            (isMasked           ? " Mask"
                    : isBlended ? " Blend"
                                : "") +
            (material.isDoubleSided ? " Double-Sided" : ""));
    _json.set(entry, "shader", shaderId);
    _json.set(entry, "features", _json.list());
    if(material.isDoubleSided) _json.set(entry, "doubleSided", JsonValue{true});
    if(isBlended) _json.set(entry, "depthWrite", JsonValue{false});
    if(isBlended) _json.set(entry, "blend", JsonValue{true});
    if(isMasked) _json.set(entry, "alphaMask", JsonValue{true});
    _json.add("pipelines", id, std::move(entry));
    return id;
}

void MaterialWriter::addTexture(
    JsonValue& values, const Model& model, const char* name, const TextureUse& use, ColorSpace space, bool isPlaced) {
    _json.set(values, name, texture(model, use, space));
    if(!isPlaced) return;
    const Placement placement = use.image == Nothing ? placementOf({}) : placementOf(use);
    _json.set(values, std::string{name} + "Place", _json.numbers(placement.place));
    _json.set(values, std::string{name} + "Turn", _json.numbers(placement.turn));
}

JsonValue MaterialWriter::litValues(const Model& model, const Material& material, bool isPlaced) {
    JsonValue values = _json.object();
    const auto add = [&](const char* name, const TextureUse& use, ColorSpace space) {
        addTexture(values, model, name, use, space, isPlaced);
    };
    _json.set(values, "baseColor", _json.numbers(material.baseColor));
    add("baseColorTexture", material.baseColorTexture, ColorSpace::Srgb);
    _json.set(values, "metalness", _json.number(material.metalness));
    _json.set(values, "roughness", _json.number(material.roughness));
    add("metallicRoughnessTexture", material.metallicRoughnessTexture, ColorSpace::Linear);
    add("normalTexture", material.normalTexture, ColorSpace::Linear);
    _json.set(values, "normalScale", _json.number(material.normalScale));
    add("occlusionTexture", material.occlusionTexture, ColorSpace::Linear);
    _json.set(values, "emissiveColor", _json.numbers(Vector4{material.emissiveColor, 1.0f}));
    add("emissiveTexture", material.emissiveTexture, ColorSpace::Srgb);
    _json.set(values, "alphaCutoff", _json.number(material.alphaCutoff));
    return values;
}

JsonValue MaterialWriter::flatValues(const Model& model, const Material& material, bool isPlaced) {
    JsonValue values = _json.object();
    _json.set(values, "color", _json.numbers(material.baseColor));
    addTexture(values, model, "colorTexture", material.baseColorTexture, ColorSpace::Srgb, isPlaced);
    if(isPlaced) _json.set(values, "alphaCutoff", _json.number(material.alphaCutoff));
    return values;
}

} // namespace VantrelImport
