#include <string>
#include <tuple>

#include <Corrade/Utility/Debug.h>
#include <Magnum/Trade/MeshData.h>

#include "AssetCompiler/ComponentHandlers.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// What of a component a renderer's list of draws depends on.
auto drawState(MeshManager& meshes, Id component) {
    return std::make_tuple(meshes.mesh(component), meshes.material(component), meshes.skin(component),
        meshes.isActive(component), meshes.groupOf(component));
}

std::string quoted(Containers::StringView id) { return "\"" + std::string{id.data(), id.size()} + "\""; }

Id pipelineOf(const ComponentTask& task, Containers::StringView material) {
    const ValueAccess pipeline = ValueAccess{task.data.project()}["materials"][material]["pipeline"];
    const Containers::StringView id = pipeline.readValue().asString("", JsonObject::WhenMissing::Accept);
    return id.isEmpty() ? 0 : task.resource(ResourceKind::Pipeline, id);
}

bool hasJoints(const ComponentTask& task, Id mesh) {
    const auto& meshes = task.data.scene().resources().meshes;
    return mesh < meshes.size() && meshes[mesh].data && meshes[mesh].data->hasAttribute(Trade::MeshAttribute::JointIds);
}

// Binds the component to its resources. Returns why it cannot be drawn, or an empty text.
std::string bind(const ComponentTask& task) {
    MeshManager& meshes = task.scene.meshes;
    const ValueAccess json = task.json["mesh"];
    const ValueAccess materialKey = json["material"], meshKey = json["mesh"];

    if(!materialKey.exists()) return "it has no material";
    const Containers::StringView material = materialKey.readValue().asString();
    // Looked up also where the material has no pipeline: it may get one.
    const Id materialIndex = material.isEmpty() ? 0 : task.resource(ResourceKind::Material, material);
    const Id pipeline = pipelineOf(task, material);
    if(!pipeline) return "the pipeline of its material " + quoted(material) + " is not compiled";
    meshes.material(task.component) = materialIndex;

    if(!meshKey.exists()) return "it has no mesh";
    const Containers::StringView mesh = meshKey.readValue().asString();
    const Id meshIndex = mesh.isEmpty() ? 0 : task.resource(ResourceKind::Mesh, mesh);
    meshes.mesh(task.component) = meshIndex;
    // It is not drawn, but in the scene, and works as soon as the mesh is there.
    if(!mesh.isEmpty() && !meshIndex) task.problem("its mesh " + quoted(mesh) + " is not compiled");

    bool isSkinned = false;
    const Containers::StringView skin = json["skin"].readValue().asString("", JsonObject::WhenMissing::Accept);
    if(meshIndex && !skin.isEmpty() && hasJoints(task, meshIndex)) {
        const Id skinIndex = task.resource(ResourceKind::Skin, skin);
        if(!skinIndex) {
            std::string reason = "its skin " + quoted(skin) + " is not compiled";
            if(task.problem(reason))
                Utility::Debug{} << "While compiling mesh component on object" << task.node.id.c_str()
                                 << Utility::Debug::nospace << ", skin" << skin << "is not compiled";
            return reason;
        }
        meshes.setSkin(task.component, skinIndex);
        isSkinned = true;
    }
    meshes.setGroup(task.component, pipeline, isSkinned);
    return {};
}

} // namespace

void compileMesh(ComponentTask& task) {
    MeshManager& meshes = task.scene.meshes;
    const bool isNew = task.component == NoComponent;
    if(!task.ensureComponent(meshes)) return;
    const auto before = drawState(meshes, task.component);
    std::string reason = bind(task);
    meshes.setActive(task.component, reason.empty() && task.isActive());
    if(!reason.empty()) task.problem(std::move(reason));
    if(isNew || drawState(meshes, task.component) != before) task.changed(Aspect::Draws);
}

} // namespace VantrelEngine
