#pragma once

#include "Magnum/VertexFormat.h"

// Which vertex format a C++ type is.

namespace Magnum::Trade::Implementation {

template<VertexFormat format, bool hasNormalized> struct ScalarFormat {
    static constexpr VertexFormat Format = format;
    // Whether the format that follows is its normalized form, which has the same C++ type.
    static constexpr bool HasNormalized = hasNormalized;
};

template<class> struct VertexFormatFor;
template<> struct VertexFormatFor<Float>: ScalarFormat<VertexFormat::Float, false> {};
template<> struct VertexFormatFor<Half>: ScalarFormat<VertexFormat::Half, false> {};
template<> struct VertexFormatFor<Double>: ScalarFormat<VertexFormat::Double, false> {};
template<> struct VertexFormatFor<UnsignedByte>: ScalarFormat<VertexFormat::UnsignedByte, true> {};
template<> struct VertexFormatFor<Byte>: ScalarFormat<VertexFormat::Byte, true> {};
template<> struct VertexFormatFor<UnsignedShort>: ScalarFormat<VertexFormat::UnsignedShort, true> {};
template<> struct VertexFormatFor<Short>: ScalarFormat<VertexFormat::Short, true> {};
template<> struct VertexFormatFor<UnsignedInt>: ScalarFormat<VertexFormat::UnsignedInt, false> {};
template<> struct VertexFormatFor<Int>: ScalarFormat<VertexFormat::Int, false> {};

// The blocks of vector formats repeat the order of the scalars.
template<class T, UnsignedInt components> struct VectorFormat {
    static constexpr VertexFormat Format = VertexFormat(UnsignedInt(VertexFormatFor<T>::Format) +
        (components - 1) * (UnsignedInt(VertexFormat::Vector2) - UnsignedInt(VertexFormat::Float)));
    static constexpr bool HasNormalized = VertexFormatFor<T>::HasNormalized;
};
template<class T> struct VertexFormatFor<Math::Vector2<T>>: VectorFormat<T, 2> {};
template<class T> struct VertexFormatFor<Math::Vector3<T>>: VectorFormat<T, 3> {};
template<class T> struct VertexFormatFor<Math::Vector4<T>>: VectorFormat<T, 4> {};

// Integers of a colour are always normalized.
template<class T, UnsignedInt components> struct ColorFormat {
    static constexpr VertexFormat Format =
        VertexFormat(UnsignedInt(VectorFormat<T, components>::Format) + VertexFormatFor<T>::HasNormalized);
    static constexpr bool HasNormalized = false;
};
template<class T> struct VertexFormatFor<Math::Color3<T>>: ColorFormat<T, 3> {};
template<class T> struct VertexFormatFor<Math::Color4<T>>: ColorFormat<T, 4> {};

}
