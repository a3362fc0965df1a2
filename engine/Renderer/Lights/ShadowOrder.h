#pragma once

#include <cstddef>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector3.h>

namespace VantrelEngine {

// Whose shadows are looked at: from the scene's space to clip space, and from where.
struct ShadowViewer {
    Magnum::Matrix4 toClip;
    Magnum::Vector3 place;
};

// How much of a picture the shadows of a light may be in, about: 1 where the viewer is within their range, less and less
// with the square of the distance, and 0 where nothing of that is inside the frustum.
Magnum::Float seenPart(const Magnum::Vector3& light, Magnum::Float range, const ShadowViewer& viewer);

// Maps of one light that are to be drawn: [first, end).
struct WaitingLight {
    std::size_t first, end;
    // Of the picture, see seenPart(); 1 for a sun.
    Magnum::Float part;
    // Frames in which others were drawn.
    Magnum::UnsignedInt waited;
};

// The one that counts most first: by its part of the picture times the frames that it has waited, so that everyone has
// their turn; else in the order as they are.
void sortByWeight(std::vector<WaitingLight>& lights);

} // namespace VantrelEngine
