#include "Views/SceneView/Render/DebugMeshes.h"

#include <Corrade/Containers/Iterable.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Magnum/Math/Vector3.h>
#include <Magnum/MeshTools/Compile.h>
#include <Magnum/MeshTools/Concatenate.h>
#include <Magnum/Primitives/Axis.h>
#include <Magnum/Primitives/Cone.h>
#include <Magnum/Primitives/Cube.h>
#include <Magnum/Primitives/Cylinder.h>
#include <Magnum/Primitives/UVSphere.h>
#include <Magnum/Trade/MeshData.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

Trade::MeshData shaft() {
    Trade::MeshData mesh = Primitives::cylinderSolid(1, 8, 3.22f, Primitives::CylinderFlag::CapEnds);
    for(Vector3& p: mesh.mutableAttribute<Vector3>(Trade::MeshAttribute::Position))
        p = {-p.x() / 3.22f, (-p.y() - 2.61f) / 3.22f, -p.z() / 3.22f};
    return mesh;
}

Trade::MeshData head() {
    Trade::MeshData mesh = Primitives::coneSolid(1, 8, 1.0f, Primitives::ConeFlag::CapEnd);
    for(Vector3& p: mesh.mutableAttribute<Vector3>(Trade::MeshAttribute::Position))
        p = {p.x() / 1.61f, -p.y() / 1.61f - 2.310559f, p.z() / 1.61f};
    return mesh;
}

}

GL::Mesh lowSphereMesh() { return MeshTools::compile(Primitives::uvSphereSolid(8, 8)); }

GL::Mesh arrowMesh() {
    const Trade::MeshData arrowShaft = shaft(), arrowHead = head();
    return MeshTools::compile(MeshTools::concatenate({arrowShaft, arrowHead}));
}

void DebugMeshes::create() {
    axis = MeshTools::compile(Primitives::axis3D());
    wireSphere = MeshTools::compile(Primitives::uvSphereWireframe(8, 8));
    wireCube = MeshTools::compile(Primitives::cubeWireframe());
    arrow = arrowMesh();
    axis.setLabel("SceneView axis");
    wireSphere.setLabel("SceneView wire sphere");
    wireCube.setLabel("SceneView wire cube");
    arrow.setLabel("SceneView arrow");
}

} // namespace VantrelEngine
