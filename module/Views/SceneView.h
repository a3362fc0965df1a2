#pragma once

#include <memory>

#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderbuffer.h>
#include <Vantrel/Renderer/WebGL2Renderer.h>

#include "Views/EditorView.h"
#include "Views/SceneView/Camera/CameraNavigation.h"
#include "Views/SceneView/Drop/DropTarget.h"
#include "Views/SceneView/EditorMaterials.h"
#include "Views/SceneView/FrameClock.h"
#include "Views/SceneView/FrozenCulling.h"
#include "Views/SceneView/Gizmo/TransformGizmo.h"
#include "Views/SceneView/Keys/KeyActions.h"
#include "Views/SceneView/Picking/Picking.h"
#include "Views/SceneView/Reload/RuntimeReload.h"
#include "Views/SceneView/Render/FrameRenderer.h"
#include "Views/SceneView/RenderMode.h"
#include "Views/SceneView/ViewCamera.h"
#include "Views/SceneView/ViewFrame.h"

struct ImGuiWindow;

namespace VantrelEngine {

// The project's scene, live, in a window: knows the order in which its parts work, hands results from one to the next,
// and does to the platform what they ask for.
class SceneView final: public EditorView {
public:
    explicit SceneView(Corrade::PluginManager::AbstractManager& manager, const Corrade::Containers::StringView& plugin);
    ~SceneView();

    // As EditorView's, and takes over how the view was left from the editor's data.
    void restoreState(const Corrade::Containers::Array<char>& state) override;
    bool takesInput() override { return true; }
    Corrade::Containers::StringView name() const override;
    void init(ImGuiContext* imguiContext, EditorData* editorData, VantrelEditor* editor) override;
    void stateSaved() override;

    void draw() override;
    void frameShown() override {}

    void mouseMoveEvent(const MouseMoveEvent& event) override;
    void mousePressEvent(const MouseEvent& event) override;
    void mouseReleaseEvent(const MouseEvent& event) override;
    void mouseScrollEvent(const MouseScrollEvent& event) override;
    void keyPressEvent(const KeyEvent& event) override;
    void keyReleaseEvent(const KeyEvent& event) override;
    void focusLost() override;

private:
    void createPreview();
    void hide();
    void letGo();
    void tellBox();
    void reloadRuntime();
    bool beginWindow();
    void applyMenu();
    void updateFrameSize();
    void prepareFrame();
    void renderScene();
    void showImage();
    void takeDrops();
    void showBox();
    void showLegend();
    Corrade::Containers::StringView pointedName();
    void showToolbar();
    void moveWithGizmo();
    void cancelDrag();
    void frameAsked(bool isSettled);
    void lookAroundWhileFlying();

    void apply(CameraNavigation::Change change);
    void perform(KeyAction action, const KeyEvent& event);
    void chooseGizmo(KeyAction action);
    void toggleSimulation();
    void updateFrozenCulling();
    // Where the cursor is pinned to while flying; the window is there.
    Magnum::Vector2i windowCenter(const ImGuiWindow& window) const;
    MouseFactors mouseFactors() const;
    PressState pressState(bool isHovered) const;
    // Window points.
    Magnum::Range2Di picture() const;
    PickTarget pickTarget();

    Magnum::GL::Framebuffer _previewFramebuffer{Magnum::NoCreate};
    Magnum::GL::Renderbuffer _previewColor{Magnum::NoCreate};
    Magnum::GL::Renderbuffer _previewDepth{Magnum::NoCreate};
    std::unique_ptr<WebGL2Renderer> _renderer;
    FrameRenderer _frameRenderer;
    RuntimeReload _reload;
    EditorMaterials _materials;
    FrozenCulling _frozen;
    ViewCamera _camera;
    CameraNavigation _navigation;
    TransformGizmo _gizmo;
    Picking _picking;
    FrameClock _clock;
    ViewFrame _frame;
    DropTarget _drop;
    Magnum::UnsignedInt _projectSeen = 0;
    RenderMode _renderMode = RenderMode::Shaded;
    // The left button was pressed for a selection, a box or a placement, and is held.
    bool _isPressTaken = false;
    bool _isVisible = false;
    bool _isFocused = false;
};

} // namespace VantrelEngine
