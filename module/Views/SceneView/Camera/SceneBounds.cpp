#include "Views/SceneView/Camera/SceneBounds.h"

#include <Vantrel/EditorData/EditorData.h>

namespace VantrelEngine {

using namespace Magnum;

BoundingSphere boundsOfObject(EditorData& data, Id object) {
    Scene& scene = data.scene().main();
    const std::vector<SceneMesh>& meshes = data.scene().resources().meshes;
    const auto components = scene.components(object);
    const auto types = scene.componentTypes(object);

    BoundingSphere bounds;
    for(std::size_t i = 0; i != components.size(); ++i) {
        if(types[i] != Scene::Mesh) continue;
        const Id mesh = scene.meshes.mesh(components[i]);
        if(!mesh || mesh >= meshes.size()) continue;
        bounds = merged(bounds,
            transformed({meshes[mesh].bounds.center(), meshes[mesh].radius}, scene.absoluteTransformation(object),
                scene.absoluteScaling(object)));
    }
    return bounds;
}

BoundingSphere boundsOfSubtree(EditorData& data, Id object) {
    BoundingSphere bounds = boundsOfObject(data, object);
    if(!bounds.isEmpty()) return bounds;
    const Scene& scene = data.scene().main();
    const ObjectData place = scene.objectData(object);
    for(std::size_t i = 1; i <= place.descendants; ++i)
        bounds = merged(bounds, boundsOfObject(data, scene.toId(place.index + i)));
    return bounds;
}

} // namespace VantrelEngine
