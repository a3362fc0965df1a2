#include "Vantrel/EditorData/EditorState.h"

#include <Corrade/Utility/Assert.h>

namespace VantrelEngine {

using namespace Corrade;

unsigned EditorState::registerView(Containers::StringView name) {
    for(unsigned view = 0; view != viewCount(); ++view)
        if(viewName(view) == name) return view;
    _views.push_back({std::string{name.data(), name.size()}, true, {}});
    return viewCount() - 1;
}

bool& EditorState::isViewOpen(unsigned view) {
    CORRADE_ASSERT(view < viewCount(), "EditorState::isViewOpen(): there is no view" << view, _views.front().isOpen);
    return _views[view].isOpen;
}

Containers::StringView EditorState::viewName(unsigned view) const {
    CORRADE_ASSERT(view < viewCount(), "EditorState::viewName(): there is no view" << view, {});
    return {_views[view].name.data(), _views[view].name.size()};
}

} // namespace VantrelEngine
