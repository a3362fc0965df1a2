#pragma once

#include <Magnum/Math/Vector2.h>
#include <Vantrel/EngineData/DynamicSceneGraph.h>
#include <Vantrel/EngineData/ViewManager.h>

namespace Magnum::GL {
class AbstractFramebuffer;
}

namespace VantrelEngine {

// The camera of the view: one object with one view component, in a scene of its own.
class ViewCamera {
public:
    // At the origin.
    explicit ViewCamera();

    DynamicSceneGraph& scene() { return _scene; }
    const DynamicSceneGraph& scene() const { return _scene; }
    // Also of a camera that is only looked at: the managers read through the same functions as they write.
    ViewManager& views() const { return _views; }
    Id object() const { return _object; }
    Id view() const { return _view; }

    // In the space of the camera's parent.
    const Magnum::DualQuaternion& transformation() const { return _scene.localTransformation(_object); }
    void setTransformation(const Magnum::DualQuaternion& transformation);

    Magnum::Float near() const { return views().near(_view); }
    Magnum::Float far() const { return views().far(_view); }
    Magnum::Float fov() const { return views().fov(_view); }
    Magnum::Vector2i viewportSize() const { return views().viewport(_view).size(); }

    // Where it is drawn to, and the projection for that size in pixels, which is at least 1.
    void setTarget(Magnum::GL::AbstractFramebuffer& framebuffer, const Magnum::Vector2i& size);
    // Brings the matrices of the view up to where the camera stands.
    void update();

private:
    DynamicSceneGraph _scene;
    mutable ViewManager _views;
    Id _object;
    Id _view;
};

} // namespace VantrelEngine
