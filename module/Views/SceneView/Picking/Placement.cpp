#include "Views/SceneView/Picking/Placement.h"

#include <string>

#include <Magnum/Math/Matrix4.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EngineData/ValueAccess.h>

#include "ChangeManager.h"
#include "Utils/CheckedMath.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Whether a matrix with this scaling can be taken apart again: the signs would be lost, and squares have to be floats.
bool canBeTakenApart(const Vector3& scaling) { return scaling.min() > 1.0e-15f && scaling.max() < 1.0e15f; }

// The scaling stays as it is.
void recordRigid(Containers::StringView path, Id parent, const DualQuaternion& target, const DynamicSceneGraph& scene,
    ProjectFile& project, ChangeManager& changes) {
    const DualQuaternion from = scene.absoluteTransformation(parent);
    const Quaternion back = from.rotation().invertedNormalized();
    const Vector3 translation =
        back.transformVectorNormalized(target.translation() - from.translation()) / scene.absoluteScaling(parent);
    const Quaternion rotation = back * target.rotation();
    changes.recordVector3(path + "/translation", translation, true);
    JsonValue numbers{rapidjson::kArrayType};
    for(const Float number: {rotation.vector().x(), rotation.vector().y(), rotation.vector().z(), rotation.scalar()})
        numbers.PushBack(Double(number), project.allocator());
    changes.recordChange(path + "/rotation", &numbers, true);
}

}

void placeObject(Id object, Id target, EditorData& data, ChangeManager& changes) {
    Scene& scene = data.scene().main();
    scene.computeAbsoluteTransformations();
    const Id parent = scene.parent(object);
    const DualQuaternion place = scene.absoluteTransformation(target);
    const Vector3 scaling = scene.absoluteScaling(object);
    const Matrix4 fromParent = invertedRigid(scene.absoluteTransformationAsMatrix(parent));
    const std::string path = ValueAccess{data.project()}["objects"][scene.objectIds.nameOf(object)].path();
    const Containers::StringView pathView{path.data(), path.size()};

    changes.beginGroup();
    if(canBeTakenApart(scaling) && canBeTakenApart(scene.absoluteScaling(parent)))
        changes.recordTransform(pathView, fromParent * place.toMatrix() * Matrix4::scaling(scaling), true);
    else
        recordRigid(pathView, parent, place, scene, data.project(), changes);
    changes.commit();
}

} // namespace VantrelEngine
