#pragma once

#include <optional>

#include "Implementation/Drag.h"
#include "Implementation/Handle.h"
#include "Implementation/Layout.h"

struct ImDrawList;

namespace ImGuizmo::Implementation {

// What one call of Manipulate() is given.
struct Request {
    Camera camera;
    OPERATION operation;
    MODE mode;
    Matrix4d matrix;
    // Null or as many as the operation needs
    const float* snap;
};

// The state between the calls of the library, and what a call does with it.
class Gizmo {
public:
    void beginFrame();
    void setList(ImDrawList* list);
    void setRect(const Rect& rect) { _rect = rect; }
    void setSize(double clipSpaceSize) { _clipSpaceSize = clipSpaceSize; }
    void allowFlip(bool isAllowed) { _isFlipAllowed = isAllowed; }
    void enable(bool isEnabled);
    void setId(int id) { _id = id; }

    const Rect& rect() const { return _rect; }
    // Whether beginFrame() was called in the frame that is under way.
    bool hasBegunFrame() const;
    bool isUsing() const { return _session && _session->id == _id; }
    bool isUsingAny() const { return bool(_session); }
    // The handle that is dragged, or lies under the mouse as it is now.
    Handle handleUnderMouse() const;

    // Draws, and returns what is to be done with the matrix, if anything.
    std::optional<Edit> manipulate(const Request& request);

private:
    struct Session {
        Drag drag;
        // Where the mouse is, and what was made of it
        Motion followed, taken;
        int id;
        int lastFrame;
    };
    struct Shown {
        Layout layout;
        OPERATION operation;
    };

    bool isReachable() const;
    std::optional<Shown> shownAt(const Request& request, const Matrix4d& matrix) const;
    std::optional<Session> begun(const Request& request) const;
    std::optional<Edit> continued(const Request& request);
    void draw(const Request& request, Handle hovered) const;

    ImDrawList* _list = nullptr;
    bool _isOfNoWindow = false;
    Rect _rect;
    double _clipSpaceSize = 0.1;
    bool _isFlipAllowed = true, _isEnabled = true;
    int _id = -1;
    int _frame = -1;
    std::optional<Session> _session;
    // Since the beginning of the frame
    std::optional<Shown> _shown;
};

}
