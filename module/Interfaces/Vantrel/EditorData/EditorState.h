#pragma once

#include <deque>
#include <optional>
#include <string>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

// The editor's registry of views.
class CORRADE_VISIBILITY_EXPORT EditorState {
public:
    // Index of the view of this name, for as long as the editor runs. A new view is open; one that is known already,
    // because its module was loaded again, is as it was left.
    unsigned registerView(Corrade::Containers::StringView name);

    // Whether the view's window is open. The window's close button writes through the reference, which stays valid.
    bool& isViewOpen(unsigned view);

    // Where the view's window has to be, in window points, where the editor's layout pins it to a place; such a window
    // counts as docked. Empty for a window that is moved by the user, or docked by the UI library itself.
    std::optional<Magnum::Range2D>& pane(unsigned view) { return _views[view].pane; }

    unsigned viewCount() const { return unsigned(_views.size()); }
    Corrade::Containers::StringView viewName(unsigned view) const;

private:
    struct View {
        std::string name;
        bool isOpen;
        std::optional<Magnum::Range2D> pane;
    };

    std::deque<View> _views;
};

} // namespace VantrelEngine
