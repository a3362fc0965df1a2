#pragma once

#include <cstdint>
#include <string>

#include "Thumbnails/ThumbnailPixels.h"

namespace VantrelEngine {

// Pictures in a folder, each a PNG file named after its content, with a number behind the picture that tells whether the
// file is whole. With an empty folder there are none.

// Empty where there is none, or none of this size; a damaged file is none.
ThumbnailPixels readThumbnail(const std::string& folder, std::uint64_t content, Magnum::Int edge);
// Makes the folder, too. What cannot be written is drawn again another time.
void writeThumbnail(const std::string& folder, std::uint64_t content, Magnum::Int edge, const ThumbnailPixels& pixels);
// Removes the oldest files, if there are more than this.
void tidyThumbnails(const std::string& folder, std::size_t most);

} // namespace VantrelEngine
