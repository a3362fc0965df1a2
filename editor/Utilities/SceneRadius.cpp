#include "Utilities/SceneRadius.h"

#include <Corrade/Containers/StringStl.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/Math/Range.h>

#include "Data/ProjectSession.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Empty while nothing was added.
struct Extent {
    Vector3 min, max;
    bool isEmpty = true;

    void add(const Vector3& center, Float radius) {
        const Vector3 low = center - Vector3{radius}, high = center + Vector3{radius};
        min = isEmpty ? low : Vector3{Math::min(min, low)};
        max = isEmpty ? high : Vector3{Math::max(max, high)};
        isEmpty = false;
    }
};

void addObject(EditorData& data, Id object, Extent& extent) {
    Scene& scene = data.scene().main();
    const std::vector<SceneMesh>& meshes = data.scene().resources().meshes;
    const auto components = scene.components(object);
    const auto types = scene.componentTypes(object);
    const Vector3 scaling = scene.absoluteScaling(object);
    for(std::size_t i = 0; i != components.size(); ++i) {
        if(types[i] != Scene::Mesh) continue;
        const Id id = scene.meshes.mesh(components[i]);
        if(!id || id >= meshes.size()) continue;
        const Vector3 center =
            scene.absoluteTransformation(object).transformPoint(meshes[id].bounds.center() * scaling);
        const Float radius = meshes[id].radius * Math::abs(scaling).max();
        if(radius < Constants::inf()) extent.add(center, radius);
    }
}

} // namespace

float radiusOf(const std::vector<std::string>& objects, ProjectSession& session) {
    EditorData& data = session.data();
    Scene& scene = data.scene().main();
    scene.computeAbsoluteTransformations();
    Extent extent;
    for(const std::string& id: objects) {
        const Id object = session.compiler().objectOf(id);
        if(object == RootObject) continue;
        const ObjectData place = scene.objectData(object);
        for(std::size_t i = 0; i <= place.descendants; ++i) addObject(data, scene.toId(place.index + i), extent);
    }
    return (extent.max - extent.min).length() * 0.5f;
}

} // namespace VantrelEngine
