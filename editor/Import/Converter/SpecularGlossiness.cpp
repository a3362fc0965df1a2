#include "Import/Converter/SpecularGlossiness.h"

#include <algorithm>
#include <cmath>

#include <Magnum/Math/Functions.h>

namespace VantrelImport {

using namespace Magnum;

namespace {

constexpr float Dielectric = 0.04f;

// ITU-R BT.709.
float brightness(const Vector3& color) { return 0.2126f * color.x() + 0.7152f * color.y() + 0.0722f * color.z(); }

float metalnessOf(float diffuse, float specular, float oneMinusSpecular) {
    if(specular <= Dielectric) return 0.0f;
    const float b = diffuse * oneMinusSpecular / (1.0f - Dielectric) + specular - 2.0f * Dielectric;
    const float c = Dielectric - specular;
    const float root = std::sqrt(std::max(b * b - 4.0f * Dielectric * c, 0.0f));
    return std::clamp((root - b) / (2.0f * Dielectric), 0.0f, 1.0f);
}

} // namespace

MetallicRoughness fromSpecularGlossiness(const Vector3& diffuse, const Vector3& specular, float glossiness) {
    const float oneMinusSpecular = 1.0f - std::max({specular.x(), specular.y(), specular.z()});
    const float metalness = metalnessOf(brightness(diffuse), brightness(specular), oneMinusSpecular);
    const Vector3 fromDiffuse =
        diffuse * (oneMinusSpecular / (1.0f - Dielectric) / std::max(1.0f - metalness, 1.0e-4f));
    const Vector3 fromSpecular = (specular - Vector3{Dielectric * (1.0f - metalness)}) / std::max(metalness, 1.0e-4f);
    const Vector3 mixed = Math::lerp(fromDiffuse, fromSpecular, metalness * metalness);
    return {Math::clamp(mixed, Vector3{0.0f}, Vector3{1.0f}), metalness, std::clamp(1.0f - glossiness, 0.0f, 1.0f)};
}

float roughnessOfExponent(float exponent) { return std::pow(2.0f / (std::max(exponent, 0.0f) + 2.0f), 0.25f); }

} // namespace VantrelImport
