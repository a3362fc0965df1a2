#pragma once

#include <cstdint>

#include <Corrade/Containers/String.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>

#include <Vantrel/EditorData/EditorState.h>
#include <Vantrel/EditorData/ViewPointer.h>

namespace Magnum::GL {
class Framebuffer;
}

namespace VantrelEngine {

class AssetCompiler;
class ChangeManager;
class EditorData;
class ImportQueue;
class Platform;

// Switches of what is drawn for whom works on the scene, and of the simulation. In this order; a byte each, 0 or 1.
enum class DebugDisplay : std::uint8_t {
    Objects,
    CollisionShapes,
    Overdraw,
    PhysXShapes,
    FreezeCullingFrustum,
    SimulatePhysX
};
constexpr std::size_t DebugDisplayCount = 6;

// Asks the user to point at an object.
struct ObjectPickRequest {
    // Not 0 while the answer is waited for.
    std::uint32_t isPending = 0;
    // The answer: the object's id in the document. Written at each click on an object; who asked takes it and ends the
    // request.
    Corrade::Containers::String name;
};

// What the scene view does in a frame, in this order: makes again what was edited, places objects and finds the visible
// ones, draws their ids, lights and shadow maps, the scene, the outline of the selection, and what is only for whom works
// on the scene.
enum class FramePass : std::uint8_t { Reload, Update, ObjectIds, Shadows, Scene, Outline, Overlays };
constexpr std::size_t FramePassCount = 7;

struct PassStatistics {
    // Of the processor: the GL may go on with it afterwards.
    float milliseconds = 0.0f;
    std::uint32_t drawCalls = 0;
};

// What the last frame of a view took.
struct FrameStatistics {
    std::uint32_t visibleMeshes = 0;
    // Of the scene alone, as a player of it would make them.
    std::uint32_t drawCalls = 0;
    std::uint64_t triangles = 0;
    // Maps that were drawn anew, and meshes in them, of each map again.
    std::uint32_t shadowMaps = 0;
    std::uint32_t shadowCasters = 0;
    PassStatistics passes[FramePassCount];
    PassStatistics& pass(FramePass which) { return passes[std::size_t(which)]; }
    const PassStatistics& pass(FramePass which) const { return passes[std::size_t(which)]; }
    // Bytes of video memory of the pictures that the view draws to, in the formats that were asked for; and that went to
    // video memory since the view is there: vertices, objects, materials, lights and what is visible.
    std::uint64_t pictureBytes = 0;
    std::uint64_t uploadedBytes = 0;
};

// What the editor and its views share, and what outlives a module that is loaded again. The editor owns the data and the
// two instances; they are there for as long as there are views.
struct SharedState {
    EditorState views;
    EditorData* data = nullptr;
    AssetCompiler* assetCompiler = nullptr;
    ChangeManager* changeManager = nullptr;
    // Null where nothing can be imported. See EditorUtilities/LoadFile.h.
    ImportQueue* imports = nullptr;

    std::uint8_t debugDisplay[DebugDisplayCount]{};
    std::uint8_t& display(DebugDisplay which) { return debugDisplay[std::size_t(which)]; }
    bool isSimulating() const { return debugDisplay[std::size_t(DebugDisplay::SimulatePhysX)]; }

    // Degrees a pixel, and scene units a pixel, of the mouse's way.
    Magnum::Float cameraRotationFactor = 0.25f;
    Magnum::Float cameraPanFactor = 0.01f;

    ObjectPickRequest pickRequest;

    // The editor's, there for as long as there are views.
    Platform* platform = nullptr;
    // Set by a view that wants to be drawn again although nothing happens: while it flies, simulates or previews. The
    // editor clears it before each frame.
    bool wantsFrame = false;
    // Set by a view whose picture lacks something that the frames to come will bring: shadows of many lights. The editor
    // clears it before each frame.
    bool isPictureIncomplete = false;
    // Set by the editor for a frame that has to lack nothing, however long that takes.
    bool wantsWholePicture = false;

    // Set by a view while the user holds a handle of its gizmo, moved or not: nothing is undone meanwhile.
    bool isHandleHeld = false;

    // Set by a view while the next press of the left button begins a box, whatever its modifiers are, and while that is
    // dragged.
    bool isBoxArmed = false;

    // Set to have the meshes of the selected objects brought into the middle of the scene view, which clears it.
    bool framesSelection = false;

    // What the scene view drew last, null before its first frame and after the view is gone: attachment 0 the picture,
    // attachment 1 the objects' ids, low byte red and high byte green. Its viewport is all of it.
    Magnum::GL::Framebuffer* sceneViewFramebuffer = nullptr;

    // Written by the scene view in each of its frames.
    ViewPointer viewPointer;
    // The project cannot be changed just now: it is replaced, or an import is compiled. Written by the editor before each
    // frame.
    bool isLocked = false;

    // For the status bar.
    FrameStatistics statistics;
    // What the last reload of the runtime made again, and why: a line a stage. Empty where nothing but places changed.
    Corrade::Containers::String lastReload;
};

// The editor as its views know it.
class CORRADE_VISIBILITY_EXPORT VantrelEditor {
public:
    SharedState& state() { return _state; }

private:
    SharedState _state;
};

} // namespace VantrelEngine
