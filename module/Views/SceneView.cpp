#include "Views/SceneView.h"

#include <Magnum/GL/RenderbufferFormat.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/Module/Platform.h>

#include "Utils/Assert.h"
#include "Views/SceneView/Gizmo/Toolbar.h"
#include "Views/SceneView/Keys/ObjectActions.h"
#include "Views/SceneView/ObjectIdReadback.h"
#include "Views/SceneView/Overlays/Legend.h"
#include "Views/SceneView/Overlays/SelectionBox.h"
#include "Views/SceneView/Overlays/TextureOverlay.h"
#include "Views/SceneView/Overlays/ViewMenu.h"
#include "Views/SceneView/PhysicsSimulation.h"
#include "Views/SceneView/Picking/PickMath.h"
#include "Views/UserInterface.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr char Name[] = "Scene View";

// GLFW's.
constexpr int KeyEscape = 256;

// Of the distance to what the camera turns about.
constexpr Float NormalLength = 0.02f;

constexpr Vector2i PreviewSize{128, 128};

// A frame of a scene with hundreds of lights that throw shadows, see WebGL2Renderer::setShadowWork().
constexpr UnsignedLong ShadowWork = 4'000'000;

// The shadows of one light follow each other.
ShadowsData copyOf(Containers::ArrayView<const LightShadow> shadows) {
    ShadowsData data;
    for(const LightShadow& shadow: shadows) {
        if(data.lights.empty() || data.lights.back().light != shadow.light) data.lights.push_back({shadow.light, {}});
        data.lights.back().cascades.push_back(shadow.matrix);
    }
    return data;
}

// Neither the window's bars nor something that lies over the picture. What was hovered in the frame before does not count.
bool isPictureHovered(const Vector2i& origin, const Vector2i& size) {
    const Range2D picture = Range2D::fromSize(Vector2{origin}, Vector2{size});
    return ImGui::IsWindowHovered() && !ImGui::GetCurrentContext()->HoveredId &&
        picture.contains(UserInterface::vector(ImGui::GetIO().MousePos));
}

GizmoSettings gizmoSettings(const SceneViewRecord& record) {
    return {GizmoOperation(record.gizmoOperation), GizmoSpace(record.gizmoSpace), record.snapTranslationEnabled,
        record.snapRotationEnabled, record.snapScaleEnabled, record.snapRotation, record.snapTranslation,
        record.snapScale};
}

FrozenCulling frozenCulling(const SceneViewRecord& record) {
    return {record.frozenMatrix, record.frozenLights,
        record.frozenShadows ? std::make_unique<ShadowsData>(*record.frozenShadows) : nullptr};
}

void note(SceneViewRecord& record, const FrozenCulling& frozen) {
    record.frozenMatrix = frozen.matrix;
    record.frozenLights = frozen.lights;
    record.frozenShadows = frozen.shadows ? std::optional<ShadowsData>{*frozen.shadows} : std::nullopt;
}

void note(SceneViewRecord& record, const GizmoSettings& settings) {
    record.gizmoOperation = UnsignedInt(settings.gizmoOperation);
    record.gizmoSpace = UnsignedInt(settings.gizmoSpace);
    record.snapTranslationEnabled = settings.snapTranslationEnabled;
    record.snapRotationEnabled = settings.snapRotationEnabled;
    record.snapScaleEnabled = settings.snapScaleEnabled;
    record.snapRotation = settings.snapRotation;
    record.snapTranslation = settings.snapTranslation;
    record.snapScale = settings.snapScale;
}

}

SceneView::SceneView(PluginManager::AbstractManager& manager, const Containers::StringView& plugin):
    EditorView{manager, plugin} {}

SceneView::~SceneView() {
    if(!_editor) return;
    _drop.leave(_editor->state());
    _gizmo.endDrag(_editor->state());
    _editor->state().sceneViewFramebuffer = nullptr;
    _editor->state().isBoxArmed = false;
}

Containers::StringView SceneView::name() const {
    return {Name, sizeof(Name) - 1, Containers::StringViewFlag::NullTerminated};
}

void SceneView::init(ImGuiContext* imguiContext, EditorData* editorData, VantrelEditor* editor) {
    EditorView::init(imguiContext, editorData, editor);

    _frameRenderer.create();
    _navigation.reset(*_data, _camera);
    _renderer = std::make_unique<WebGL2Renderer>();
    _materials = {};
    _materials.colliders = _renderer->registerCustomMaterial();
    _materials.labels = _renderer->registerCustomMaterial();
    _reload.forget();
    _frame = {};
    _frozen = {};
    _projectSeen = _data->projectNumber;
    createPreview();
    _clock.start(_editor->state().platform->now());
}

void SceneView::createPreview() {
    _previewColor = GL::Renderbuffer{};
    _previewColor.setLabel("SceneView preview color");
    _previewColor.setStorageMultisample(4, GL::RenderbufferFormat::RGBA8, PreviewSize);
    _previewDepth = GL::Renderbuffer{};
    _previewDepth.setLabel("SceneView preview depth");
    _previewDepth.setStorageMultisample(4, GL::RenderbufferFormat::DepthComponent32F, PreviewSize);
    _previewFramebuffer = GL::Framebuffer{{{}, PreviewSize}};
    _previewFramebuffer.setLabel("SceneView preview FB")
        .attachRenderbuffer(GL::Framebuffer::ColorAttachment{0}, _previewColor)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::Depth, _previewDepth)
        .mapForDraw(GL::Framebuffer::ColorAttachment{0});
}

void SceneView::restoreState(const Containers::Array<char>& state) {
    EditorView::restoreState(state);
    if(state.isEmpty() || !_data->sceneView) return;
    const SceneViewRecord& record = *_data->sceneView;
    _navigation.restore(*_data, _camera, record.camera, record.orbitDistance, record.flySpeed);
    _renderMode = RenderMode(record.renderMode);
    _renderer->debug() = record.rendererDebug;
    _frozen = frozenCulling(record);
    _gizmo.setSettings(gizmoSettings(record));
}

void SceneView::stateSaved() {
    _gizmo.endDrag(_editor->state());
    SceneViewRecord record = _data->sceneView.value_or(SceneViewRecord{});
    record.camera = _camera.transformation();
    record.orbitDistance = _navigation.state().orbitDistance;
    record.flySpeed = _navigation.state().flySpeed;
    record.renderMode = UnsignedInt(_renderMode);
    record.rendererDebug = _renderer->debug();
    note(record, _frozen);
    note(record, _gizmo.settings());
    _data->sceneView = record;
}

void SceneView::draw() {
    Platform& platform = *_editor->state().platform;
    const Double begin = platform.now();
    _clock.tick(begin);
    PassStatistics& reload = _editor->state().statistics.pass(FramePass::Reload);
    reload = {};
    if(_reload.isDue(_data->scene().revisions())) {
        reloadRuntime();
        const Double end = platform.now();
        _clock.skip(end);
        reload.milliseconds = float((end - begin) * 1000.0);
    }
    _gizmo.beginFrame();

    if(!_editor->state().views.isViewOpen(_viewIndex)) return hide();
    if(_data->projectNumber != _projectSeen) {
        letGo();
        _navigation.reset(*_data, _camera);
        _projectSeen = _data->projectNumber;
    }
    _isVisible = beginWindow();
    applyMenu();
    drawTextureOverlay(_renderer->debug(), _renderer->compressedTextureAtlas().statistics());
    if(_isVisible) {
        prepareFrame();
        showToolbar();
        showImage();
        // Before the scene is drawn, which shows what was moved.
        moveWithGizmo();
        renderScene();
        showLegend();
        showBox();
        takeDrops();
    } else {
        _frame.isHovered = false;
        _gizmo.endDrag(_editor->state());
        _drop.leave(_editor->state());
    }
    ImGui::End();
    if(_navigation.isMoving() || _renderer->isBakingEnvironment()) _editor->state().wantsFrame = true;
}

// A window that is closed has no picture to be used, and lets go of what it held.
void SceneView::hide() {
    _isVisible = _isFocused = _frame.isHovered = false;
    letGo();
    _drop.leave(_editor->state());
}

void SceneView::letGo() {
    apply(_navigation.endMode());
    _picking.cancelBox();
    tellBox();
    _gizmo.endDrag(_editor->state());
}

// The editor asks between frames.
void SceneView::tellBox() { _editor->state().isBoxArmed = _picking.isBoxArmed(); }

void SceneView::takeDrops() {
    _drop.update({*_data, *_editor, _frameRenderer.framebuffers().resolved(), _frame, _camera,
        _navigation.state().orbitDistance});
}

void SceneView::reloadRuntime() { _reload.run({*_data, _editor->state(), *_renderer, _camera, _materials}); }

// Whether there is something of it to be seen.
bool SceneView::beginWindow() {
    EditorState& views = _editor->state().views;
    const std::optional<Range2D>& pane = views.pane(_viewIndex);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowPadding, ImVec2{0.0f, 0.0f});
    const bool isVisible = UserInterface::beginView(
        Name, views.isViewOpen(_viewIndex), ImGuiWindowFlags_MenuBar | ImGuiWindowFlags_NoScrollbar, pane);
    ImGui::PopStyleVar();

    _isFocused = ImGui::IsWindowFocused(ImGuiFocusedFlags_ChildWindows);
    const bool isHovered = ImGui::IsWindowHovered(ImGuiHoveredFlags_ChildWindows | UserInterface::HoveredInDock);
    // A click on another window that is still held is that window's.
    if(!_isFocused && isHovered && UserInterface::isDocked(pane) && !ImGui::IsAnyItemActive()) {
        ImGui::SetWindowFocus();
        _isFocused = true;
    }
    // The view has keys of its own.
    if(_isFocused) ImGui::ClearActiveID();
    return isVisible;
}

void SceneView::applyMenu() {
    const ViewMenuResult menu = drawViewMenu(_renderMode, hasPhysics(*_data), _editor->state(), _renderer->debug());
    _renderMode = menu.mode;
    if(menu.togglesSimulation) toggleSimulation();
    if(menu.collisionShapesOff && _materials.colliderBatch)
        _renderer->clearColliderVisualizationBatch(_materials.colliderBatch);
}

// The switch is the editor's, and may be on before this view was there: what it sees first is what stays then.
void SceneView::updateFrozenCulling() {
    const bool isFrozen = _editor->state().display(DebugDisplay::FreezeCullingFrustum);
    if(isFrozen == bool(_frozen.shadows)) return;
    _frozen = {};
    if(!isFrozen) return;
    _frozen.matrix = _camera.views().cullingMatrix(_camera.view());
    _frozen.lights = _data->scene().main().lights.lightsOfType(LightType::Sun);
    _frozen.shadows = std::make_unique<ShadowsData>(copyOf(_data->scene().main().lights.shadows()));
}

void SceneView::updateFrameSize() {
    _frame.origin = UserInterface::wholePoint(ImGui::GetCursorScreenPos());
    const Vector2i size = wholeSize(UserInterface::vector(ImGui::GetContentRegionAvail()));
    _frame.isHovered = isPictureHovered(_frame.origin, size);
    /* Kept: a change of the scale alone leaves the framebuffers as they are. */
    if(size == _frame.size) return;
    const Vector2 scale = _editor->state().platform->framebufferScale();
    _frame.framebufferSize = framebufferSize(size, scale, ViewFramebuffers::limits());
    _frame.pixelsPerPoint = pixelsPerPoint(_frame.framebufferSize, size, scale);
    _frameRenderer.resize(_frame.framebufferSize, *_renderer, _camera);
    _frame.size = size;
}

// Where the picture is, and from where it is seen.
void SceneView::prepareFrame() {
    SharedState& state = _editor->state();
    _navigation.advance(*_data, _camera, _clock.delta());
    const Vector2i lastSize = _frame.size;
    updateFrameSize();
    if(state.framesSelection) frameAsked(_frame.size == lastSize);
    _camera.update();
    updateFrozenCulling();
}

void SceneView::renderScene() {
    SharedState& state = _editor->state();
    _renderer->setShadowWork(state.wantsWholePicture ? ~UnsignedLong{} : ShadowWork);
    _frameRenderer.draw({*_data, state, *_renderer, _camera, _materials, _frozen, _renderMode,
        state.platform->framebufferScale(), NormalLength * _navigation.state().orbitDistance});
    state.sceneViewFramebuffer = &_frameRenderer.framebuffers().resolved();
    state.isPictureIncomplete = _renderer->areShadowsWaiting();
    if(state.isPictureIncomplete) state.wantsFrame = true;
    if(_navigation.mode() == NavigationMode::Fly) lookAroundWhileFlying();
}

void SceneView::showToolbar() {
    SharedState& state = _editor->state();
    const CameraState& camera = _navigation.state();
    const Range2D window =
        Range2D::fromSize(UserInterface::vector(ImGui::GetWindowPos()), UserInterface::vector(ImGui::GetWindowSize()));
    const ToolbarResult result = drawToolbar({_gizmo.settings(), camera.flySpeed, camera.flySpeedMin,
                                                 camera.flySpeedMax, hasPhysics(*_data), state.isSimulating()},
        window);
    _navigation.setFlySpeed(result.flySpeed);
    const GizmoSettings& chosen = result.gizmo;
    if(chosen.gizmoOperation != _gizmo.settings().gizmoOperation || chosen.gizmoSpace != _gizmo.settings().gizmoSpace)
        _gizmo.setOperation(chosen.gizmoOperation, chosen.gizmoSpace, state);
    _gizmo.setSettings(chosen);
    if(result.togglesSimulation) toggleSimulation();
    if(result.isChoiceHovered) _frame.isHovered = false;
    // Keys are the view's, also while the mouse is still over a button that was clicked.
    if((result.isNew && _isFocused) || result.isLeft) ImGui::SetWindowFocus(Name);
}

void SceneView::moveWithGizmo() {
    if(_picking.isBoxArmed()) return _gizmo.endDrag(_editor->state());
    // A press that selects does not also move what it selected, and what is dragged over the view takes nothing along.
    const bool isBusy = _navigation.mode() != NavigationMode::Idle || _isPressTaken || ImGui::GetDragDropPayload();
    if(_gizmo.draw({*_data, _editor->state(), _camera, _frame.origin, _frame.size, isBusy}))
        _editor->state().wantsFrame = true;
    // Not with its release: the UI library may hear of both only now.
    if(!ImGui::IsMouseDown(ImGuiMouseButton_Left)) _isPressTaken = false;
}

// A window that is new has its size in its second frame.
void SceneView::frameAsked(bool isSettled) {
    SharedState& state = _editor->state();
    if(isSettled) _navigation.frameSelection(*_data, _camera, CameraNavigation::Middle::Meshes);
    state.framesSelection = !isSettled;
    state.wantsFrame = true;
}

void SceneView::lookAroundWhileFlying() {
    Platform& platform = *_editor->state().platform;
    ImGui::SetMouseCursor(ImGuiMouseCursor_None);
    const Vector2i cursor{platform.cursorPosition()};
    const ImGuiWindow* const window = ImGui::FindWindowByName(Name);
    VANTREL_ASSERT(window, "Views/SceneView", 1971);
    const Vector2i center = windowCenter(*window);
    _navigation.look(cursor - center, mouseFactors(), *_data);
    platform.setCursorPosition(center);
}

// What will have been drawn at the end of the frame.
void SceneView::showImage() {
    ViewFramebuffers& framebuffers = _frameRenderer.framebuffers();
    switch(_renderMode) {
    case RenderMode::Shaded:
    case RenderMode::MeshVisualization: return UserInterface::image(framebuffers.color().id(), Vector2{_frame.size});
    case RenderMode::ObjectId: return UserInterface::image(framebuffers.objectIds().id(), Vector2{_frame.size});
    }
    VANTREL_UNREACHABLE("Views/SceneView", 1372);
}

// The object below the mouse. Reading it waits for the GPU, so that is done only where somebody may want to know.
Containers::StringView SceneView::pointedName() {
    if(!_frame.isHovered || _navigation.mode() == NavigationMode::Fly) return {};
    const Scene& scene = _data->scene().main();
    const Vector2i mouse = UserInterface::wholePoint(ImGui::GetIO().MousePos);
    const std::vector<Id> objects =
        readObjectIds(_frameRenderer.framebuffers().resolved(), pixelBelow(mouse, _frame), scene);
    if(objects.empty() || objects.front() == RootObject) return {};
    return scene.objectNames.nameOf(objects.front());
}

void SceneView::showLegend() {
    const bool showsOverdraw = _editor->state().display(DebugDisplay::Overdraw);
    const Vector2 origin{_frame.origin};
    drawLegend({origin, origin + Vector2{_frame.size}}, showsOverdraw,
        showsOverdraw ? Containers::StringView{} : pointedName());
}

void SceneView::showBox() {
    const Vector2i mouse = UserInterface::wholePoint(ImGui::GetIO().MousePos);
    if(const std::optional<BoxFeedback> box = _picking.boxFeedback(mouse, _frame)) drawSelectionBox(box->rectangle);
}

void SceneView::mouseMoveEvent(const MouseMoveEvent& event) {
    _navigation.mouseMove(event, _frame.isHovered, mouseFactors(), *_data, _camera);
}

// While a handle is held the other buttons are the gizmo's. What was hovered in the last frame the mouse may have left.
void SceneView::mousePressEvent(const MouseEvent& event) {
    if(_gizmo.isHeld()) {
        if(event.button == MouseButton::Right) cancelDrag();
        return;
    }
    const bool isHovered = _frame.isHovered && picture().contains(event.position);
    apply(_navigation.mousePress(event, isHovered));
    if(event.button == MouseButton::Left)
        _isPressTaken = _picking.mousePress(event, pressState(isHovered), pickTarget());
}

void SceneView::cancelDrag() {
    _gizmo.cancelDrag(_editor->state());
    _editor->state().wantsFrame = true;
}

void SceneView::mouseReleaseEvent(const MouseEvent& event) {
    apply(_navigation.mouseRelease(event));
    if(event.button == MouseButton::Left) _picking.mouseRelease(event, pickTarget());
    tellBox();
}

void SceneView::mouseScrollEvent(const MouseScrollEvent& event) {
    _navigation.mouseScroll(event, _frame.isHovered, *_data, _camera);
}

void SceneView::keyPressEvent(const KeyEvent& event) {
    if(event.key == KeyEscape && _gizmo.isHeld()) return cancelDrag();
    const bool isIdle = _navigation.mode() == NavigationMode::Idle;
    for(const KeyAction action: actionsOf(event, {_isFocused, isIdle, ImGui::IsAnyItemActive(), hasPhysics(*_data)}))
        perform(action, event);
    tellBox();
}

void SceneView::chooseGizmo(KeyAction action) {
    const GizmoSettings& present = _gizmo.settings();
    const GizmoChoice choice = chosen(action, {present.gizmoOperation, present.gizmoSpace});
    _gizmo.setOperation(choice.operation, choice.space, _editor->state());
}

void SceneView::toggleSimulation() {
    SharedState& state = _editor->state();
    simulatePhysics(!state.isSimulating(), state);
}

void SceneView::perform(KeyAction action, const KeyEvent& event) {
    switch(action) {
    case KeyAction::FrameSelection: _navigation.frameSelection(*_data, _camera); return;
    case KeyAction::Navigate: return _navigation.keyPress(event, _isFocused);
    case KeyAction::ChooseTranslation:
    case KeyAction::ChooseRotation:
    case KeyAction::ChooseScaling: return chooseGizmo(action);
    case KeyAction::ArmBox: return _picking.armBox();
    case KeyAction::CancelBox: return _picking.cancelBox();
    case KeyAction::ShowAxisView: return _navigation.showAxisView(event, *_data);
    case KeyAction::ToggleSimulation: return toggleSimulation();
    case KeyAction::Copy:
    case KeyAction::CopyTrees: return performOnObjects(action, *_editor);
    case KeyAction::DeleteSelected:
    case KeyAction::Paste:
    case KeyAction::PasteChild:
    case KeyAction::Duplicate:
    case KeyAction::DuplicateTrees:
        // A step of its own.
        _gizmo.endDrag(_editor->state());
        return performOnObjects(action, *_editor);
    }
}

void SceneView::keyReleaseEvent(const KeyEvent& event) { _navigation.keyRelease(event, _isFocused); }

void SceneView::focusLost() { letGo(); }

PressState SceneView::pressState(bool isHovered) const {
    PressState state;
    state.isHovered = isHovered;
    state.isFlying = _navigation.mode() == NavigationMode::Fly;
    state.isOverHandle = _data->firstSelectedObject() && _gizmo.isOver();
    return state;
}

Range2Di SceneView::picture() const { return Range2Di::fromSize(_frame.origin, _frame.size); }

PickTarget SceneView::pickTarget() {
    return {*_data, _editor->state(), _frameRenderer.framebuffers().resolved(), _frame};
}

void SceneView::apply(CameraNavigation::Change change) {
    Platform& platform = *_editor->state().platform;
    switch(change) {
    case CameraNavigation::Change::None:
    case CameraNavigation::Change::OrbitEnded: return;
    case CameraNavigation::Change::OrbitBegan: return ImGui::SetWindowFocus(Name);
    case CameraNavigation::Change::FlyBegan: {
        ImGui::SetWindowFocus(Name);
        const ImGuiWindow* const window = ImGui::FindWindowByName(Name);
        VANTREL_ASSERT(window, "Views/SceneView", 2275);
        platform.setCursorDisabled(true);
        return platform.setCursorPosition(windowCenter(*window));
    }
    case CameraNavigation::Change::FlyEnded:
        platform.setCursorPosition(_navigation.savedCursorPosition());
        return platform.setCursorDisabled(false);
    }
}

Vector2i SceneView::windowCenter(const ImGuiWindow& window) const {
    return VantrelEngine::windowCenter(UserInterface::vector(window.Pos), UserInterface::vector(window.Size));
}

MouseFactors SceneView::mouseFactors() const {
    SharedState& state = _editor->state();
    return {state.cameraRotationFactor, state.cameraPanFactor, state.platform->framebufferScale()};
}

} // namespace VantrelEngine
