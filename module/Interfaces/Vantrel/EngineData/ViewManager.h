#pragma once

#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>

#include <Vantrel/EngineData/ComponentManager.h>

namespace Magnum::GL {
class AbstractFramebuffer;
}

namespace VantrelEngine {

// Cameras ("view"). They look along the negative z axis of their objects. Views are counted by component id.
class CORRADE_VISIBILITY_EXPORT ViewManager: public ComponentManager {
public:
    explicit ViewManager(std::size_t capacity = 0);

    // Scene units. The near plane is initially at 0.1; the far one, initially at 1000, may be at infinity.
    Magnum::Float& near(Id view) { return _near[slot(view)]; }
    Magnum::Float& far(Id view) { return _far[slot(view)]; }
    // Horizontal, in degrees; initially 90.
    Magnum::Float& fov(Id view) { return _fov[slot(view)]; }
    // Pixels of the framebuffer.
    Magnum::Range2Di& viewport(Id view) { return _viewport[slot(view)]; }
    // From the view's space to clip space. Whoever changes near, far or fov computes it.
    Magnum::Matrix4& projectionMatrix(Id view) { return _projection[slot(view)]; }

    // Where the view is drawn to, not owned; null for nowhere.
    Magnum::GL::AbstractFramebuffer*& targetFramebuffer(Id view) { return _target[slot(view)]; }

    // From the scene's space to the view's, without scaling; and on to clip space. As of the last update.
    const Magnum::DualQuaternion& viewTransform(Id view) const { return _transform[slot(view)]; }
    const Magnum::Matrix4& cullingMatrix(Id view) const { return _culling[slot(view)]; }

    // Takes over the projection matrices of all active views, and the absolute transformations of their objects as they
    // were last computed.
    void update();

private:
    Field<Magnum::Float> _near{*this, 0.1f};
    Field<Magnum::Float> _far{*this, 1000.0f};
    Field<Magnum::Float> _fov{*this, 90.0f};
    Field<Magnum::Range2Di> _viewport{*this};
    Field<Magnum::Matrix4> _projection{*this};
    Field<Magnum::GL::AbstractFramebuffer*> _target{*this};
    Field<Magnum::DualQuaternion> _transform{*this};
    Field<Magnum::Matrix4> _culling{*this};
};

}
