#pragma once

#include <optional>
#include <vector>

#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector2.h>

#include "Views/SceneView/Gizmo/DragRecorder.h"
#include "Views/SceneView/Gizmo/TopmostObjects.h"
#include "Views/SceneView/GizmoSettings.h"

namespace VantrelEngine {

class ViewCamera;

// What a frame of the gizmo works with.
struct GizmoScene {
    EditorData& data;
    SharedState& state;
    const ViewCamera& camera;
    // Of the picture, window points.
    Magnum::Vector2i origin, size;
    // The user does something else, as flying or selecting: handles are seen, but cannot be grabbed.
    bool isBusy;
};

// Moves, turns and scales the selected objects with the gizmo library's handles: one object where it is, several about
// the mean of their places. What is recorded while a handle is held is one trial of the change manager, so one step of
// undo. A drag ends, and stays as far as it came, where the selection or the operation becomes another one, where the
// gizmo is not drawn, and where an object goes away.
//
// The gizmo library has one state for the whole process: there is one of this class at a time.
class TransformGizmo {
public:
    const GizmoSettings& settings() const { return _settings; }
    // A drag that is under way ends with the next frame where the operation is another one now.
    void setSettings(const GizmoSettings& settings) { _settings = settings; }
    // Chooses an operation; a drag that is under way ends.
    void setOperation(GizmoOperation operation, GizmoSpace space, SharedState& state);

    // At the beginning of each frame.
    void beginFrame();
    // Draws the gizmo over the picture, into the current window, and takes a drag one frame further, before the scene is
    // drawn. Returns whether something moved.
    bool draw(const GizmoScene& scene);

    // Whether the mouse is over a handle, or holds one.
    bool isOver() const;
    // Whether a handle is held, as of the last frame.
    bool isHeld() const { return _isHeld; }
    // Ends a drag that stays as far as it came. Nothing where there is none.
    void endDrag(SharedState& state);
    // Ends a drag as if it had never been: the document and the undo log at once, the scene when the document is compiled
    // before the next frame. Nothing where there is none.
    void cancelDrag(SharedState& state);

private:
    // What is dragged, and about what.
    struct Grip {
        Magnum::UnsignedLong key;
        Magnum::Matrix4 matrix;
    };
    std::optional<Grip> grip(EditorData& data);
    Magnum::Vector3 meanPosition(const EditorData& data) const;
    const Magnum::Float* snapSteps() const;
    void record(const GizmoScene& scene, const Grip& grip, const Magnum::Matrix4& delta);
    void releaseHandle();

    GizmoSettings _settings;
    TopmostObjects _topmost;
    std::vector<Id> _objects;
    bool _isSeveral = false;

    bool _isHeld = false;
    Magnum::UnsignedLong _heldKey = 0;
    // There is a trial of ours, with what this drag changed.
    bool _gizmoInUse = false;
    std::optional<DragRecorder> _recorder;
    // Of several objects, which is not their mean where one of them stays.
    Magnum::Vector3 _heldPosition;
};

} // namespace VantrelEngine
