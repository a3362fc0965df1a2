#include <Corrade/Containers/StringStl.h>

#include "Data/Resources/MeshFile.h"
#include "Data/Resources/MeshShape.h"
#include "Data/Resources/ResourceHandlers.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// What is found of it is reported.
ResourceSource findSource(const ResourceEntry& entry) {
    ResourceSource source;
    if(!entry.has("primitive"))
        source.link = entry.link("file", "").value_or(FileLink{});
    else if(const auto shape = entry.choice("primitive", MeshShapeNames))
        source.shape = MeshShapeNames[*shape];
    return source;
}

std::optional<Trade::MeshData> load(
    const ResourceContext& context, const ResourceEntry& entry, const ResourceSource& source) {
    for(std::size_t i = 0; i != MeshShapeCount; ++i)
        if(MeshShapeNames[i] == Containers::StringView{source.shape}) return shapeMesh(MeshShape(i));
    if(source.isNone()) return {};
    return context.load(entry, source.link, MaximumMeshFileSize, readMesh);
}

// What an object takes over from a mesh besides its index.
bool hasJoints(const SceneMesh& mesh) { return mesh.data && mesh.data->hasAttribute(Trade::MeshAttribute::JointIds); }

} // namespace

unsigned compileMesh(ResourceContext& context, ResourceNode& node, const ResourceEntry& entry) {
    SceneMesh& mesh = context.scene.meshes[node.index];
    mesh.name = entry.text("name");
    const ResourceSource source = findSource(entry);
    if(context.sources.isCurrent(node, source)) return NothingChanged;
    std::optional<Trade::MeshData> data = load(context, entry, source);
    if(!data && mesh.isPlaceholder) return NothingChanged;

    const bool hadJoints = hasJoints(mesh), wasPlaceholder = mesh.isPlaceholder;
    if(mesh.data) context.layout.remove(meshLayout(*mesh.data));
    mesh.isPlaceholder = !data;
    context.sources.set(node, data ? source : ResourceSource{});
    mesh.data = data ? std::move(data) : placeholderMesh();
    mesh.revision = ++context.meshRevision;
    context.layout.add(meshLayout(*mesh.data));
    context.scene.meshLayoutFlags = context.layout.flags();
    const MeshBounds bounds = meshBounds(*mesh.data);
    mesh.bounds = bounds.box;
    mesh.radius = bounds.radius;
    const bool isBinding = hasJoints(mesh) != hadJoints || mesh.isPlaceholder != wasPlaceholder;
    return isBinding ? ContentsChanged | BindingChanged : ContentsChanged;
}

} // namespace VantrelEngine
