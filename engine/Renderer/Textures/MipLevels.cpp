#include "Renderer/Textures/MipLevels.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include <Magnum/Math/Functions.h>
#include <Magnum/PixelFormat.h>

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Of the weight by which colours count: what cannot be seen keeps its colour.
constexpr Float InvisibleWeight = 1.0f / 1024.0f;
// The largest number of 16-bit floats.
constexpr Float LargestHalf = 65504.0f;

// From the curve of screens to linear values.
const std::array<Float, 256>& linearValues() {
    static const std::array<Float, 256> values = [] {
        std::array<Float, 256> made{};
        for(std::size_t i = 0; i != made.size(); ++i) {
            const Float value = Float(i) / 255.0f;
            made[i] = value <= 0.04045f ? value / 12.92f : std::pow((value + 0.055f) / 1.055f, 2.4f);
        }
        return made;
    }();
    return values;
}

// And back, by 4096ths: fine enough that each of the 256 values comes back as it was.
constexpr std::size_t CurveSteps = 4096;
const std::array<UnsignedByte, CurveSteps + 1>& curveValues() {
    static const std::array<UnsignedByte, CurveSteps + 1> values = [] {
        std::array<UnsignedByte, CurveSteps + 1> made{};
        for(std::size_t i = 0; i != made.size(); ++i) {
            const Float value = Float(i) / CurveSteps;
            const Float curve = value <= 0.0031308f ? value * 12.92f : 1.055f * std::pow(value, 1.0f / 2.4f) - 0.055f;
            made[i] = UnsignedByte(curve * 255.0f + 0.5f);
        }
        return made;
    }();
    return values;
}

UnsignedByte toByte(Float value) { return UnsignedByte(Math::clamp(value, 0.0f, 1.0f) * 255.0f + 0.5f); }
UnsignedByte toCurve(Float value) {
    return curveValues()[std::size_t(Math::clamp(value, 0.0f, 1.0f) * CurveSteps + 0.5f)];
}

// The texels of a finer level, along one axis, that one of the next level covers, and their shares.
struct Coverage {
    Coverage(Int fine, Int coarse, Int i): first{fine == 1 ? 0 : 2 * i} {
        if(fine == 1)
            count = 1, shares[0] = 1.0f;
        else if(fine % 2 == 0)
            count = 2, shares[0] = shares[1] = 0.5f;
        else {
            count = 3;
            shares[0] = Float(coarse - i) / Float(fine);
            shares[1] = Float(coarse) / Float(fine);
            shares[2] = Float(i + 1) / Float(fine);
        }
    }

    Int first;
    Int count = 0;
    Float shares[3]{};
};

template<class T> Containers::Array<T> withMargin(const T* texels, const Vector2i& size) {
    const std::size_t stride = std::size_t(size.x()) + 2;
    Containers::Array<T> result{NoInit, stride * (std::size_t(size.y()) + 2)};
    for(Int y = -1; y <= size.y(); ++y) {
        const T* const source = texels + std::size_t((y + size.y()) % size.y()) * size.x();
        T* const row = result.data() + std::size_t(y + 1) * stride;
        row[0] = source[size.x() - 1];
        std::copy_n(source, size.x(), row + 1);
        row[size.x() + 1] = source[0];
    }
    return result;
}

} // namespace

std::vector<Vector2i> mipSizes(const Vector2i& size) {
    std::vector<Vector2i> sizes{size};
    while(sizes.back().max() > 1) sizes.push_back(Math::max(sizes.back() / 2, Vector2i{1}));
    return sizes;
}

MipLevels::MipLevels(const Image2D& image, bool isSrgb):
    _image{image}, _isSrgb{isSrgb}, _isFloat{image.format() == PixelFormat::RGBA32F}, _size{image.size()} {}

void MipLevels::readRow(Int y, Color4* row) const {
    if(!_texels.isEmpty()) {
        std::copy_n(_texels.data() + std::size_t(y) * _size.x(), _size.x(), row);
        return;
    }
    const char* const pixels = _image.data().data() + std::size_t(y) * _size.x() * _image.pixelSize();
    if(_isFloat) {
        std::memcpy(row, pixels, std::size_t(_size.x()) * sizeof(Color4));
        return;
    }
    const auto* bytes = reinterpret_cast<const UnsignedByte*>(pixels);
    const auto& linear = linearValues();
    for(Int x = 0; x != _size.x(); ++x, bytes += 4) {
        const Float alpha = bytes[3] / 255.0f, weight = alpha + InvisibleWeight;
        row[x] = _isSrgb
            ? Color4{linear[bytes[0]] * weight, linear[bytes[1]] * weight, linear[bytes[2]] * weight, alpha}
            : Color4{bytes[0] / 255.0f, bytes[1] / 255.0f, bytes[2] / 255.0f, alpha};
    }
}

void MipLevels::halve() {
    const Vector2i next = Math::max(_size / 2, Vector2i{1});
    Containers::Array<Color4> texels{ValueInit, std::size_t(next.x()) * next.y()};
    Containers::Array<Color4> row{NoInit, std::size_t(_size.x())}, sum{NoInit, std::size_t(_size.x())};
    for(Int y = 0; y != next.y(); ++y) {
        const Coverage rows{_size.y(), next.y(), y};
        for(Color4& texel: sum) texel = Color4{0.0f, 0.0f};
        for(Int i = 0; i != rows.count; ++i) {
            readRow(rows.first + i, row.data());
            for(Int x = 0; x != _size.x(); ++x) sum[x] += row[x] * rows.shares[i];
        }
        for(Int x = 0; x != next.x(); ++x) {
            const Coverage columns{_size.x(), next.x(), x};
            Color4& texel = texels[std::size_t(y) * next.x() + x];
            texel = Color4{0.0f, 0.0f};
            for(Int i = 0; i != columns.count; ++i) texel += sum[columns.first + i] * columns.shares[i];
        }
    }
    _texels = std::move(texels);
    _size = next;
}

Containers::Array<Color4ub> MipLevels::bytesWithMargin() const {
    if(_texels.isEmpty()) return withMargin(reinterpret_cast<const Color4ub*>(_image.data().data()), _size);
    Containers::Array<Color4ub> bytes{NoInit, _texels.size()};
    for(std::size_t i = 0; i != bytes.size(); ++i) {
        const Color4& texel = _texels[i];
        if(!_isSrgb) {
            bytes[i] = {toByte(texel.r()), toByte(texel.g()), toByte(texel.b()), toByte(texel.a())};
            continue;
        }
        const Color3 color = texel.rgb() / (texel.a() + InvisibleWeight);
        bytes[i] = {toCurve(color.r()), toCurve(color.g()), toCurve(color.b()), toByte(texel.a())};
    }
    return withMargin(bytes.data(), _size);
}

Containers::Array<Color4> MipLevels::floatsWithMargin() const {
    const auto* const texels =
        _texels.isEmpty() ? reinterpret_cast<const Color4*>(_image.data().data()) : _texels.data();
    Containers::Array<Color4> result = withMargin(texels, _size);
    for(Color4& texel: result) texel = Color4{Math::clamp(texel, Color4{-LargestHalf}, Color4{LargestHalf})};
    return result;
}

} // namespace VantrelEngine
