#include "Thumbnails/ThumbnailContent.h"

#include <Vantrel/EngineData/ResourceManager.h>
#include <Vantrel/EngineData/SceneResources.h>

#include "Renderer/Meshes/MeshVertices.h"
#include "Thumbnails/ContentHash.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Another one for each way in which they are drawn: old files are not taken for new ones.
constexpr std::uint64_t Version = 2;

// Bytes. No shader comes near it.
constexpr std::size_t MaxSourceSize = 16 << 20;

std::uint64_t pixelHash(const Image2D& pixels) {
    ContentHash hash;
    hash.add(UnsignedInt(pixels.format()));
    hash.addBytes(pixels.size());
    hash.add(pixels.data());
    return hash.value();
}

void addImage(ContentHash& hash, const SceneResources& resources, Id index, KnownContents& known) {
    const SceneImage& image = resources.images[index];
    hash.add(image.isSrgb);
    if(image.pixels) hash.add(known.images.of(index, image.revision, [&] { return pixelHash(*image.pixels); }));
}

void addTexture(ContentHash& hash, const SceneResources& resources, Id index, KnownContents& known) {
    if(!index || index >= resources.textures.size()) return hash.add(0);
    const SceneTexture& texture = resources.textures[index];
    hash.add(UnsignedInt(texture.filter));
    hash.add(UnsignedInt(texture.mipmap));
    hash.add(UnsignedInt(texture.wrapping));
    if(texture.header.image < resources.images.size()) addImage(hash, resources, texture.header.image, known);
}

void addMaterial(ContentHash& hash, const SceneResources& resources, const ResourceManager& files,
    const SceneMaterial& material, KnownContents& known) {
    const ScenePipeline& pipeline = resources.pipelines[material.pipeline];
    hash.add(resources.meshLayoutFlags);
    hash.add(pipeline.header.flags);
    for(const std::string& feature: pipeline.features) hash.add(std::string_view{feature});
    for(const FileLink& link: {resources.shaders[pipeline.shader].vertex, resources.shaders[pipeline.shader].fragment})
        hash.add(std::string_view{thumbnailShader(files, link)});
    for(const ShaderParameter& parameter: pipeline.parameters) {
        hash.add(std::string_view{parameter.name});
        hash.add(UnsignedInt(parameter.type));
    }
    for(const Vector4& value: material.values) hash.addBytes(value);
    for(const Id texture: material.textures) addTexture(hash, resources, texture, known);
}

} // namespace

std::string thumbnailShader(const ResourceManager& files, const FileLink& link) {
    std::string reason;
    const std::optional<Containers::Array<char>> source = files.read(link, MaxSourceSize, reason);
    return source ? std::string{source->data(), source->size()} : std::string{};
}

std::uint64_t thumbnailContent(
    const SceneResources& resources, const ResourceManager& files, ResourceKind kind, Id index, KnownContents& known) {
    ContentHash hash;
    hash.add(Version);
    hash.add(UnsignedInt(kind));
    if(kind == ResourceKind::Mesh && index < resources.meshes.size() && resources.meshes[index].data) {
        const SceneMesh& mesh = resources.meshes[index];
        hash.add(known.meshes.of(index, mesh.revision, [&] { return fingerprint(*mesh.data); }));
        return hash.value();
    }
    if(kind == ResourceKind::Image && index < resources.images.size() && resources.images[index].pixels) {
        addImage(hash, resources, index, known);
        return hash.value();
    }
    if(kind == ResourceKind::Material && index < resources.materials.size()) {
        const SceneMaterial& material = resources.materials[index];
        if(!material.pipeline || material.pipeline >= resources.pipelines.size()) return 0;
        addMaterial(hash, resources, files, material, known);
        return hash.value();
    }
    return 0;
}

} // namespace VantrelEngine
