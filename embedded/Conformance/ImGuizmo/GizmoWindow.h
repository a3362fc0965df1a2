#pragma once

#include <cmath>
#include <functional>
#include <optional>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Math/Vector2.h>
#include <imgui.h>
// The original needs the other header before.
#include <ImGuizmo.h>

namespace GizmoTest {

// Of the current context: a display that nobody sees.
void prepareContext(const Magnum::Vector2& size);

// A window that fills a display nobody sees, with one gizmo in it. Frames are made one by one; what the mouse does is
// told before each.
class GizmoWindow {
public:
    struct Frame {
        bool isChanged = false;
        // Of the last frame; identity where nothing changed.
        Magnum::Matrix4 delta;
        bool isUsing = false;
        bool isOver = false;
    };

    explicit GizmoWindow(const Magnum::Vector2& size = {1600.0f, 900.0f});
    ~GizmoWindow();
    GizmoWindow(const GizmoWindow&) = delete;
    GizmoWindow& operator=(const GizmoWindow&) = delete;

    ImGuiContext* context() const { return _context; }

    // From the upper left corner, to the nearest pixel
    void moveTo(const Magnum::Vector2& position);
    void press(int button = 0) { setButton(button, true); }
    void release(int button = 0) { setButton(button, false); }

    // One frame, in which the matrix is edited.
    Frame frame();

    // Where a point in the world is seen.
    Magnum::Vector2 project(const Magnum::Vector3& point) const;
    // How long one unit across the line of sight is at the gizmo.
    Magnum::Float pixelsPerUnit() const;
    // Where a point is seen that lies in a direction from the gizmo, as far as so many pixels across the line of sight.
    Magnum::Vector2 pixelAt(const Magnum::Vector3& direction, Magnum::Float pixels) const;
    // Three frames: the mouse comes, rests and presses. Returns whether it has grabbed something.
    bool grab(const Magnum::Vector2& position);
    // Grabs, goes straight on for some frames, and lets go in one that does not move any more. Returns the product of
    // the deltas. A test fails where nothing was grabbed.
    Magnum::Matrix4 drag(const Magnum::Vector2& from, const Magnum::Vector2& to, int frames = 4);

    Magnum::Matrix4 view, projection, matrix;
    ImGuizmo::OPERATION operation = ImGuizmo::TRANSLATE;
    ImGuizmo::MODE mode = ImGuizmo::WORLD;
    std::optional<Magnum::Vector3> snap;
    // Runs in the window before the gizmo.
    std::function<void()> content;
    // A window that lies upon it.
    bool isCovered = false;
    bool asksForDelta = true;
    bool isShown = true;
    // Instead of the window's own list, with no window there
    bool isBehindAllWindows = false;
    // The picture, and the window from the upper left corner
    Magnum::Range2D rect;
    Magnum::Vector2 windowSize;
    // What the gizmo has drawn in the last frame, and clip rectangles that it has left on the list
    int vertices = 0, clipRectangles = 0;

    // Whether one of them is this close.
    bool isDrawnAt(const Magnum::Vector2& pixel, Magnum::Float distance) const;
    // Both coordinates of each
    std::vector<float> lastVertices() const;

private:
    void placeMouse(const Magnum::Vector2& position);
    void setButton(int button, bool isDown);
    void manipulate(Frame& frame);

    void showWindow(Frame& frame);

    ImGuiContext* _context;
    Magnum::Vector2 _size;
    const ImDrawList* _list = nullptr;
};

} // namespace GizmoTest
