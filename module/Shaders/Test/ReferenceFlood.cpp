#include "ReferenceFlood.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace VantrelTest {

using namespace Magnum;

namespace {

Vector2us encoded(const Vector2& position, const Vector2i& size) {
    Vector2us result;
    for(int i = 0; i != 2; ++i)
        result[i] = UnsignedShort(std::lround(std::clamp(double(position[i]) / size[i], 0.0, 1.0) * 65535.0));
    return result;
}

Vector2 center(const Vector2i& pixel) { return Vector2{pixel} + Vector2{0.5f}; }

Vector2i clamped(const Vector2i& pixel, const Vector2i& size) {
    return {std::clamp(pixel.x(), 0, size.x() - 1), std::clamp(pixel.y(), 0, size.y() - 1)};
}

// Coverage of the pixels around, weighted by the position of each: towards more of it.
Vector2 inwards(const Mask& mask, const Vector2i& pixel) {
    Vector2 sum;
    for(int y = -1; y <= 1; ++y)
        for(int x = -1; x <= 1; ++x) {
            const float covered = mask.at(clamped(pixel + Vector2i{x, y}, mask.size));
            sum += covered * Vector2{float(x * (2 - std::abs(y))), float(y * (2 - std::abs(x)))};
        }
    return sum;
}

Vector2 seedOf(const Mask& mask, const Vector2i& pixel) {
    const float covered = mask.at(pixel);
    if(covered < 0.05f) return {};
    const Vector2 slope = inwards(mask, pixel);
    if(covered > 0.95f || slope.dot() < 0.01f) return center(pixel);
    return center(pixel) + slope / slope.length() * (1.0f - covered);
}

}

Vector2 decoded(const Vector2us& position, const Vector2i& size) {
    return Vector2{float(position.x()) / 65535.0f * size.x(), float(position.y()) / 65535.0f * size.y()};
}

Positions referenceSeeds(const Mask& mask) {
    Positions seeds;
    for(Int y = 0; y != mask.size.y(); ++y)
        for(Int x = 0; x != mask.size.x(); ++x) seeds.push_back(encoded(seedOf(mask, {x, y}), mask.size));
    return seeds;
}

Positions referenceStep(const Positions& positions, const Vector2i& size, int spacing) {
    Positions result(positions.size());
    for(Int y = 0; y != size.y(); ++y)
        for(Int x = 0; x != size.x(); ++x) {
            float closestSquared = std::numeric_limits<float>::max();
            for(int i = 0; i != 9; ++i) {
                const Vector2i other = clamped(Vector2i{x, y} + spacing * Vector2i{i % 3 - 1, i / 3 - 1}, size);
                const Vector2us candidate = positions[other.y() * size.x() + other.x()];
                const float squared = (decoded(candidate, size) - center({x, y})).dot();
                if(!candidate.x() || squared >= closestSquared) continue;
                closestSquared = squared;
                result[y * size.x() + x] = candidate;
            }
        }
    return result;
}

float referenceAlpha(const Mask& mask, const Vector2i& pixel, const Vector2& closest, float width) {
    if(closest.x() == 0.0f) return 0.0f;
    return (1.0f - mask.at(pixel)) * std::clamp(width - (closest - center(pixel)).length(), 0.0f, 1.0f);
}

Vector2 exactlyClosest(const Positions& seeds, const Vector2i& size, const Vector2i& pixel, float width) {
    // A seed lies less than a pixel from the centre of its own one.
    const Int reach = Int(width) + 2;
    const Vector2i begin = clamped(pixel - Vector2i{reach}, size);
    const Vector2i end = clamped(pixel + Vector2i{reach}, size);
    Vector2 closest;
    float closestSquared = std::numeric_limits<float>::max();
    for(Int y = begin.y(); y <= end.y(); ++y)
        for(Int x = begin.x(); x <= end.x(); ++x) {
            const Vector2us seed = seeds[y * size.x() + x];
            if(!seed.x()) continue;
            const Vector2 position = decoded(seed, size);
            const float squared = (position - center(pixel)).dot();
            if(squared >= closestSquared) continue;
            closest = position;
            closestSquared = squared;
        }
    return closest;
}

}
