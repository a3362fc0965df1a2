#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

#include "Shaders/Outline.h"
#include "Views/SceneView/EditorMaterials.h"
#include "Views/SceneView/FrozenCulling.h"
#include "Views/SceneView/Render/DebugDrawing.h"
#include "Views/SceneView/Render/MeshVisualization.h"
#include "Views/SceneView/Render/ViewFramebuffers.h"
#include "Views/SceneView/RenderMode.h"

namespace VantrelEngine {

class EditorData;
class PassClock;
class ViewCamera;
class WebGL2Renderer;
struct FrameStatistics;
struct SharedState;

// What a frame is drawn from; everything outlives the call.
struct FrameInput {
    EditorData& data;
    SharedState& state;
    WebGL2Renderer& renderer;
    ViewCamera& camera;
    const EditorMaterials& materials;
    const FrozenCulling& frozen;
    RenderMode mode;
    // Framebuffer pixels per window point.
    Magnum::Vector2 framebufferScale;
    // How long drawn normals are, scene units.
    Magnum::Float normalLength;
};

// Draws the scene as the view shows it: picture, objects' ids, outline of the selection, and the editor's own drawing.
class FrameRenderer {
public:
    // GL objects of shaders only.
    explicit FrameRenderer() = default;

    // What is drawn with. Needs the GL context.
    void create() { _debug.create(); }

    // Makes the framebuffers for a size in pixels, within ViewFramebuffers::limits(); the renderer is told, and the
    // camera drawn to them from now on.
    void resize(const Magnum::Vector2i& size, WebGL2Renderer& renderer, ViewCamera& camera);

    // Draws a frame. There was a resize() before. Resets what changed in the main scene, which was seen now. What it took
    // stands in the statistics of the shared state, beside what the reload before it took.
    void draw(const FrameInput& input);

    // Of the last frame; the framebuffer is mapped to read the picture.
    ViewFramebuffers& framebuffers() { return _framebuffers; }

private:
    void drawObjectIds(const FrameInput& input);
    void drawScene(const FrameInput& input, PassClock& clock);
    void drawOutline(const FrameInput& input);
    void resolve();
    void count(const WebGL2Renderer& renderer, FrameStatistics& statistics) const;

    ViewFramebuffers _framebuffers;
    DebugDrawing _debug;
    MeshVisualization _meshVisualization;
    Shaders::Outline _outline;
};

} // namespace VantrelEngine
