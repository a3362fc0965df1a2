#pragma once

#include <Vantrel/EngineData/SceneResources.h>

#include "Thumbnails/ThumbnailPixels.h"

namespace VantrelEngine {

// The image as large as it fits into a square of so many pixels, over a chequered ground. High dynamic range is cut off.
// Expects pixels. Linear in the texels.
ThumbnailPixels imageThumbnail(const SceneImage& image, Magnum::Int edge);

// The image with at most so many texels along its longer edge, each the average of those that it stands for.
SceneImage reducedImage(const SceneImage& image, Magnum::Int longestEdge);

} // namespace VantrelEngine
