#pragma once

#include <vector>

#include <Corrade/Containers/Array.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Vector2.h>

namespace VantrelEngine {

// Sizes of an image and of all that are half as large as the one before, rounded down, to 1 by 1.
std::vector<Magnum::Vector2i> mipSizes(const Magnum::Vector2i& size);

// An image and what becomes of it when it is made smaller, level by level. A texel of the next level is the average of
// the area that it covers, in linear values; colours count by their opacity, so that what cannot be seen does not bleed
// into what can.
class MipLevels {
public:
    // The image, RGBA of 8 bits in the sRGB curve or linear or of 32-bit floats, has to stay.
    explicit MipLevels(const Magnum::Image2D& image, bool isSrgb);

    Magnum::Vector2i size() const { return _size; }
    bool isFloat() const { return _isFloat; }
    // Makes the level half as large, down to 1 along each axis.
    void halve();

    // The texels with a margin of one that holds the opposite edge; rows upwards. Of 8 bits, or of floats that a half
    // can hold.
    Corrade::Containers::Array<Magnum::Color4ub> bytesWithMargin() const;
    Corrade::Containers::Array<Magnum::Color4> floatsWithMargin() const;

private:
    // Linear; colours of the sRGB curve times their weight.
    void readRow(Magnum::Int y, Magnum::Color4* row) const;

    const Magnum::Image2D& _image;
    const bool _isSrgb;
    const bool _isFloat;
    Magnum::Vector2i _size;
    // As readRow() has it. Empty for the image itself.
    Corrade::Containers::Array<Magnum::Color4> _texels;
};

} // namespace VantrelEngine
