#include "Support/ViewHost.h"

#include <algorithm>
#include <cstdlib>

#include <Corrade/Containers/StridedArrayView.h>
#include <Corrade/PluginManager/Manager.hpp>
#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/Math/Color.h>
#include <Magnum/PixelFormat.h>
#include <imgui.h>

#include "Renderer/DefaultAssets/DefaultAssets.h"

namespace VantrelTest {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;

namespace {

ImGuiContext* createUserInterface(const Vector2i& size, const ViewHost::Reached& reached) {
    if(reached) reached("context");
    ImGuiContext* const context = ImGui::CreateContext();
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr;
    io.DisplaySize = {Float(size.x()), Float(size.y())};
    unsigned char* pixels;
    int width, height;
    io.Fonts->GetTexDataAsRGBA32(&pixels, &width, &height);
    return context;
}

}

ViewHost::ViewHost(const Vector2i& size, const Reached& reached):
    _imgui{createUserInterface(size, reached)}, _session{std::make_unique<ProjectSession>()},
    _manager{VIEW_PLUGIN_DIRECTORY} {
    _session->data().resources().addAsset("default", std::make_unique<DefaultAssets>());
    state.platform = &platform;
    if(reached) reached("session");
    CORRADE_ASSERT(_manager.load("SceneView") & PluginManager::LoadState::Loaded, "ViewHost: no view", );
    _view = instantiate();
    _view->init(_imgui, &session.data(), &session.editor());
    resize(size);
    if(reached) reached("plugin");
}

ViewHost::~ViewHost() {
    _view = {};
    ImGui::DestroyContext(_imgui);
}

Containers::Pointer<AbstractModule> ViewHost::instantiate() { return _manager.instantiate("SceneView"); }

void ViewHost::reloadView() {
    const Containers::Array<char> saved = _view->saveState(false);
    _view = {};
    _manager.unload("SceneView");
    CORRADE_ASSERT(_manager.load("SceneView") & PluginManager::LoadState::Loaded, "ViewHost: no view", );
    _view = instantiate();
    _view->restoreState(saved);
}

void ViewHost::remakeView() {
    const Containers::Array<char> saved = _view->saveState(false);
    _view = {};
    _view = instantiate();
    _view->restoreState(saved);
}

void ViewHost::resize(const Vector2i& size) {
    ImGui::GetIO().DisplaySize = {Float(size.x()), Float(size.y())};
    if(state.views.viewCount()) state.views.pane(0) = Range2D{{}, Vector2{size}};
}

void ViewHost::frame(Double seconds) {
    platform.time += seconds;
    session.update();
    state.wantsFrame = false;
    ImGui::GetIO().DeltaTime = std::max(Float(seconds), 1.0e-3f);
    ImGui::NewFrame();
    if(drawOthers) drawOthers();
    _view->draw();
    ImGui::Render();
    _view->frameShown();
}

Image2D ViewHost::read(UnsignedInt attachment) {
    GL::Framebuffer& framebuffer = *state.sceneViewFramebuffer;
    framebuffer.mapForRead(GL::Framebuffer::ColorAttachment{attachment});
    return framebuffer.read(framebuffer.viewport(), Image2D{PixelFormat::RGBA8Unorm});
}

Image2D ViewHost::picture() { return read(0); }

Image2D ViewHost::objectIds() { return read(1); }

Id ViewHost::objectAt(const Vector2i& pixel) {
    const Color4ub color = pixelOf(objectIds(), pixel);
    return Id(color.r() | color.g() << 8);
}

Color4ub pixelOf(const Image2D& image, const Vector2i& pixel) { return image.pixels<Color4ub>()[pixel.y()][pixel.x()]; }

} // namespace VantrelTest
