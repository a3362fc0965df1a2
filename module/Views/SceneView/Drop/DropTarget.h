#pragma once

#include <optional>
#include <string>

#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Magnum/Magnum.h>
#include <Vantrel/EngineData/Types.h>

#include "Views/SceneView/Drop/DropMath.h"

struct ImGuiPayload;

namespace Magnum::GL {
class Framebuffer;
}

namespace VantrelEngine {

class ChangeManager;
class EditorData;
class VantrelEditor;
class ViewCamera;
struct SharedState;
struct ViewFrame;

// What of a view drops are taken with; everything outlives the call.
struct DropInput {
    EditorData& data;
    VantrelEditor& editor;
    // As it was drawn last, with the objects' ids and their depth.
    Magnum::GL::Framebuffer& framebuffer;
    const ViewFrame& frame;
    const ViewCamera& camera;
    // Scene units, to what the camera turns about.
    Magnum::Float orbitDistance;
};

// What is dropped on the view. A file is imported; a material, a texture or the file of an image goes to the object under
// the mouse, and is seen there while it is still held: as a trial of the undo log, which is taken back when the mouse
// leaves the object, and kept when the button is released.
class DropTarget {
public:
    // Once in each frame, in the window of the view, after its picture. Writes the shared state's ViewPointer.
    void update(const DropInput& input);
    // Instead of that where nothing of the view is seen.
    void leave(SharedState& state);

private:
    struct Hovered {
        Id object;
        // The text of the payload.
        std::string text;
        bool isDelivered;
    };

    bool open() const;
    void noticeEndedTrial(const ChangeManager& changes);
    void acceptFile(const DropInput& input);
    void acceptMaterial(const DropInput& input);
    void acceptTexture(const DropInput& input);
    void acceptImage(const DropInput& input);
    std::optional<Hovered> accept(const char* type, const DropInput& input);
    std::optional<std::string> textOf(const ImGuiPayload& payload);
    Corrade::Containers::StringView prepareImage(const std::string& path, const DropInput& input);
    void assign(const Hovered& hovered, Corrade::Containers::StringView texture, const DropInput& input);
    void finish(const Hovered& hovered, bool isAssigned, ChangeManager& changes);
    bool beginTrial(ChangeManager& changes);
    void takeBack(ChangeManager& changes);
    void drop(ChangeManager& changes);
    void keep(ChangeManager& changes);
    void forgetTrial();
    void complain(const std::string& line);

    // A change is seen and not kept yet, and what of.
    bool _dropPreviewActive = false;
    Id _dropTarget = 0;
    // The file that was made a texture during this drag, and the texture: empty where that failed.
    std::string _dropImagePath;
    Corrade::Containers::String _dropTexture;
    // The trial that is under way is this one's; the texture is part of it; the last change before the preview.
    bool _isOnTrial = false;
    bool _isTextureOnTrial = false;
    std::int32_t _lastBefore = -1;
    // The object below the mouse that nothing could be assigned to, as its components are malformed: it is not asked in
    // each frame. None for the root.
    Id _refusing = 0;
    // Something was said of what is dragged; once is enough.
    bool _hasComplained = false;
};

} // namespace VantrelEngine
