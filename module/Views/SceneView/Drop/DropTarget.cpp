#include "Views/SceneView/Drop/DropTarget.h"

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Debug.h>
#include <Corrade/Utility/Path.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/EditorUtilities/LoadFile.h>
#include <Vantrel/EditorUtilities/PayloadTypes.h>

#include "ChangeManager.h"
#include "Views/SceneView/DepthReadback.h"
#include "Views/SceneView/Drop/Assignment.h"
#include "Views/SceneView/Drop/Ghost.h"
#include "Views/SceneView/ObjectIdReadback.h"
#include "Views/SceneView/ViewCamera.h"
#include "Views/SceneView/ViewFrame.h"
#include "Views/UserInterface.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

Range2Di pixelUnderMouse(const ViewFrame& frame) {
    return pixelBelow(Vector2i{UserInterface::vector(ImGui::GetIO().MousePos)}, frame);
}

// 0 for nobody.
Id objectUnderMouse(const DropInput& input) {
    const std::vector<Id> objects =
        readObjectIds(input.framebuffer, pixelUnderMouse(input.frame), input.data.scene().main());
    return objects.empty() ? RootObject : objects.front();
}

Containers::StringView nameOf(Id object, const DropInput& input) {
    return input.data.scene().main().objectIds.nameOf(object);
}

ChangeManager& changesOf(const DropInput& input) { return *input.editor.state().changeManager; }

DropCamera cameraOf(const DropInput& input) {
    const ViewManager& views = input.camera.views();
    const Id view = input.camera.view();
    return {views.viewTransform(view).inverted().toMatrix(), input.camera.views().projectionMatrix(view),
        input.camera.far(), input.orbitDistance};
}

ViewPointer pointerOf(const DropInput& input, const Vector2& clip) {
    const Id view = input.camera.view();
    const Ray ray = rayThrough(cameraOf(input), clip);
    ViewPointer pointer;
    pointer.view = input.camera.views().viewTransform(view).toMatrix();
    pointer.projection = input.camera.views().projectionMatrix(view);
    pointer.rectangle = Range2D::fromSize(Vector2{input.frame.origin}, Vector2{input.frame.size});
    pointer.rayOrigin = ray.origin;
    pointer.rayDirection = ray.direction;
    return pointer;
}

// A file that was written anew when it was loaded has other bytes.
Containers::String textureOf(const std::string& path, const DropInput& input) {
    Containers::String texture = textureOfImage(path, input.editor);
    if(!texture.isEmpty()) return texture;
    return input.data.project().resourceByName("textures", Utility::Path::split(path).second());
}

bool isFileDragged() {
    const ImGuiPayload* const payload = ImGui::GetDragDropPayload();
    return payload && payload->IsDataType(FilePayloadType);
}

}

void DropTarget::update(const DropInput& input) {
    ChangeManager& changes = changesOf(input);
    SharedState& state = input.editor.state();
    noticeEndedTrial(changes);
    const Range2Di pixel = pixelUnderMouse(input.frame);
    const Vector2 clip = clipPosition(pixel.min(), input.frame.framebufferSize);
    state.viewPointer = pointerOf(input, clip);
    if(!ImGui::GetDragDropPayload()) {
        _hasComplained = false;
        _refusing = RootObject;
    }
    if(state.isLocked || !open()) return leave(state);

    if(isFileDragged()) state.viewPointer.place = dropPlace(cameraOf(input), clip, readDepth(input.framebuffer, pixel));
    acceptFile(input);
    acceptMaterial(input);
    acceptTexture(input);
    acceptImage(input);
    ImGui::EndDragDropTarget();
    // What is seen of it comes with the next frame.
    state.wantsFrame = true;
}

bool DropTarget::open() const {
    const ImGuiPayload* const payload = ImGui::GetDragDropPayload();
    if(!payload || payload->IsDelivery()) return false;
    const ImGuiWindow& window = *ImGui::GetCurrentWindow();
    const Range2D place =
        dropRectangle({UserInterface::vector(window.InnerRect.Min), UserInterface::vector(window.InnerRect.Max)});
    return ImGui::BeginDragDropTargetCustom(
        {UserInterface::vector(place.min()), UserInterface::vector(place.max())}, window.ID);
}

// By whatever else the user did: nothing of it is left to be taken back.
void DropTarget::noticeEndedTrial(const ChangeManager& changes) {
    if(!_isOnTrial || changes.trial() == Trial::Preview) return;
    forgetTrial();
}

void DropTarget::leave(SharedState& state) {
    noticeEndedTrial(*state.changeManager);
    drop(*state.changeManager);
    _dropImagePath.clear();
    state.viewPointer.place = {};
}

void DropTarget::acceptFile(const DropInput& input) {
    const ImGuiPayload* const payload =
        ImGui::AcceptDragDropPayload(FilePayloadType, ImGuiDragDropFlags_AcceptPeekOnly);
    const std::optional<std::string> path = payload ? textOf(*payload) : std::optional<std::string>{};
    if(!path) return;
    ViewPointer& pointer = input.editor.state().viewPointer;
    if(isModelPath(*path))
        drawGhost(ghostBox(importedBounds(*path, input.editor), *pointer.place), pointer);
    else
        pointer.place = {};
    if(!payload->IsDelivery()) return;
    Utility::Debug{} << "Dropped file" << path->data();
    loadFile(*path, input.editor, LoadMode::Import, false);
}

void DropTarget::acceptMaterial(const DropInput& input) {
    const std::optional<Hovered> hovered = accept(payloadTypeOf("materials"), input);
    if(!hovered) return;
    ChangeManager& changes = changesOf(input);
    const Containers::StringView object = nameOf(hovered->object, input);
    if(!input.data.project().member("materials", hovered->text))
        return complain("There is no material \"" + hovered->text + "\"");
    if(!hasComponent(input.data.project(), object, "mesh") || !beginTrial(changes)) return;
    finish(*hovered, assignMaterial(input.data.project(), changes, object, hovered->text), changes);
}

void DropTarget::acceptTexture(const DropInput& input) {
    const std::optional<Hovered> hovered = accept(payloadTypeOf("textures"), input);
    if(!hovered) return;
    if(!input.data.project().member("textures", hovered->text))
        return complain("There is no texture \"" + hovered->text + "\"");
    assign(*hovered, hovered->text, input);
}

void DropTarget::acceptImage(const DropInput& input) {
    const std::optional<Hovered> hovered = accept(FilePayloadType, input);
    if(!hovered || !isImagePath(hovered->text)) return;
    // What nobody takes need not be loaded.
    if(texturePlaces(input.data, nameOf(hovered->object, input)).empty()) return;
    const Containers::StringView texture = prepareImage(hovered->text, input);
    if(!texture.isEmpty()) assign(*hovered, texture, input);
}

// A target that is new, where the mouse has got to one, with what is dragged.
std::optional<DropTarget::Hovered> DropTarget::accept(const char* type, const DropInput& input) {
    const ImGuiPayload* const payload = ImGui::AcceptDragDropPayload(type, ImGuiDragDropFlags_AcceptPeekOnly);
    if(!payload) return {};
    ChangeManager& changes = changesOf(input);
    const Id object = objectUnderMouse(input);
    if(_dropPreviewActive && object == _dropTarget) {
        if(payload->IsDelivery()) keep(changes);
        return {};
    }
    if(_dropPreviewActive) takeBack(changes);
    if(object == _refusing) return {};
    _refusing = RootObject;
    if(object == RootObject) return {};
    _dropTarget = object;
    std::optional<std::string> text = textOf(*payload);
    if(!text) return {};
    return Hovered{object, std::move(*text), payload->IsDelivery()};
}

std::optional<std::string> DropTarget::textOf(const ImGuiPayload& payload) {
    std::string reason;
    std::optional<std::string> text =
        payloadText({static_cast<const char*>(payload.Data), std::size_t(payload.DataSize)}, reason);
    if(!text) complain("What was dragged here cannot be used: " + reason);
    return text;
}

// The id of the texture; empty where there is none. A file that cannot be loaded is tried once a drag.
Containers::StringView DropTarget::prepareImage(const std::string& path, const DropInput& input) {
    if(_dropImagePath == path) return _dropTexture;
    ChangeManager& changes = changesOf(input);
    bool isLoaded = isImageLoaded(path, input.editor);
    if(!isLoaded && beginTrial(changes)) {
        isLoaded = _isTextureOnTrial = loadImage(path, input.editor, false);
        if(!isLoaded) drop(changes);
    }
    _dropTexture = isLoaded ? textureOf(path, input) : Containers::String{};
    _dropImagePath = path;
    return _dropTexture;
}

void DropTarget::assign(const Hovered& hovered, Containers::StringView texture, const DropInput& input) {
    ChangeManager& changes = changesOf(input);
    const Containers::StringView object = nameOf(hovered.object, input);
    if(texturePlaces(input.data, object).empty() || !beginTrial(changes)) return;
    finish(hovered, assignTexture(input.data, changes, object, texture), changes);
}

void DropTarget::finish(const Hovered& hovered, bool isAssigned, ChangeManager& changes) {
    _dropPreviewActive = isAssigned;
    if(!isAssigned) {
        _refusing = hovered.object;
        return takeBack(changes);
    }
    // Over an object that the mouse got to only with the release of the button.
    if(hovered.isDelivered) keep(changes);
}

// False where something else is on trial.
bool DropTarget::beginTrial(ChangeManager& changes) {
    if(!_isOnTrial) {
        if(changes.trial() != Trial::None || changes.group() >= 0) return false;
        changes.beginTrial(Trial::Preview);
        _isOnTrial = true;
    }
    _lastBefore = changes.lastChange();
    return true;
}

// An image that was loaded for it stays until the mouse leaves the view: another object may want it.
void DropTarget::takeBack(ChangeManager& changes) {
    if(!_isTextureOnTrial) return drop(changes);
    _dropPreviewActive = false;
    changes.rewindTrial(_lastBefore);
}

void DropTarget::drop(ChangeManager& changes) {
    if(_isOnTrial) changes.dropTrial();
    forgetTrial();
}

void DropTarget::keep(ChangeManager& changes) {
    changes.keepTrial();
    forgetTrial();
}

void DropTarget::forgetTrial() {
    if(_isTextureOnTrial) _dropImagePath.clear();
    _isOnTrial = _isTextureOnTrial = _dropPreviewActive = false;
}

void DropTarget::complain(const std::string& line) {
    if(!_hasComplained) Utility::Error{} << line.data();
    _hasComplained = true;
}

} // namespace VantrelEngine
