#include <cmath>
#include <limits>

#include <Magnum/Math/Matrix4.h>

#include "AssetCompiler/ComponentHandlers.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Of aspect ratio 1, as OpenGL has it: https://registry.khronos.org/OpenGL-Refpages/gl2.1/xhtml/glFrustum.xml, and the
// limit of its third row for a far plane at infinity.
Matrix4 perspectiveProjection(float degrees, float near, float far) {
    const float extent = 2.0f * near * std::tan(degrees * 3.1415927f / 180.0f * 0.5f);
    const float scale = 2.0f * near / extent;
    const bool isInfinite = far == std::numeric_limits<float>::infinity();
    const float depthScale = isInfinite ? -1.0f : (far + near) / (near - far);
    const float depthOffset = isInfinite ? -2.0f * near : 2.0f * far * near / (near - far);
    return {{scale, 0.0f, 0.0f, 0.0f}, {0.0f, scale, 0.0f, 0.0f}, {0.0f, 0.0f, depthScale, -1.0f},
        {0.0f, 0.0f, depthOffset, 0.0f}};
}

bool isFinite(const Matrix4& matrix) {
    for(const float value: matrix.data())
        if(!std::isfinite(value)) return false;
    return true;
}

} // namespace

void compileView(ComponentTask& task) {
    ViewManager& views = task.scene.views;
    if(!task.ensureComponent(views)) return;
    const ValueAccess json = task.json["view"];
    const float fov = json["fov"].readValue().asFloat(90.0f);
    const float near = json["near"].readValue().asFloat(0.1f);
    const float far = json["far"].readValue().asFloatOrInfinity(1000.0f);
    views.fov(task.component) = fov;
    views.near(task.component) = near;
    views.far(task.component) = far;
    const Matrix4 projection = perspectiveProjection(fov, near, far);
    views.projectionMatrix(task.component) = projection;
    // Such planes and angles give a matrix that would spoil everything that is computed with it.
    const bool isUsable = isFinite(projection);
    if(!isUsable) task.problem("its planes and its field of view give no projection");
    views.setActive(task.component, isUsable && task.isActive());
}

} // namespace VantrelEngine
