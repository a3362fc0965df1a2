#include "Utilities/PlacementGuard.h"

#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EditorData/EditorData.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

std::string quoted(const Scene& scene, Id object) {
    const Containers::StringView name = scene.objectNames.nameOf(object);
    return '"' + std::string{name.data(), name.size()} + '"';
}

}

std::string placementRefusal(EditorData& data) {
    const std::optional<Id> object = data.firstSelectedObject();
    if(!object) return {};
    Scene& scene = data.scene().main();
    const Id parent = scene.parent(*object);
    if(scene.absoluteTransformationAsMatrixSafe(parent).isRigidTransformation()) return {};
    return quoted(scene, *object) + " cannot be placed: its parent " + quoted(scene, parent) + " is scaled";
}

} // namespace VantrelEngine
