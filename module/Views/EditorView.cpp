#include "Views/EditorView.h"

#include <cstdlib>
#include <cstring>

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/VantrelEditor.h>

#include "Views/UserInterface.h"

namespace VantrelEngine {

using namespace Corrade;

namespace {

void expectNotNull(const void* pointer, const char* message) {
    if(pointer) return;
    Utility::Error{} << message;
    std::abort();
}

}

EditorView::EditorView(PluginManager::AbstractManager& manager, const Containers::StringView& plugin):
    AbstractModule{manager, plugin} {}

void EditorView::restoreState(const Containers::Array<char>& state) {
    if(state.isEmpty()) return;
    void* pointers[3];
    CORRADE_ASSERT(state.size() == sizeof(pointers),
        "EditorView::restoreState(): not a state of this view:" << state.size() << "bytes", );
    std::memcpy(pointers, state.data(), sizeof(pointers));
    init(static_cast<ImGuiContext*>(pointers[0]), static_cast<EditorData*>(pointers[1]),
        static_cast<VantrelEditor*>(pointers[2]));
}

Containers::Array<char> EditorView::saveState(bool isQuitting) {
    if(isQuitting) return {};
    const void* const pointers[]{ImGui::GetCurrentContext(), _data, _editor};
    Containers::Array<char> state{NoInit, sizeof(pointers)};
    std::memcpy(state.data(), pointers, sizeof(pointers));
    stateSaved();
    return state;
}

void EditorView::init(ImGuiContext* imguiContext, EditorData* editorData, VantrelEditor* editor) {
    Utility::Debug{} << "Initializing View:" << plugin();
    expectNotNull(imguiContext, "EditorView::init(): ImGuiContext was nullptr");
    expectNotNull(editorData, "EditorView::init(): EditorData was nullptr");
    expectNotNull(editor, "EditorView::init(): VantrelEditor was nullptr");

    ImGui::SetCurrentContext(imguiContext);
    _data = editorData;
    _editor = editor;
    _viewIndex = editor->state().views.registerView(name());
}

} // namespace VantrelEngine
