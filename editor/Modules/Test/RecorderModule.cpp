// A view of nothing, that tells on the debug output what it hears, and with RECORDER_COUNTS_FRAMES in the environment how
// often it was drawn. With RECORDER_VERSION another version of the plugin interface.

#include <cstdlib>
#include <cstring>
#include <new>

#include <Corrade/Containers/StringView.h>
#include <Corrade/PluginManager/AbstractManager.h>
#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/Module/AbstractModule.h>
#include <imgui.h>

#ifndef RECORDER_VERSION
#define RECORDER_VERSION CORRADE_PLUGIN_VERSION
#endif

using namespace Corrade;
using namespace Magnum;

namespace VantrelEngine {

namespace {

struct Pointers {
    ImGuiContext* context;
    EditorData* data;
    VantrelEditor* editor;
};

class Recorder final: public AbstractModule {
public:
    using AbstractModule::AbstractModule;
    ~Recorder() override {
        if(std::getenv("RECORDER_COUNTS_FRAMES")) Utility::Debug{} << "recorder: drew" << _frameCount;
        Utility::Debug{} << "recorder: deleted";
    }

    void load() override { Utility::Debug{} << "recorder: load"; }

    void restoreState(const Containers::Array<char>& state) override {
        if(state.size() != sizeof(Pointers)) return;
        Pointers restored;
        std::memcpy(&restored, state.data(), sizeof restored);
        init(restored.context, restored.data, restored.editor);
    }

    Containers::Array<char> saveState(bool isQuitting) override {
        if(isQuitting) return {};
        Containers::Array<char> state{ValueInit, sizeof(Pointers)};
        std::memcpy(state.data(), &_pointers, sizeof _pointers);
        stateSaved();
        return state;
    }

    bool takesInput() override { return true; }
    Containers::StringView name() const override {
        return {"Scene View", 10, Containers::StringViewFlag::Global | Containers::StringViewFlag::NullTerminated};
    }

    void init(ImGuiContext* context, EditorData* data, VantrelEditor* editor) override {
        Utility::Debug{} << "recorder: init" << (context && data && editor);
        _pointers = {context, data, editor};
        if(!context || !data || !editor) return;
        ImGui::SetCurrentContext(context);
        _view = editor->state().views.registerView(name());
    }

    void stateSaved() override { Utility::Debug{} << "recorder: saved"; }

    void draw() override {
        ++_frameCount;
        EditorState& views = _pointers.editor->state().views;
        if(!views.isViewOpen(_view)) return;
        if(const std::optional<Range2D>& pane = views.pane(_view)) {
            ImGui::SetNextWindowPos({pane->min().x(), pane->min().y()});
            ImGui::SetNextWindowSize({pane->sizeX(), pane->sizeY()});
        }
        ImGui::Begin("Scene View", &views.isViewOpen(_view),
            ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoResize | ImGuiWindowFlags_NoCollapse |
                ImGuiWindowFlags_NoBringToFrontOnFocus);
        drawSurface();
        ImGui::End();
    }

    void frameShown() override {}

    void mouseMoveEvent(const MouseMoveEvent& event) override {
        Utility::Debug{} << "recorder: move" << event.relativePosition.x() << event.relativePosition.y()
                         << event.modifiers;
    }
    void mousePressEvent(const MouseEvent& event) override { tell("press", event); }
    void mouseReleaseEvent(const MouseEvent& event) override { tell("release", event); }
    void mouseScrollEvent(const MouseScrollEvent& event) override {
        Utility::Debug{} << "recorder: scroll" << event.offset.y() << event.modifiers;
    }
    void keyPressEvent(const KeyEvent& event) override { tell("key", event); }
    void keyReleaseEvent(const KeyEvent& event) override { tell("keyup", event); }
    void focusLost() override { Utility::Debug{} << "recorder: focus lost"; }

private:
    void drawSurface() {
        const ImVec2 place = ImGui::GetCursorScreenPos();
        const ImVec2 size = ImGui::GetContentRegionAvail();
        ImGui::GetWindowDrawList()->AddRectFilled(
            place, {place.x + size.x, place.y + size.y}, IM_COL32(60, 90, 130, 255));
        ImGui::Dummy(size);
        if(!ImGui::BeginDragDropTarget()) return;
        if(const ImGuiPayload* const payload = ImGui::AcceptDragDropPayload("DND_ASSET_CELL"))
            Utility::Debug{} << "recorder: dropped" << static_cast<const char*>(payload->Data);
        ImGui::EndDragDropTarget();
    }

    void tell(const char* what, const MouseEvent& event) {
        Utility::Debug{} << "recorder:" << what << int(event.button) << event.position.x() << event.position.y()
                         << event.modifiers;
    }
    void tell(const char* what, const KeyEvent& event) {
        Utility::Debug{} << "recorder:" << what << event.key << event.modifiers << event.isRepeated;
    }

    unsigned _frameCount = 0;
    Pointers _pointers{};
    unsigned _view = 0;
};

} // namespace

} // namespace VantrelEngine

extern "C" {

CORRADE_PLUGIN_EXPORT int pluginVersion();
CORRADE_PLUGIN_EXPORT const char* pluginInterface();
CORRADE_PLUGIN_EXPORT void pluginInitializer();
CORRADE_PLUGIN_EXPORT void pluginFinalizer();
CORRADE_PLUGIN_EXPORT void* pluginInstancer(
    PluginManager::AbstractManager& manager, const Containers::StringView& plugin);

int pluginVersion() { return RECORDER_VERSION; }

const char* pluginInterface() { return VantrelEngine::AbstractModule::pluginInterface().data(); }

void pluginInitializer() { PluginManager::AbstractPlugin::initialize(); }

void pluginFinalizer() { PluginManager::AbstractPlugin::finalize(); }

void* pluginInstancer(PluginManager::AbstractManager& manager, const Containers::StringView& plugin) {
    return new(std::nothrow) VantrelEngine::Recorder{manager, plugin};
}
}
