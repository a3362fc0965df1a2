#pragma once

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// Why an image must not be given to the decoder, which believes some of what a file says and reads or writes beyond its
// memory otherwise, or makes pixels up: the sizes of the Huffman tables of a JPEG file and that the tables are there
// before they are used, and that TGA and BMP files have all of their pixels. Null for an image that may, whether it is
// one or not. Linear.
const char* whyNotDecodable(Corrade::Containers::ArrayView<const unsigned char> bytes);

// Whether an HDR file of this size in pixels ends before its last pixel: the decoder would wait for it for ever. Linear.
bool isTruncatedHdr(Corrade::Containers::ArrayView<const unsigned char> bytes, const Magnum::Vector2i& size);

} // namespace VantrelEngine
