#pragma once

#include <Vantrel/Module/InputEvents.h>

#include "Views/SceneView/Camera/CameraMath.h"

namespace VantrelEngine {

class EditorData;
class ViewCamera;
struct SharedState;

// The camera of the view as the user moves it: takes events and frames, and writes where it stands into the camera's
// scene and where it looks into the editor's data. What has to happen to the cursor and to the focus is returned.
class CameraNavigation {
public:
    // A mode that began or ended.
    enum class Change : std::uint8_t { None, FlyBegan, FlyEnded, OrbitBegan, OrbitEnded };

    // The camera at (3, 3, 3), which is also how far it is from what it turns about.
    void reset(EditorData& data, ViewCamera& camera);
    // As it was left.
    void restore(EditorData& data, ViewCamera& camera, const Magnum::DualQuaternion& transformation,
        Magnum::Float orbitDistance, Magnum::Float flySpeed);

    const CameraState& state() const { return _state; }
    NavigationMode mode() const { return _state.mode; }
    // Scene units per second, brought within the bounds. What moves already goes on as it does.
    void setFlySpeed(Magnum::Float speed);
    // Whether it will move without being told to.
    bool isMoving() const { return _state.mode == NavigationMode::Fly; }

    Change mousePress(const MouseEvent& event, bool isHovered);
    Change mouseRelease(const MouseEvent& event);
    // Where the cursor was when flying began.
    const Magnum::Vector2i& savedCursorPosition() const { return _savedCursorPosition; }

    void mouseMove(
        const MouseMoveEvent& event, bool isHovered, const MouseFactors& factors, EditorData& data, ViewCamera& camera);
    void mouseScroll(const MouseScrollEvent& event, bool isHovered, EditorData& data, ViewCamera& camera);
    void keyPress(const KeyEvent& event, bool hasFocus);
    // From above, from the front or from the side, where the key is one of those; see VantrelEngine::showAxisView().
    void showAxisView(const KeyEvent& event, EditorData& data);
    void keyRelease(const KeyEvent& event, bool hasFocus);
    // Ends the mode that is on, whatever is held; releases may still come.
    Change endMode();

    // What is in the middle of the picture: the origins of what is selected, or its meshes, which may be elsewhere.
    enum class Middle : std::uint8_t { Origins, Meshes };
    // The selected objects and all below them into view. False where nothing is selected.
    bool frameSelection(EditorData& data, ViewCamera& camera, Middle middle = Middle::Origins);

    // Each frame, first and last: takes the camera to where it is now; and turns it by how far the cursor got away from
    // the centre, in pixels, while flying.
    void advance(EditorData& data, ViewCamera& camera, Magnum::Double seconds);
    void look(const Magnum::Vector2i& travel, const MouseFactors& factors, EditorData& data);

private:
    // The angles are the editor's: others may have set them meanwhile.
    void read(const EditorData& data, const ViewCamera& camera);
    void write(EditorData& data) const;
    void write(EditorData& data, ViewCamera& camera) const;

    CameraState _state;
    Magnum::Vector2i _savedCursorPosition;
};

} // namespace VantrelEngine
