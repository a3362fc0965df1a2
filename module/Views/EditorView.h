#pragma once

#include <Vantrel/Module/AbstractModule.h>

namespace VantrelEngine {

// A view with its place in the editor.
class EditorView: public AbstractModule {
public:
    explicit EditorView(
        Corrade::PluginManager::AbstractManager& manager, const Corrade::Containers::StringView& plugin);

    void restoreState(const Corrade::Containers::Array<char>& state) override;
    Corrade::Containers::Array<char> saveState(bool isQuitting) override;

    // Makes the UI context current, as the plugin has globals of the UI library of its own, and registers the view. None
    // of the three may be null: aborts with "EditorView::init(): ImGuiContext was nullptr", or EditorData, or
    // VantrelEditor.
    void init(ImGuiContext* imguiContext, EditorData* editorData, VantrelEditor* editor) override;

protected:
    // Not owned. Null, and 0, before init().
    EditorData* _data = nullptr;
    VantrelEditor* _editor = nullptr;
    unsigned _viewIndex = 0;
};

} // namespace VantrelEngine
