#include "VantrelHost/ModelPicture.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <map>
#include <optional>
#include <type_traits>

#include <Corrade/Containers/StringView.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Quaternion.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Data/Resources/ImageFile.h"
#include "Data/Resources/MeshFile.h"
#include "Thumbnails/ContentHash.h"
#include "Thumbnails/FileBytes.h"
#include "Thumbnails/ImageThumbnail.h"
#include "Thumbnails/PictureRaster.h"
#include "Thumbnails/ThumbnailFiles.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
namespace fs = std::filesystem;

namespace {

// Of the files of a project.
constexpr std::size_t MaxBytes = std::size_t{1} << 30;
// Texels: a picture of a hundred pixels shows no more.
constexpr Int LongestImageEdge = 256;
// Triangles of all objects together; of what is behind that the picture shows nothing.
constexpr std::size_t MaxTriangles = 8000000;
// Samples that triangles are looked up at: some seconds.
constexpr std::uint64_t MaxSamples = 1000000000;
// Files beside another that are looked at.
constexpr std::size_t MaxNeighbours = 1000;
constexpr Float MaskCutoff = 0.5f, BlendCutoff = 0.1f;

std::vector<char> bytesOf(const std::string& path) { return fileBytes(path, MaxBytes); }

const JsonValue* memberOf(const JsonValue* object, const char* key) {
    if(!object || !object->IsObject()) return nullptr;
    const auto member = object->FindMember(key);
    return member == object->MemberEnd() ? nullptr : &member->value;
}

std::string textOf(const JsonValue* value) {
    return value && value->IsString() ? std::string{value->GetString(), value->GetStringLength()} : std::string{};
}

template<class Vector> Vector vectorOf(const JsonValue* value, Vector vector) {
    if(!value || !value->IsArray()) return vector;
    for(std::size_t i = 0; i != std::min(std::size_t(value->Size()), std::size_t(Vector::Size)); ++i) {
        const JsonValue& number = (*value)[rapidjson::SizeType(i)];
        if(number.IsNumber()) vector[i] = Float(number.GetDouble());
    }
    return vector;
}

// Where an object is in the scene: rotations and scalings are multiplied each by itself.
struct Place {
    Vector3 translation;
    Quaternion rotation;
    Vector3 scaling{1.0f};

    Vector3 positionOf(const Vector3& position) const {
        return translation + rotation.transformVector(position * scaling);
    }
    // Of any length.
    Vector3 normalOf(const Vector3& normal) const { return rotation.transformVector(normal * inverse()); }
    Place below(const Place& parent) const {
        return {parent.positionOf(translation), parent.rotation * rotation, parent.scaling * scaling};
    }

private:
    // Times all three, so that a factor of zero does no harm.
    Vector3 inverse() const {
        return {scaling.y() * scaling.z(), scaling.x() * scaling.z(), scaling.x() * scaling.y()};
    }
};

struct Mesh {
    std::vector<RasterVertex> vertices;
    std::vector<UnsignedInt> indices;
};

struct Material {
    Color4 color{1.0f};
    const RasterTexture* texture = nullptr;
    Float cutoff = 0.0f;
};

struct Part {
    Place place;
    const Mesh* mesh;
    Material material;
};

class Model {
public:
    explicit Model(const JsonDocument& sections, const std::string& folder, const std::atomic<bool>& isGivenUp):
        _sections{sections}, _folder{folder}, _isGivenUp{isGivenUp} {}

    ThumbnailPixels draw(Int edge) {
        collect();
        if(_parts.empty() || _isGivenUp) return {};
        Vector3 center;
        const Float radius = measure(center);
        PictureRaster raster{edge, center, radius};
        for(const Part& part: _parts) drawPart(part, raster);
        return _isGivenUp ? ThumbnailPixels{} : raster.pixels();
    }

private:
    const JsonValue* entry(const char* section, const std::string& id) const {
        return memberOf(memberOf(&_sections, section), id.data());
    }

    void collect() {
        const JsonValue* const objects = memberOf(&_sections, "objects");
        if(!objects || !objects->IsObject()) return;
        for(auto object = objects->MemberBegin(); object != objects->MemberEnd() && !_isGivenUp; ++object) {
            const JsonValue* const components = memberOf(&object->value, "components");
            if(!components || !components->IsArray()) continue;
            for(const JsonValue& component: components->GetArray())
                if(textOf(memberOf(&component, "type")) == "mesh") addPart(object->value, memberOf(&component, "mesh"));
        }
    }

    void addPart(const JsonValue& object, const JsonValue* values) {
        const Mesh& mesh = meshOf(textOf(memberOf(values, "mesh")));
        _triangles += mesh.indices.size() / 3;
        if(mesh.indices.empty() || _triangles > MaxTriangles) return;
        _parts.push_back({placeOf(object), &mesh, materialOf(textOf(memberOf(values, "material")))});
    }

    Place placeOf(const JsonValue& object) const {
        Place place = ownPlace(object);
        // No longer than there are objects, whatever the parents are.
        std::size_t left = memberOf(&_sections, "objects")->MemberCount();
        for(const JsonValue* parent = entry("objects", textOf(memberOf(&object, "parent"))); parent && left--;
            parent = entry("objects", textOf(memberOf(parent, "parent"))))
            place = place.below(ownPlace(*parent));
        return place;
    }

    static Place ownPlace(const JsonValue& object) {
        const Vector4 rotation = vectorOf(memberOf(&object, "rotation"), Vector4{0.0f, 0.0f, 0.0f, 1.0f});
        const bool isRotation = rotation.dot() > 0.0f && std::isfinite(rotation.dot());
        return {vectorOf(memberOf(&object, "translation"), Vector3{}),
            isRotation ? Quaternion{rotation.xyz(), rotation.w()}.normalized() : Quaternion{},
            vectorOf(memberOf(&object, "scaling"), Vector3{1.0f})};
    }

    const Mesh& meshOf(const std::string& id) {
        const auto found = _meshes.try_emplace(id);
        if(found.second)
            if(const std::string file = textOf(memberOf(entry("meshes", id), "file")); !file.empty())
                readMeshFile(file, found.first->second);
        return found.first->second;
    }

    void readMeshFile(const std::string& file, Mesh& mesh) const {
        const std::vector<char> bytes = bytesOf(_folder + "/" + file);
        std::string reason;
        const std::optional<Trade::MeshData> data = readMesh({bytes.data(), bytes.size()}, reason);
        if(!data) return;
        using Trade::MeshAttribute;
        mesh.vertices.resize(data->vertexCount());
        const auto copy = [&](MeshAttribute attribute, auto RasterVertex::*member) {
            if(!data->hasAttribute(attribute)) return;
            using Type = std::remove_reference_t<decltype(mesh.vertices[0].*member)>;
            const auto values = data->attribute<Type>(attribute);
            for(std::size_t i = 0; i != mesh.vertices.size(); ++i) mesh.vertices[i].*member = values[i];
        };
        for(RasterVertex& vertex: mesh.vertices) vertex.color = Color4{1.0f};
        copy(MeshAttribute::Position, &RasterVertex::position);
        copy(MeshAttribute::Normal, &RasterVertex::normal);
        copy(MeshAttribute::TextureCoordinates, &RasterVertex::textureCoordinates);
        if(data->isIndexed()) {
            const auto indices = data->indicesAsArray();
            mesh.indices.assign(indices.begin(), indices.end());
        } else
            for(UnsignedInt i = 0; i != data->vertexCount(); ++i) mesh.indices.push_back(i);
    }

    // Of whatever shader: its colour, the texture of that, and which holes there are.
    Material materialOf(const std::string& id) {
        Material material;
        const JsonValue* const json = entry("materials", id);
        if(!json || !json->IsObject()) return material;
        for(auto member = json->MemberBegin(); member != json->MemberEnd(); ++member)
            for(const char* const name: {"baseColor", "color"}) {
                const std::string texture = textOf(memberOf(&member->value, (name + std::string{"Texture"}).data()));
                if(const JsonValue* const color = memberOf(&member->value, name))
                    material.color = vectorOf(color, material.color);
                if(!texture.empty()) material.texture = textureOf(texture);
            }
        const JsonValue* const pipeline = entry("pipelines", textOf(memberOf(json, "pipeline")));
        const auto isSet = [pipeline](const char* key) {
            const JsonValue* const value = memberOf(pipeline, key);
            return value && value->IsBool() && value->GetBool();
        };
        material.cutoff = isSet("alphaMask") ? MaskCutoff : isSet("blend") ? BlendCutoff : 0.0f;
        return material;
    }

    const RasterTexture* textureOf(const std::string& id) {
        const std::string image = textOf(memberOf(entry("textures", id), "image"));
        const auto found = _textures.try_emplace(image);
        RasterTexture& texture = found.first->second;
        if(found.second && !_isGivenUp) readTexture(entry("images", image), texture);
        return texture.texels.empty() ? nullptr : &texture;
    }

    void readTexture(const JsonValue* json, RasterTexture& texture) const {
        const std::string file = textOf(memberOf(json, "file"));
        const std::vector<char> bytes = file.empty() ? std::vector<char>{} : bytesOf(_folder + "/" + file);
        std::string reason;
        SceneImage image;
        if(!bytes.empty()) image.pixels = readImage({bytes.data(), bytes.size()}, reason);
        if(!image.pixels || image.pixels->format() != PixelFormat::RGBA8Unorm) return;
        image.header.size = image.pixels->size();
        image = reducedImage(image, LongestImageEdge);
        texture.size = image.pixels->size();
        texture.isSrgb = textOf(memberOf(json, "colorSpace")) != "linear";
        texture.texels.resize(std::size_t(texture.size.product()));
        std::memcpy(texture.texels.data(), image.pixels->data().data(), texture.texels.size() * sizeof(Color4ub));
    }

    template<class Function> void forEachPosition(Function&& function) const {
        for(const Part& part: _parts)
            for(const RasterVertex& vertex: part.mesh->vertices) function(part.place.positionOf(vertex.position));
    }

    // The radius of the sphere around the middle of all.
    Float measure(Vector3& center) const {
        Range3D box{Vector3{Constants::inf()}, Vector3{-Constants::inf()}};
        forEachPosition([&box](const Vector3& position) {
            if(std::isfinite(position.dot())) box = {Math::min(box.min(), position), Math::max(box.max(), position)};
        });
        center = box.min().x() <= box.max().x() ? box.center() : Vector3{};
        Float square = 0.0f;
        forEachPosition([&](const Vector3& position) {
            if(std::isfinite(position.dot())) square = std::max(square, (position - center).dot());
        });
        return std::sqrt(square);
    }

    void drawPart(const Part& part, PictureRaster& raster) const {
        const Mesh& mesh = *part.mesh;
        for(std::size_t i = 0; i + 3 <= mesh.indices.size(); i += 3) {
            if(i % 3000 == 0 && (_isGivenUp || raster.tested() > MaxSamples)) return;
            RasterVertex triangle[3];
            for(std::size_t corner = 0; corner != 3; ++corner) {
                triangle[corner] = mesh.vertices[mesh.indices[i + corner]];
                triangle[corner].position = part.place.positionOf(triangle[corner].position);
                triangle[corner].normal = part.place.normalOf(triangle[corner].normal);
                triangle[corner].color = part.material.color;
            }
            raster.draw(triangle, part.material.texture, part.material.cutoff);
        }
    }

    const JsonDocument& _sections;
    const std::string& _folder;
    const std::atomic<bool>& _isGivenUp;
    std::map<std::string, Mesh> _meshes;
    std::map<std::string, RasterTexture> _textures;
    std::vector<Part> _parts;
    std::size_t _triangles = 0;
};

void addNeighbours(const fs::path& file, ContentHash& hash) {
    std::error_code error;
    std::map<std::string, std::uint64_t> facts;
    for(fs::directory_iterator entry{file.parent_path(), error};
        !error && entry != fs::directory_iterator{} && facts.size() != MaxNeighbours; entry.increment(error)) {
        std::error_code gone;
        const auto time = fs::last_write_time(entry->path(), gone).time_since_epoch().count();
        const std::uint64_t size = fs::is_regular_file(entry->path(), gone) ? fs::file_size(entry->path(), gone) : 0;
        if(!gone) facts[entry->path().filename().string()] = std::uint64_t(time) ^ size << 20;
    }
    for(const auto& [name, fact]: facts) {
        hash.add(std::string_view{name});
        hash.add(fact);
    }
}

} // namespace

std::vector<Color4ub> drawModelPicture(
    const JsonDocument& sections, const std::string& folder, Int edge, const std::atomic<bool>& isGivenUp) {
    return Model{sections, folder, isGivenUp}.draw(edge);
}

std::uint64_t modelContent(const std::string& path) {
    const std::vector<char> bytes = bytesOf(path);
    if(bytes.empty()) return 0;
    ContentHash hash;
    hash.add(std::string_view{"model"});
    hash.add(Containers::ArrayView<const char>{bytes.data(), bytes.size()});
    // These stand for themselves.
    std::string suffix = fs::path{path}.extension().string();
    std::transform(suffix.begin(), suffix.end(), suffix.begin(), [](unsigned char c) { return char(std::tolower(c)); });
    hash.add(std::string_view{suffix});
    if(suffix != ".glb" && suffix != ".stl" && suffix != ".ply") addNeighbours(path, hash);
    return hash.value();
}

std::vector<Color4ub> readKeptPicture(const std::string& folder, std::uint64_t content, Int edge) {
    return readThumbnail(folder, content, edge);
}

void keepPicture(const std::string& folder, std::uint64_t content, Int edge, const std::vector<Color4ub>& pixels) {
    writeThumbnail(folder, content, edge, pixels);
}

} // namespace VantrelEngine
