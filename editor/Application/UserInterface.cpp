#include "Application/UserInterface.h"

#include <Corrade/Utility/Assert.h>
#include <Magnum/GL/Context.h>
#include <imgui.h>
#include <imgui_impl_opengl3.h>

#include "Style/Fonts.h"
#include "Style/Style.h"

namespace VantrelEngine {

using namespace Magnum;

UserInterface::UserInterface(std::vector<unsigned char> iconFont):
    _iconFont{std::move(iconFont)}, _context{ImGui::CreateContext()} {
    ImGui::SetCurrentContext(_context);
    ImGuiIO& io = ImGui::GetIO();
    io.IniFilename = nullptr;
    io.ConfigInputTextCursorBlink = false;
    // A number is typed after a click, and dragged otherwise.
    io.ConfigDragClickToInputText = true;
    io.ConfigWindowsMoveFromTitleBarOnly = true;
#ifdef IMGUI_HAS_DOCK
    io.ConfigFlags |= ImGuiConfigFlags_DockingEnable;
#endif
    _input.emplace();
    const bool works = ImGui_ImplOpenGL3_Init("#version 330 core");
    CORRADE_ASSERT(works, "UserInterface: the GL functions cannot be loaded", );
}

UserInterface::~UserInterface() {
    ImGui::SetCurrentContext(_context);
    ImGui_ImplOpenGL3_Shutdown();
    ImGui::DestroyContext(_context);
}

void UserInterface::setClipboard(std::function<std::string()> read, std::function<void(const std::string&)> write) {
    _readClipboard = std::move(read);
    _writeClipboard = std::move(write);
#if IMGUI_VERSION_NUM >= 19110
    ImGuiPlatformIO& io = ImGui::GetPlatformIO();
    io.Platform_ClipboardUserData = this;
    io.Platform_GetClipboardTextFn = [](ImGuiContext*) {
        return readClipboard(*static_cast<UserInterface*>(ImGui::GetPlatformIO().Platform_ClipboardUserData));
    };
    io.Platform_SetClipboardTextFn = [](ImGuiContext*, const char* text) {
        static_cast<UserInterface*>(ImGui::GetPlatformIO().Platform_ClipboardUserData)->_writeClipboard(text);
    };
#else
    ImGuiIO& io = ImGui::GetIO();
    io.ClipboardUserData = this;
    io.GetClipboardTextFn = [](void* self) { return readClipboard(*static_cast<UserInterface*>(self)); };
    io.SetClipboardTextFn = [](void* self, const char* text) {
        static_cast<UserInterface*>(self)->_writeClipboard(text);
    };
#endif
}

const char* UserInterface::readClipboard(UserInterface& self) {
    self._clipboardText = self._readClipboard();
    return self._clipboardText.data();
}

#ifdef IMGUI_HAS_DOCK

void UserInterface::setDocking(const std::string& text) {
    ImGui::SetCurrentContext(_context);
    ImGui::LoadIniSettingsFromMemory(text.data(), text.size());
}

std::string UserInterface::docking() const {
    ImGui::SetCurrentContext(_context);
    std::size_t size = 0;
    const char* const text = ImGui::SaveIniSettingsToMemory(&size);
    return {text, size};
}

#else

void UserInterface::setDocking(const std::string&) {}

std::string UserInterface::docking() const { return {}; }

#endif

void UserInterface::beginFrame(const Vector2& size, const Vector2& framebufferScale, Float fontScale, Double delta) {
    ImGui::SetCurrentContext(_context);
    applyScales(fontScale, framebufferScale.y());
    _input->setDisplay(size, framebufferScale);
    _input->beginFrame(delta);
    ImGui_ImplOpenGL3_NewFrame();
    ImGui::NewFrame();
    _input->frameBegun();
}

void UserInterface::applyScales(Float fontScale, Float framebufferScale) {
    if(fontScale != _fontScale) applyStyle(fontScale);
    if(fontScale != _fontScale || framebufferScale != _framebufferScale) {
#if IMGUI_VERSION_NUM < 19200
        ImGui_ImplOpenGL3_DestroyFontsTexture();
#endif
        loadFonts(fontScale, framebufferScale, _iconFont);
#if IMGUI_VERSION_NUM < 19200
        ImGui_ImplOpenGL3_CreateFontsTexture();
#endif
        GL::Context::current().resetState();
    }
    _fontScale = fontScale;
    _framebufferScale = framebufferScale;
}

void UserInterface::endFrame() {
    ImGui::Render();
    ImGui_ImplOpenGL3_RenderDrawData(ImGui::GetDrawData());
    GL::Context::current().resetState();
}

} // namespace VantrelEngine
