#pragma once

// Forward declarations and the short names of everything that is used with one underlying type only. A type can be named
// after this header; to use it, include its own.

#include "Corrade/Utility/Utility.h"
#include "Magnum/Math/Math.h"
#include "Magnum/Types.h"

namespace Corrade {}

namespace Magnum {

using namespace Corrade;

using Corrade::Utility::Debug;
using Corrade::Utility::Error;
using Corrade::Utility::Fatal;
using Corrade::Utility::Warning;

typedef Math::Half Half;

typedef Math::Vector2<Float> Vector2;
typedef Math::Vector3<Float> Vector3;
typedef Math::Vector4<Float> Vector4;
typedef Math::Vector2<Int> Vector2i;
typedef Math::Vector3<Int> Vector3i;
typedef Math::Vector4<Int> Vector4i;
typedef Math::Vector2<UnsignedInt> Vector2ui;
typedef Math::Vector3<UnsignedInt> Vector3ui;
typedef Math::Vector4<UnsignedInt> Vector4ui;
typedef Math::Vector2<UnsignedByte> Vector2ub;
typedef Math::Vector3<UnsignedByte> Vector3ub;
typedef Math::Vector4<UnsignedByte> Vector4ub;
typedef Math::Vector2<Byte> Vector2b;
typedef Math::Vector3<Byte> Vector3b;
typedef Math::Vector4<Byte> Vector4b;
typedef Math::Vector2<UnsignedShort> Vector2us;
typedef Math::Vector3<UnsignedShort> Vector3us;
typedef Math::Vector4<UnsignedShort> Vector4us;
typedef Math::Vector2<Short> Vector2s;
typedef Math::Vector3<Short> Vector3s;
typedef Math::Vector4<Short> Vector4s;
typedef Math::Vector2<Half> Vector2h;
typedef Math::Vector3<Half> Vector3h;
typedef Math::Vector4<Half> Vector4h;
typedef Math::Vector2<Double> Vector2d;
typedef Math::Vector3<Double> Vector3d;
typedef Math::Vector4<Double> Vector4d;

typedef Math::Color3<Float> Color3;
typedef Math::Color4<Float> Color4;
typedef Math::Color3<UnsignedByte> Color3ub;
typedef Math::Color4<UnsignedByte> Color4ub;
typedef Math::Color3<UnsignedShort> Color3us;
typedef Math::Color4<UnsignedShort> Color4us;

typedef Math::Matrix2x2<Float> Matrix2x2;
typedef Math::Matrix3x3<Float> Matrix3x3;
typedef Math::Matrix4x4<Float> Matrix4x4;
typedef Math::Matrix3<Float> Matrix3;
typedef Math::Matrix4<Float> Matrix4;

typedef Math::Complex<Float> Complex;
typedef Math::Quaternion<Float> Quaternion;
typedef Math::DualQuaternion<Float> DualQuaternion;

typedef Math::Deg<Float> Deg;
typedef Math::Rad<Float> Rad;
typedef Math::Constants<Float> Constants;

typedef Math::Range1D<Float> Range1D;
typedef Math::Range2D<Float> Range2D;
typedef Math::Range3D<Float> Range3D;
typedef Math::Range1D<Int> Range1Di;
typedef Math::Range2D<Int> Range2Di;
typedef Math::Range3D<Int> Range3Di;

typedef Math::Frustum<Float> Frustum;

enum class MeshPrimitive : UnsignedInt;
enum class MeshIndexType : UnsignedInt;
enum class VertexFormat : UnsignedInt;
enum class PixelFormat : UnsignedInt;
enum class CompressedPixelFormat : UnsignedInt;
enum class SamplerFilter : UnsignedInt;
enum class SamplerMipmap : UnsignedInt;
enum class SamplerWrapping : UnsignedInt;

class PixelStorage;

template<UnsignedInt dimensions> class Image;
typedef Image<2> Image2D;

// T is const char for a view that only reads the pixels, else char.
template<UnsignedInt dimensions, class T> class ImageView;
typedef ImageView<2, const char> ImageView2D;
typedef ImageView<2, char> MutableImageView2D;

template<UnsignedInt dimensions> class CompressedImage;
typedef CompressedImage<2> CompressedImage2D;

template<UnsignedInt dimensions, class T> class CompressedImageView;
typedef CompressedImageView<2, const char> CompressedImageView2D;

}
