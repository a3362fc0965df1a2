#pragma once
// Forward declarations of everything in Math, without a definition of anything.

#include <cstddef>

namespace Magnum::Math {

template<class> struct Constants;
class Half;

template<std::size_t> class BitVector;

template<template<class> class, class> class Unit;
template<class> class Deg;
template<class> class Rad;

template<std::size_t, class> class Vector;
template<class> class Vector2;
template<class> class Vector3;
template<class> class Vector4;
template<class> class Color3;
template<class> class Color4;
template<class> struct ColorHsv;

template<std::size_t, std::size_t, class> class RectangularMatrix;
template<std::size_t, class> class Matrix;
template<class T> using Matrix2x2 = Matrix<2, T>;
template<class T> using Matrix3x3 = Matrix<3, T>;
template<class T> using Matrix4x4 = Matrix<4, T>;
template<class> class Matrix3;
template<class> class Matrix4;

template<class> class Complex;
template<class> class Quaternion;
template<class> class DualQuaternion;

template<std::size_t, class> class Range;
template<class T> using Range1D = Range<1, T>;
template<class> class Range2D;
template<class> class Range3D;
template<class> class Frustum;

template<class> struct TypeTraits;

}
