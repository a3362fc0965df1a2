#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector3.h>

namespace VantrelEngine {

enum class GizmoOperation : Magnum::UnsignedInt { Translate = 0, Rotate = 1, Scale = 2 };

// The axes of the object, or those of the world. Scaling is along those of the object.
enum class GizmoSpace : Magnum::UnsignedInt { Local = 0, World = 1 };

// What the gizmo does to the selection, and in which steps.
struct GizmoSettings {
    GizmoOperation gizmoOperation = GizmoOperation::Translate;
    GizmoSpace gizmoSpace = GizmoSpace::World;
    // Whether steps are taken also without Ctrl.
    bool snapTranslationEnabled = false;
    bool snapRotationEnabled = false;
    bool snapScaleEnabled = false;
    // Degrees.
    Magnum::Float snapRotation = 30.0f;
    // Scene units, and parts of the size; the same along all axes.
    Magnum::Vector3 snapTranslation{0.5f};
    Magnum::Vector3 snapScale{0.1f};
};

} // namespace VantrelEngine
