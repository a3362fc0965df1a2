#pragma once

#include <functional>
#include <memory>
#include <string>

#include <Corrade/Containers/Pointer.h>
#include <Corrade/PluginManager/Manager.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Vector2.h>
#include <Vantrel/Module/AbstractModule.h>
#include <Vantrel/Module/Platform.h>

#include "Data/ProjectSession.h"
#include "Support/HeadlessContext.h"

namespace VantrelTest {

// Does what it is told, and remembers what it was asked for.
struct ScriptedPlatform final: VantrelEngine::Platform {
    Magnum::Double now() override {
        const Magnum::Double result = time;
        time += timePerCall;
        return result;
    }
    Magnum::Vector2 framebufferScale() override { return scale; }
    Magnum::Vector2d cursorPosition() override { return cursor; }
    void setCursorPosition(const Magnum::Vector2i& position) override {
        cursor = Magnum::Vector2d{position};
        log += "move ";
    }
    void setCursorDisabled(bool disabled) override {
        isCursorDisabled = disabled;
        log += disabled ? "disable " : "enable ";
    }

    Magnum::Double time = 100.0;
    // Whatever is done takes this long, from one look at the clock to the next.
    Magnum::Double timePerCall = 0.0;
    Magnum::Vector2 scale{1.0f};
    Magnum::Vector2d cursor;
    bool isCursorDisabled = false;
    std::string log;
};

// A host without a window: a GL context, a UI without a renderer, a project, and the scene view out of its plugin, which
// fills a window of the given size in points.
class ViewHost {
public:
    // Is told the stages of the construction as they are reached: "context", "session", "plugin".
    using Reached = std::function<void(const char* stage)>;

    explicit ViewHost(const Magnum::Vector2i& size = {320, 240}, const Reached& reached = {});
    ~ViewHost();

    VantrelEngine::AbstractModule& view() { return *_view; }
    ImGuiContext* imguiContext() { return _imgui; }
    // Another instance in its place, as after a hot reload.
    void reloadView();
    // The same without loading the plugin again.
    void remakeView();
    // Nothing in its place.
    void destroyView() { _view = {}; }
    // One that is not initialised yet.
    Corrade::Containers::Pointer<VantrelEngine::AbstractModule> instantiate();

    void resize(const Magnum::Vector2i& size);
    // Compiles what changed and draws a frame, after so many seconds.
    void frame(Magnum::Double seconds = 1.0 / 64.0);

    // Of the last frame: RGBA, 8 bits each, rows upwards.
    Magnum::Image2D picture();
    Magnum::Image2D objectIds();
    // The object at a pixel of the last frame, from the bottom left.
    VantrelEngine::Id objectAt(const Magnum::Vector2i& pixel);

    ScriptedPlatform platform;
    // What other windows do in a frame, before the view is drawn.
    std::function<void()> drawOthers;

private:
    Magnum::Image2D read(Magnum::UnsignedInt attachment);

    HeadlessContext _context;
    ImGuiContext* _imgui;
    std::unique_ptr<VantrelEngine::ProjectSession> _session;
    Corrade::PluginManager::Manager<VantrelEngine::AbstractModule> _manager;
    Corrade::Containers::Pointer<VantrelEngine::AbstractModule> _view;

public:
    VantrelEngine::ProjectSession& session = *_session;
    VantrelEngine::SharedState& state = _session->editor().state();
};

// Red, green, blue, alpha of a pixel.
Magnum::Math::Color4<Magnum::UnsignedByte> pixelOf(const Magnum::Image2D& image, const Magnum::Vector2i& pixel);

} // namespace VantrelTest
