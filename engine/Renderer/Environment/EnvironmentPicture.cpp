#include "Renderer/Environment/EnvironmentPicture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Constants.h>
#include <Magnum/Math/Functions.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/SceneResources.h>

namespace VantrelEngine {

using namespace Magnum;

namespace {

// Of the average: what is brighter is a sun.
constexpr Float SunFactor = 8.0f;
// Around a sun.
constexpr Rad SunSpread{0.2f};

// Of a byte, in the sRGB curve or not.
std::array<Float, 256> byteValues(bool isSrgb) {
    std::array<Float, 256> values;
    for(std::size_t i = 0; i != values.size(); ++i)
        values[i] = isSrgb ? Color3::fromSrgb(Vector3{Float(i) / 255.0f}).r() : Float(i) / 255.0f;
    return values;
}

// What is no number compares as false.
Float light(Float value) { return value > 0.0f ? Math::min(value, BrightestEnvironment) : 0.0f; }

// The part of a row that a texel of a smaller or larger one covers.
struct Covered {
    explicit Covered(Int from, Int to, Int texel):
        begin{Double(texel) * from / to}, end{Double(texel + 1) * from / to}, first{Int(begin)},
        last{std::min(Int(std::ceil(end)), from)} {}

    // Of an element, of all that is covered.
    Float share(Int element) const {
        return Float((std::min(end, element + 1.0) - std::max(begin, Double(element))) / (end - begin));
    }

    Double begin, end;
    Int first, last;
};

// Rows of a picture come from a function that writes one.
template<class ReadRow> EnvironmentPicture resampled(const Vector2i& from, const Vector2i& to, const ReadRow& readRow) {
    EnvironmentPicture picture{to, std::vector<Color4>(std::size_t(to.product()), Color4{0.0f, 0.0f})};
    std::vector<Color4> row(std::size_t(from.x())), sum(row.size());
    for(Int y = 0; y != to.y(); ++y) {
        std::fill(sum.begin(), sum.end(), Color4{0.0f, 0.0f});
        const Covered rows{from.y(), to.y(), y};
        for(Int i = rows.first; i != rows.last; ++i) {
            const Float share = rows.share(i);
            readRow(i, row.data());
            for(std::size_t x = 0; x != row.size(); ++x) sum[x] += row[x] * share;
        }
        for(Int x = 0; x != to.x(); ++x) {
            const Covered columns{from.x(), to.x(), x};
            Color4& texel = picture.texels[std::size_t(y) * to.x() + x];
            for(Int i = columns.first; i != columns.last; ++i) texel += sum[i] * columns.share(i);
        }
    }
    return picture;
}

// From -y to +y, of the middle of a row.
Rad latitudeOf(const Vector2i& size, Int row) { return Rad{((Float(row) + 0.5f) / size.y() - 0.5f) * Constants::pi()}; }

// Of all directions alike.
Float averageLight(const EnvironmentPicture& picture) {
    Double light = 0.0, area = 0.0;
    for(Int y = 0; y != picture.size.y(); ++y) {
        const Double share = Math::cos(latitudeOf(picture.size, y));
        const Color4* const row = picture.texels.data() + std::size_t(y) * picture.size.x();
        for(Int x = 0; x != picture.size.x(); ++x) light += share * row[x].rgb().max();
        area += share * picture.size.x();
    }
    return Float(light / area);
}

// How far to both sides texels can be close to a direction of a latitude; to the back where a pole is as close.
Int columnsAround(Int width, Float cosineOfLatitude) {
    const Float sine = Math::sin(SunSpread) / Math::max(cosineOfLatitude, 1.0e-3f);
    if(sine >= 1.0f) return width / 2;
    return std::min(Int(std::asin(sine) / (2.0f * Constants::pi()) * width) + 2, width / 2);
}

// What a texel gets of the light of one of a row: so many columns away, in which row, and which part of it.
struct Share {
    Int away, row;
    Float part;
};

// Of all texels whose directions are close to one in the row; the same for all of them. The light stays as much.
std::vector<Share> sharesAround(const Vector2i& size, Int middle) {
    const Rad middleLatitude = latitudeOf(size, middle);
    const Float middleSine = Math::sin(middleLatitude), middleCosine = Math::cos(middleLatitude);
    const Float closest = Math::cos(SunSpread);
    const Int columns = columnsAround(size.x(), middleCosine);
    const Int rows = Int(Float(SunSpread) / Constants::pi() * size.y()) + 1;
    std::vector<Share> shares;
    Float sum = 0.0f;
    for(Int y = std::max(middle - rows, 0); y <= std::min(middle + rows, size.y() - 1); ++y) {
        const Rad latitude = latitudeOf(size, y);
        const Float sine = Math::sin(latitude), cosine = Math::cos(latitude);
        for(Int away = -columns; away != columns; ++away) {
            const Rad longitude{2.0f * Constants::pi() * Float(away) / size.x()};
            const Float aligned = sine * middleSine + cosine * middleCosine * Math::cos(longitude);
            if(aligned <= closest) continue;
            const Float weight = (aligned - closest) / (1.0f - closest);
            shares.push_back({away, y, weight * weight});
            sum += cosine * weight * weight;
        }
    }
    for(Share& share: shares) share.part *= middleCosine / sum;
    return shares;
}

void spread(EnvironmentPicture& picture, Int column, const std::vector<Share>& shares, const Color3& light) {
    const Int width = picture.size.x();
    for(const Share& share: shares) {
        const Int x = (column + share.away + width) & (width - 1);
        picture.texels[std::size_t(share.row) * width + x] += Color4{light * share.part, 0.0f};
    }
}

// The largest power of two that is not above.
Int widthFor(Int width) {
    Int result = MinimumEnvironmentWidth;
    while(result < MaximumEnvironmentWidth && result * 2 <= width) result *= 2;
    return result;
}

} // namespace

EnvironmentPicture environmentPicture(const SceneImage& image) {
    const Image2D& pixels = *image.pixels;
    const Vector2i size = pixels.size();
    const Int width = widthFor(size.x());
    const bool isFloat = pixels.format() == PixelFormat::RGBA32F;
    const std::array<Float, 256> values = byteValues(image.isSrgb);
    return resampled(size, {width, width / 2}, [&](Int y, Color4* row) {
        const char* const data = pixels.data().data() + std::size_t(y) * size.x() * pixels.pixelSize();
        for(Int x = 0; x != size.x(); ++x)
            if(isFloat) {
                Float texel[4];
                std::memcpy(texel, data + std::size_t(x) * sizeof(texel), sizeof(texel));
                row[x] = {light(texel[0]), light(texel[1]), light(texel[2]), 1.0f};
            } else {
                const auto* const texel = reinterpret_cast<const UnsignedByte*>(data) + std::size_t(x) * 4;
                row[x] = {values[texel[0]], values[texel[1]], values[texel[2]], 1.0f};
            }
    });
}

EnvironmentPicture resized(const EnvironmentPicture& picture, const Vector2i& size) {
    return resampled(picture.size, size, [&](Int y, Color4* row) {
        std::copy_n(picture.texels.data() + std::size_t(y) * picture.size.x(), picture.size.x(), row);
    });
}

EnvironmentPicture withSpreadSuns(const EnvironmentPicture& picture) {
    EnvironmentPicture result = picture;
    const Float limit = SunFactor * averageLight(picture);
    std::vector<Share> shares;
    for(Int y = 0; y != picture.size.y(); ++y) {
        shares.clear();
        for(Int x = 0; x != picture.size.x(); ++x) {
            const std::size_t i = std::size_t(y) * picture.size.x() + x;
            const Float brightest = picture.texels[i].rgb().max();
            if(brightest <= limit) continue;
            const Color3 excess = picture.texels[i].rgb() * (1.0f - limit / brightest);
            result.texels[i] -= Color4{excess, 0.0f};
            if(shares.empty()) shares = sharesAround(picture.size, y);
            spread(result, x, shares, excess);
        }
    }
    return result;
}

std::uint64_t contentKey(const EnvironmentPicture& picture) {
    // Each step is one to one, so that one other texel cannot come out the same.
    std::uint64_t key = 0x9e3779b97f4a7c15u ^ std::uint64_t(picture.size.x());
    for(const Color4& texel: picture.texels)
        for(int half = 0; half != 2; ++half) {
            std::uint64_t bits;
            std::memcpy(&bits, texel.data() + 2 * half, sizeof(bits));
            key = (key ^ bits) * 0xff51afd7ed558ccdu;
            key ^= key >> 32;
        }
    return key;
}

} // namespace VantrelEngine
