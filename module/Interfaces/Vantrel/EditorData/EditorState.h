#pragma once

#include <deque>
#include <string>

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

// The editor's registry of views.
class CORRADE_VISIBILITY_EXPORT EditorState {
public:
    // Index of the view of this name, for as long as the editor runs. A new view is open; one that is known already,
    // because its module was loaded again, is as it was left.
    unsigned registerView(Corrade::Containers::StringView name);

    // Whether the view's window is open. The window's close button writes through the reference, which stays valid.
    bool& isViewOpen(unsigned view);

    unsigned viewCount() const { return unsigned(_views.size()); }
    Corrade::Containers::StringView viewName(unsigned view) const;

private:
    struct View {
        std::string name;
        bool isOpen = true;
    };

    std::deque<View> _views;
};

} // namespace VantrelEngine
