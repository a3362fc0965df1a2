#include "Import/PlaceImport.h"

#include <Magnum/Math/Functions.h>

#include "Data/ProjectSession.h"
#include "Import/InsertImport.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

void add(std::optional<Range3D>& bounds, const Vector3& point) {
    bounds = bounds ? Range3D{Math::min(bounds->min(), point), Math::max(bounds->max(), point)} : Range3D{point, point};
}

void addObject(Scene& scene, const std::vector<SceneMesh>& meshes, Id object, std::optional<Range3D>& bounds) {
    const auto components = scene.components(object);
    const auto types = scene.componentTypes(object);
    for(std::size_t i = 0; i != components.size(); ++i) {
        if(types[i] != Scene::Mesh) continue;
        const Id mesh = scene.meshes.mesh(components[i]);
        if(!mesh || mesh >= meshes.size()) continue;
        const Range3D& box = meshes[mesh].bounds;
        for(unsigned corner = 0; corner != 8; ++corner) {
            const Vector3 point{corner & 1 ? box.max().x() : box.min().x(), corner & 2 ? box.max().y() : box.min().y(),
                corner & 4 ? box.max().z() : box.min().z()};
            add(bounds, scene.absoluteTransformation(object).transformPoint(point * scene.absoluteScaling(object)));
        }
    }
}

} // namespace

std::optional<Range3D> boundsOf(const std::vector<std::string>& objects, ProjectSession& session) {
    EditorSceneData& data = session.data().scene();
    Scene& scene = data.main();
    scene.computeAbsoluteTransformations();
    std::optional<Range3D> bounds;
    for(const std::string& id: objects) {
        const Id root = session.compiler().objectOf({id.data(), id.size()});
        if(root == RootObject) continue;
        const ObjectData place = scene.objectData(root);
        for(std::size_t i = 0; i <= place.descendants; ++i)
            addObject(scene, data.resources().meshes, scene.toId(place.index + i), bounds);
    }
    return bounds;
}

void placeImport(const std::vector<std::string>& objects, const std::optional<Range3D>& bounds, const Vector3& place,
    ProjectSession& session) {
    const Vector3 foot =
        bounds ? Vector3{bounds->center().x(), bounds->min().y(), bounds->center().z()} : Vector3{0.0f};
    const Scene& scene = session.data().scene().main();
    ChangeManager& changes = session.changes();
    changes.beginGroup(ImportGesture, true);
    for(const std::string& id: objects) {
        const Id root = session.compiler().objectOf({id.data(), id.size()});
        if(root == RootObject) continue;
        // The ids of an import have nothing that a pointer would have to escape.
        const std::string path = "/objects/" + id + "/translation";
        changes.recordVector3(
            {path.data(), path.size()}, scene.localTransformation(root).translation() + place - foot, true);
    }
    changes.commit();
}

} // namespace VantrelEngine
