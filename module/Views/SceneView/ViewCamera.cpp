#include "Views/SceneView/ViewCamera.h"

#include <Magnum/Math/Angle.h>

namespace VantrelEngine {

using namespace Magnum;

ViewCamera::ViewCamera(): _scene{3, 2, 2}, _views{1} {
    _object = _scene.addObject(RootObject);
    _scene.setComponentManager(0, _views);
    _view = _views.addComponent(_object);
    _views.activate(_view);
}

void ViewCamera::setTransformation(const DualQuaternion& transformation) {
    _scene.localTransformation(_object) = transformation;
    _scene.setDirty(_object);
}

void ViewCamera::setTarget(GL::AbstractFramebuffer& framebuffer, const Vector2i& size) {
    _views.targetFramebuffer(_view) = &framebuffer;
    _views.viewport(_view) = {{}, size};
    _views.projectionMatrix(_view) =
        Matrix4::perspectiveProjection(Deg(fov()), Vector2{size}.aspectRatio(), near(), far());
}

void ViewCamera::update() {
    _scene.computeAbsoluteTransformations();
    _views.update();
    _scene.resetChanged();
}

} // namespace VantrelEngine
