#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Magnum.h"

namespace Magnum {

// Type of one vertex attribute. Normalized means that an integer stands for a number in [0, 1] or [-1, 1].
enum class VertexFormat : UnsignedInt {
    // The blocks for vectors repeat the order of the scalars.
    Float = 1,
    Half,
    Double,
    UnsignedByte,
    UnsignedByteNormalized,
    Byte,
    ByteNormalized,
    UnsignedShort,
    UnsignedShortNormalized,
    Short,
    ShortNormalized,
    UnsignedInt,
    Int,

    Vector2,
    Vector2h,
    Vector2d,
    Vector2ub,
    Vector2ubNormalized,
    Vector2b,
    Vector2bNormalized,
    Vector2us,
    Vector2usNormalized,
    Vector2s,
    Vector2sNormalized,
    Vector2ui,
    Vector2i,

    Vector3,
    Vector3h,
    Vector3d,
    Vector3ub,
    Vector3ubNormalized,
    Vector3b,
    Vector3bNormalized,
    Vector3us,
    Vector3usNormalized,
    Vector3s,
    Vector3sNormalized,
    Vector3ui,
    Vector3i,

    Vector4,
    Vector4h,
    Vector4d,
    Vector4ub,
    Vector4ubNormalized,
    Vector4b,
    Vector4bNormalized,
    Vector4us,
    Vector4usNormalized,
    Vector4s,
    Vector4sNormalized,
    Vector4ui,
    Vector4i
};

// All of these assert that the format is one of the enumerators.

// Of the whole attribute, in bytes.
CORRADE_VISIBILITY_EXPORT UnsignedInt vertexFormatSize(VertexFormat format);
// 1 to 4.
CORRADE_VISIBILITY_EXPORT UnsignedInt vertexFormatComponentCount(VertexFormat format);
// The scalar format of one component, not normalized.
CORRADE_VISIBILITY_EXPORT VertexFormat vertexFormatComponentFormat(VertexFormat format);
CORRADE_VISIBILITY_EXPORT bool isVertexFormatNormalized(VertexFormat format);

CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, VertexFormat value);

}
