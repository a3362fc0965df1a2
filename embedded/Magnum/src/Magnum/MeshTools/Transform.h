#pragma once

#include "Magnum/Math/DualQuaternion.h"
#include "Magnum/Math/Matrix4.h"
#include "Magnum/Math/Quaternion.h"

namespace Magnum::MeshTools {

// Of anything with vectors in it that a for loop goes through. The (dual) quaternions have to be normalized.
template<class T, class U> void transformPointsInPlace(const Math::Matrix4<T>& transformation, U&& points) {
    for(auto&& point: points) point = transformation.transformPoint(point);
}
template<class T, class U> void transformPointsInPlace(const Math::DualQuaternion<T>& transformation, U&& points) {
    for(auto&& point: points) point = transformation.transformPointNormalized(point);
}
template<class T, class U> void transformVectorsInPlace(const Math::Matrix4<T>& transformation, U&& vectors) {
    for(auto&& vector: vectors) vector = transformation.transformVector(vector);
}
template<class T, class U> void transformVectorsInPlace(const Math::Quaternion<T>& transformation, U&& vectors) {
    for(auto&& vector: vectors) vector = transformation.transformVectorNormalized(vector);
}

}
