#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

#include "Application/InterfaceInput.h"

struct ImGuiContext;

namespace VantrelEngine {

// The UI library's context with its style, fonts and drawing, for one window. A GL context is current while it lives.
class UserInterface {
public:
    // Icons come from this font where it is not empty.
    explicit UserInterface(std::vector<unsigned char> iconFont);
    ~UserInterface();
    UserInterface(const UserInterface&) = delete;
    UserInterface& operator=(const UserInterface&) = delete;

    ImGuiContext* context() { return _context; }
    InterfaceInput& input() { return *_input; }

    // Where texts are copied to and taken from; without, from this process alone.
    void setClipboard(std::function<std::string()> read, std::function<void(const std::string&)> write);

    // Where windows are docked. Set before the first frame; empty where the UI library does not dock.
    void setDocking(const std::string& text);
    std::string docking() const;

    // Begins a frame of this size in window points, with the seconds since the last one. Fonts and style follow the
    // scales.
    void beginFrame(const Magnum::Vector2& size, const Magnum::Vector2& framebufferScale, Magnum::Float fontScale,
        Magnum::Double delta);
    // Ends the frame and draws it to the framebuffer that is bound, of which the GL library's cache knows nothing then.
    void endFrame();

private:
    void applyScales(Magnum::Float fontScale, Magnum::Float framebufferScale);
    static const char* readClipboard(UserInterface& self);

    // The fonts of the context read it.
    std::vector<unsigned char> _iconFont;
    ImGuiContext* _context;
    std::optional<InterfaceInput> _input;
    Magnum::Float _fontScale = 0.0f;
    Magnum::Float _framebufferScale = 0.0f;
    std::function<std::string()> _readClipboard;
    std::function<void(const std::string&)> _writeClipboard;
    // What was handed out last.
    std::string _clipboardText;
};

} // namespace VantrelEngine
