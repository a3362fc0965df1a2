#pragma once

#include <cstddef>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

namespace RapidJsonUtils {

// Position of a name in a list; 0, with one line on the warning output that lists them, where it is not there.
CORRADE_VISIBILITY_EXPORT std::size_t enumStringToValue(
    Corrade::Containers::StringView text, Corrade::Containers::ArrayView<const Corrade::Containers::StringView> names);

} // namespace RapidJsonUtils

} // namespace VantrelEngine
