#include "Utils/CheckedMath.h"

#include <cmath>

#include <Corrade/Utility/Assert.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Quaternion.h>

namespace VantrelEngine {

using namespace Magnum;

Matrix4 invertedRigid(const Matrix4& matrix) {
    CORRADE_ASSERT(matrix.isRigidTransformation(),
        "Math::Matrix4::invertedRigid(): the matrix doesn't represent a rigid transformation:" << Debug::newline
                                                                                               << matrix,
        {});
    return matrix.invertedRigid();
}

Quaternion rotationFromMatrix(const Matrix3x3& matrix) {
    // Written so that NaN fails.
    CORRADE_ASSERT(std::abs(matrix.determinant() - 1.0f) < 3.0e-5f,
        "Math::Quaternion::fromMatrix(): the matrix is not a rotation:" << Debug::newline << matrix, {});
    return Quaternion::fromMatrix(matrix);
}

}
