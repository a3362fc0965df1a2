#pragma once

#include <optional>
#include <string>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>

namespace VantrelEngine {

// The inverse bind matrices of the first skin of a GLB file, finite, by joint. Those of a skin without any are identity.
// None, and a reason, where the file cannot be used.
std::optional<std::vector<Magnum::Matrix4>> readSkin(
    Corrade::Containers::ArrayView<const char> bytes, std::string& reason);

} // namespace VantrelEngine
