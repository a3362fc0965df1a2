#pragma once

#include <optional>
#include <string>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Trade/AnimationData.h>

namespace VantrelEngine {

// The translations, rotations and scalings of the first animation of a GLB file. Targets count the nodes of the file in
// the order in which the animation names them. Keys ascend, values are finite, rotations have a length of 1. None, and a
// reason, where the file cannot be used.
std::optional<Magnum::Trade::AnimationData> readAnimation(
    Corrade::Containers::ArrayView<const char> bytes, std::string& reason);

// Targets of the tracks: one more than the last.
std::size_t targetCount(const Magnum::Trade::AnimationData& animation);

} // namespace VantrelEngine
