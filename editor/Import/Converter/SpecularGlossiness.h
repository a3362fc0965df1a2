#pragma once

#include <Magnum/Magnum.h>
#include <Magnum/Math/Vector3.h>

namespace VantrelImport {

struct MetallicRoughness {
    Magnum::Vector3 baseColor;
    float metalness;
    float roughness;
};

// The surface whose diffuse and specular reflections straight ahead come as near as can be, all linear: the metalness m
// solves specular = 0.04 (1 - m) + base m, diffuse = base (1 - m) (1 - 0.04) for their brightness, which is a quadratic
// equation; the base colour is then found in both and mixed by the square of m.
MetallicRoughness fromSpecularGlossiness(
    const Magnum::Vector3& diffuse, const Magnum::Vector3& specular, float glossiness);

// A Phong or Blinn exponent, from 0 on, as the roughness of the GGX distribution of about the same highlight:
// 2 / (roughness^4) - 2 is the exponent. Walter et al., Microfacet Models for Refraction (2007), and Karis (2013).
float roughnessOfExponent(float exponent);

} // namespace VantrelImport
