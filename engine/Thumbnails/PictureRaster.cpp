#include "Thumbnails/PictureRaster.h"

#include <algorithm>
#include <cmath>

#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Functions.h>

namespace VantrelEngine {

using namespace Magnum;
using namespace Math::Literals;

namespace {

// Along an edge of a pixel.
constexpr Int Samples = 3;
constexpr Deg FieldOfView{30.0f};
// Of the sphere, beside it.
constexpr Float Margin = 1.04f;

// As the background of the pictures of meshes.
constexpr Float Background = 0.19f;
// Of light from everywhere, and from the sun.
constexpr Float Ambient = 0.28f, Direct = 0.95f;

UnsignedByte byteOf(Float value) { return UnsignedByte(Math::clamp(value, 0.0f, 1.0f) * 255.0f + 0.5f); }

Matrix4 cameraMatrix() { return Matrix4::rotationY(35.0_degf) * Matrix4::rotationX(-25.0_degf); }

// Towards the sun.
Vector3 sunDirection() { return Vector3{-0.25f, 0.75f, 0.6f}.normalized(); }

Float cross(const Vector2& a, const Vector2& b) { return a.x() * b.y() - a.y() * b.x(); }

Int wrapped(Float coordinate, Int size) {
    const Float part = coordinate - std::floor(coordinate);
    return std::min(Int(part * Float(size)), size - 1);
}

} // namespace

Color4 RasterTexture::at(const Vector2& textureCoordinates) const {
    const bool isFinite = std::isfinite(textureCoordinates.x()) && std::isfinite(textureCoordinates.y());
    const Vector2 place = isFinite ? textureCoordinates : Vector2{};
    const Int x = wrapped(place.x(), size.x()), y = wrapped(place.y(), size.y());
    const Color4ub& texel = texels[std::size_t(y) * std::size_t(size.x()) + std::size_t(x)];
    const Vector4 color = Vector4{Float(texel.r()), Float(texel.g()), Float(texel.b()), Float(texel.a())} / 255.0f;
    return {isSrgb ? Color3::fromSrgb(color.xyz()) : Color3{color.xyz()}, color.w()};
}

PictureRaster::PictureRaster(Int edge, const Vector3& center, Float radius):
    _edge{edge}, _colors(std::size_t(edge * edge * Samples * Samples), Color3::fromSrgb(Vector3{Background})),
    _nearest(_colors.size(), 0.0f) {
    const Float size = radius > 0.0f ? radius * Margin : 1.0f;
    const Float distance = size / Math::sin(FieldOfView * 0.5f);
    const Matrix4 camera =
        Matrix4::translation(center) * cameraMatrix() * Matrix4::translation(Vector3::zAxis(distance));
    _toCamera = camera.invertedRigid();
    _scale = Float(edge * Samples) * 0.5f / Math::tan(FieldOfView * 0.5f);
}

PictureRaster::Corner PictureRaster::cornerOf(const Vector3& position) const {
    const Vector3 seen = _toCamera.transformPoint(position);
    const Float inverse = seen.z() < 0.0f ? -1.0f / seen.z() : 0.0f;
    return {seen.xy() * inverse * _scale + Vector2{Float(_edge * Samples) * 0.5f}, inverse};
}

void PictureRaster::draw(const RasterVertex (&triangle)[3], const RasterTexture* texture, Float cutoff) {
    Corner corners[3];
    for(Int i = 0; i != 3; ++i) {
        corners[i] = cornerOf(triangle[i].position);
        if(!(corners[i].inverseDistance > 0.0f) || !std::isfinite(corners[i].place.dot())) return;
    }
    const Vector2 &a = corners[0].place, &b = corners[1].place, &c = corners[2].place;
    const Float area = cross(b - a, c - a);
    if(area == 0.0f) return;
    const Int samples = _edge * Samples;
    const auto bound = [samples](Float value) { return Int(Math::clamp(value, 0.0f, Float(samples))); };
    const Int left = bound(std::floor(std::min({a.x(), b.x(), c.x()}))),
              bottom = bound(std::floor(std::min({a.y(), b.y(), c.y()})));
    const Int right = bound(std::ceil(std::max({a.x(), b.x(), c.x()}))),
              top = bound(std::ceil(std::max({a.y(), b.y(), c.y()})));
    const Vector3 face =
        Math::cross(triangle[1].position - triangle[0].position, triangle[2].position - triangle[0].position);
    _tested += std::uint64_t(top - bottom) * std::uint64_t(right - left);
    for(Int y = bottom; y != top; ++y)
        for(Int x = left; x != right; ++x) {
            const Vector2 place{Float(x) + 0.5f, Float(y) + 0.5f};
            const Vector3 flat =
                Vector3{cross(c - b, place - b), cross(a - c, place - c), cross(b - a, place - a)} / area;
            if(flat.min() < 0.0f) continue;
            // In perspective.
            const Vector3 weights =
                flat * Vector3{corners[0].inverseDistance, corners[1].inverseDistance, corners[2].inverseDistance};
            const Float inverseDistance = weights.sum();
            const std::size_t sample = std::size_t(y) * std::size_t(samples) + std::size_t(x);
            if(inverseDistance <= _nearest[sample]) continue;
            const Color4 color = shaded(triangle, weights / inverseDistance, face, texture);
            if(color.a() < cutoff) continue;
            _nearest[sample] = inverseDistance;
            _colors[sample] = color.rgb();
        }
}

Color4 PictureRaster::shaded(const RasterVertex (&triangle)[3], const Vector3& weights, const Vector3& faceNormal,
    const RasterTexture* texture) const {
    Vector3 normal, position;
    Vector2 textureCoordinates;
    Color4 color{0.0f, 0.0f};
    for(std::size_t i = 0; i != 3; ++i) {
        position += triangle[i].position * weights[i];
        normal += triangle[i].normal * weights[i];
        textureCoordinates += triangle[i].textureCoordinates * weights[i];
        color += triangle[i].color * weights[i];
    }
    if(texture) color *= texture->at(textureCoordinates);
    if(!(normal.dot() > 0.0f)) normal = faceNormal;
    if(!(normal.dot() > 0.0f) || !std::isfinite(normal.dot())) normal = Vector3::yAxis();
    normal = _toCamera.transformVector(normal).normalized();
    if(Math::dot(normal, _toCamera.transformPoint(position)) > 0.0f) normal = -normal;
    const Float light =
        Ambient * (0.75f + 0.25f * normal.y()) + Direct * std::max(Math::dot(normal, sunDirection()), 0.0f);
    return {color.rgb() * light, color.a()};
}

ThumbnailPixels PictureRaster::pixels() const {
    ThumbnailPixels result;
    result.reserve(std::size_t(_edge * _edge));
    for(Int y = 0; y != _edge; ++y)
        for(Int x = 0; x != _edge; ++x) {
            Color3 sum;
            for(Int i = 0; i != Samples * Samples; ++i) {
                const Int row = y * Samples + i / Samples, column = x * Samples + i % Samples;
                sum += _colors[std::size_t(row) * std::size_t(_edge * Samples) + std::size_t(column)];
            }
            const Vector3 shown = (sum / Float(Samples * Samples)).toSrgb();
            result.push_back({byteOf(shown.x()), byteOf(shown.y()), byteOf(shown.z()), 255});
        }
    return result;
}

} // namespace VantrelEngine
