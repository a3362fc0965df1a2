#pragma once

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/PluginManager/AbstractPlugin.h>
#include <Corrade/Utility/VisibilityMacros.h>

#include <Vantrel/Module/InputEvents.h>

struct ImGuiContext;

namespace VantrelEngine {

class EditorData;
class VantrelEditor;

// What a module is built against: its library gives this text, and is refused where the editor expects another one.
constexpr char ModuleInterface[] = "org.vantrel.editor.AbstractModule/1.1";

// A view of the editor that comes in a library of its own.
//
// The host calls init() or restoreState() before anything else, then draw() once in each frame; input events come between
// frames. All of it on one thread, with the GL context current. For a hot reload the host calls saveState() on the old
// instance, destroys it, loads the library again, and hands the block to restoreState() of the new instance. The order of
// the virtual functions is part of the interface.
class CORRADE_VISIBILITY_EXPORT AbstractModule: public Corrade::PluginManager::AbstractPlugin {
public:
    static Corrade::Containers::StringView pluginInterface();
    // Modules lie beside the editor and have no metadata files.
    static Corrade::Containers::Array<Corrade::Containers::String> pluginSearchPaths();
    static Corrade::Containers::StringView pluginMetadataSuffix();

    explicit AbstractModule(
        Corrade::PluginManager::AbstractManager& manager, const Corrade::Containers::StringView& plugin);
    ~AbstractModule();

    // Called when the library was loaded again, before restoreState(). Does nothing unless overridden.
    virtual void load();

    // The block that saveState() made: calls init() with what it holds. Does nothing with an empty one.
    virtual void restoreState(const Corrade::Containers::Array<char>& state) = 0;
    // What a new instance needs to go on: the three pointers of init(). Empty where the host is about to quit.
    virtual Corrade::Containers::Array<char> saveState(bool isQuitting) = 0;

    // Whether the view takes input events.
    virtual bool takesInput() = 0;
    // Null-terminated; also the title of its window.
    virtual Corrade::Containers::StringView name() const = 0;

    virtual void init(ImGuiContext* imguiContext, EditorData* editorData, VantrelEditor* editor) = 0;
    // saveState() was called: the instance goes away.
    virtual void stateSaved() = 0;

    virtual void draw() = 0;
    // The frame was shown.
    virtual void frameShown() = 0;

    virtual void mouseMoveEvent(const MouseMoveEvent& event) = 0;
    virtual void mousePressEvent(const MouseEvent& event) = 0;
    virtual void mouseReleaseEvent(const MouseEvent& event) = 0;
    virtual void mouseScrollEvent(const MouseScrollEvent& event) = 0;
    virtual void keyPressEvent(const KeyEvent& event) = 0;
    virtual void keyReleaseEvent(const KeyEvent& event) = 0;
    // The window lost the focus, or the view is about to go: what is held now will be released without the user's doing, so
    // that it finishes nothing.
    virtual void focusLost() = 0;
};

} // namespace VantrelEngine
