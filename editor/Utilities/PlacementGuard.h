#pragma once

#include <string>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class EditorData;

// Why the first selected object cannot be put to another place by a click, as one line; empty where it can, or where nothing
// is selected. It has to be below something that is not scaled: the view ends the process where it is asked to do it
// nevertheless. Absolute transformations that are not up to date are computed.
CORRADE_VISIBILITY_EXPORT std::string placementRefusal(EditorData& data);

} // namespace VantrelEngine
