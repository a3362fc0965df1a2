#include <functional>

#include "Expect.h"

using namespace Magnum;
using namespace Math::Literals;

namespace {

const Vector3 Long{1.0f, 2.0f, 3.0f};
const Quaternion LongQuaternion{Long, 4.0f};
const DualQuaternion LongDualQuaternion{LongQuaternion, Quaternion{}};
const Matrix4 Enlarged = Matrix4::scaling(Vector3{1.001f});
const Matrix4 Sheared{
    {1.0f, 0.0f, 0.0f, 0.0f}, {0.5f, 1.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 1.0f, 0.0f}, {1.0f, 2.0f, 3.0f, 1.0f}};
const Matrix4 Mirrored = Matrix4::reflection(Vector3::xAxis());

struct Failure {
    const char* name;
    std::function<void()> call;
    const char* message;
};

// Keeps a result that nobody needs.
template<class T> void use(const T& value) {
    const volatile char byte = *reinterpret_cast<const volatile char*>(&value);
    (void)byte;
}

const Failure Failures[]{
    {"VectorAngle", [] { use(Math::angle(Long, Vector3::xAxis())); },
        "Math::angle(): vectors Vector(1, 2, 3) and Vector(1, 0, 0) are not normalized\n"},
    {"VectorAngleSecond",
        [] {
            use(Math::angle(Vector2{1.0f, 0.0f}, Vector2{2.0f, 0.0f}));
        },
        "Math::angle(): vectors Vector(1, 0) and Vector(2, 0) are not normalized\n"},
    {"Reflect", [] { use(Math::reflect(Long, Long)); }, "Math::reflect(): normal Vector(1, 2, 3) is not normalized\n"},
    {"Refract", [] { use(Math::refract(Vector3::xAxis(), Long, 1.0f)); },
        "Math::refract(): vectors Vector(1, 0, 0) and Vector(1, 2, 3) are not normalized\n"},
    {"MatrixRotationAxis", [] { use(Matrix4::rotation(30.0_degf, Long)); },
        "Math::Matrix4::rotation(): axis Vector(1, 2, 3) is not normalized\n"},
    {"MatrixReflection", [] { use(Matrix4::reflection(Long)); },
        "Math::Matrix4::reflection(): normal Vector(1, 2, 3) is not normalized\n"},
    {"MatrixRotation", [] { use(Sheared.rotation()); },
        "Math::Matrix4::rotation(): the normalized rotation part is not orthogonal:\n"
        "Matrix(1, 0.447214, 0,\n       0, 0.894427, 0,\n       0, 0, 1)\n"},
    {"MatrixRotationNormalized", [] { use(Enlarged.rotationNormalized()); },
        "Math::Matrix4::rotationNormalized(): the rotation part is not orthogonal:\n"
        "Matrix(1.001, 0, 0,\n       0, 1.001, 0,\n       0, 0, 1.001)\n"},
    {"UniformScaling",
        [] {
            use(Matrix4::scaling({1.0f, 1.0f, 3.0f}).uniformScaling());
        },
        "Math::Matrix4::uniformScaling(): the matrix doesn't have uniform scaling:\n"
        "Matrix(1, 0, 0,\n       0, 1, 0,\n       0, 0, 3)\n"},
    {"InvertedRigid", [] { use(Enlarged.invertedRigid()); },
        "Math::Matrix4::invertedRigid(): the matrix doesn't represent a rigid transformation:\n"
        "Matrix(1.001, 0, 0, 0,\n       0, 1.001, 0, 0,\n       0, 0, 1.001, 0,\n       0, 0, 0, 1)\n"},
    {"QuaternionRotation", [] { use(Quaternion::rotation(30.0_degf, Long)); },
        "Math::Quaternion::rotation(): axis Vector(1, 2, 3) is not normalized\n"},
    {"QuaternionRotationBetween", [] { use(Quaternion::rotation(Vector3::xAxis(), Long)); },
        "Math::Quaternion::rotation(): vectors Vector(1, 0, 0) and Vector(1, 2, 3) are not normalized\n"},
    {"QuaternionFromScaling", [] { use(Quaternion::fromMatrix(Enlarged.rotationScaling())); },
        "Math::Quaternion::fromMatrix(): the matrix is not a rotation:\n"
        "Matrix(1.001, 0, 0,\n       0, 1.001, 0,\n       0, 0, 1.001)\n"},
    {"QuaternionFromReflection", [] { use(Quaternion::fromMatrix(Mirrored.rotationScaling())); },
        "Math::Quaternion::fromMatrix(): the matrix is not a rotation:\n"
        "Matrix(-1, 0, 0,\n       0, 1, 0,\n       0, 0, 1)\n"},
    {"QuaternionFromAlmostRotation",
        [] {
            use(Quaternion::fromMatrix(Matrix4::scaling({1.000031f, 1.0f, 1.0f}).rotationScaling()));
        },
        "Math::Quaternion::fromMatrix(): the matrix is not a rotation:\n"},
    {"QuaternionAngle", [] { use(LongQuaternion.angle()); },
        "Math::Quaternion::angle(): Quaternion({1, 2, 3}, 4) is not normalized\n"},
    {"QuaternionAxis", [] { use(LongQuaternion.axis()); },
        "Math::Quaternion::axis(): Quaternion({1, 2, 3}, 4) is not normalized\n"},
    {"QuaternionInvertedNormalized", [] { use(LongQuaternion.invertedNormalized()); },
        "Math::Quaternion::invertedNormalized(): Quaternion({1, 2, 3}, 4) is not normalized\n"},
    {"QuaternionTransformVectorNormalized", [] { use(LongQuaternion.transformVectorNormalized(Long)); },
        "Math::Quaternion::transformVectorNormalized(): Quaternion({1, 2, 3}, 4) is not normalized\n"},
    {"QuaternionToEuler", [] { use(LongQuaternion.toEuler()); },
        "Math::Quaternion::toEuler(): Quaternion({1, 2, 3}, 4) is not normalized\n"},
    {"Lerp", [] { use(Math::lerp(Quaternion{}, LongQuaternion, 0.5f)); },
        "Math::lerp(): quaternions Quaternion({0, 0, 0}, 1) and Quaternion({1, 2, 3}, 4) are not normalized\n"},
    {"LerpShortestPath", [] { use(Math::lerpShortestPath(LongQuaternion, LongQuaternion, 0.5f)); },
        "Math::lerp(): quaternions Quaternion({1, 2, 3}, 4) and Quaternion({1, 2, 3}, 4) are not normalized\n"},
    {"Slerp", [] { use(Math::slerp(LongQuaternion, Quaternion{}, 0.5f)); },
        "Math::slerp(): quaternions Quaternion({1, 2, 3}, 4) and Quaternion({0, 0, 0}, 1) are not normalized\n"},
    {"SlerpShortestPath", [] { use(Math::slerpShortestPath(Quaternion{}, LongQuaternion, 0.5f)); },
        "Math::slerpShortestPath(): quaternions Quaternion({0, 0, 0}, 1) and Quaternion({1, 2, 3}, 4) are not "
        "normalized\n"},
    {"DualQuaternionRotation", [] { use(DualQuaternion::rotation(30.0_degf, Long)); },
        "Math::Quaternion::rotation(): axis Vector(1, 2, 3) is not normalized\n"},
    {"DualQuaternionFromMatrix", [] { use(DualQuaternion::fromMatrix(Enlarged)); },
        "Math::DualQuaternion::fromMatrix(): the matrix doesn't represent a rigid transformation:\n"
        "Matrix(1.001, 0, 0, 0,\n       0, 1.001, 0, 0,\n       0, 0, 1.001, 0,\n       0, 0, 0, 1)\n"},
    {"DualQuaternionInvertedNormalized", [] { use(LongDualQuaternion.invertedNormalized()); },
        "Math::DualQuaternion::invertedNormalized(): DualQuaternion({{1, 2, 3}, 4}, {{0, 0, 0}, 1}) is not "
        "normalized\n"},
    {"DualQuaternionTransformVectorNormalized", [] { use(LongDualQuaternion.transformVectorNormalized(Long)); },
        "Math::Quaternion::transformVectorNormalized(): Quaternion({1, 2, 3}, 4) is not normalized\n"},
    {"DualQuaternionTransformPointNormalized", [] { use(LongDualQuaternion.transformPointNormalized(Long)); },
        "Math::DualQuaternion::transformPointNormalized(): DualQuaternion({{1, 2, 3}, 4}, {{0, 0, 0}, 1}) is not "
        "normalized\n"},
    {"Sclerp", [] { use(Math::sclerp(LongDualQuaternion, DualQuaternion{}, 0.5f)); },
        "Math::sclerp(): dual quaternions DualQuaternion({{1, 2, 3}, 4}, {{0, 0, 0}, 1}) and "
        "DualQuaternion({{0, 0, 0}, 1}, {{0, 0, 0}, 0}) are not normalized\n"},
    {"SclerpShortestPath", [] { use(Math::sclerpShortestPath(DualQuaternion{}, LongDualQuaternion, 0.5f)); },
        "Math::sclerp(): dual quaternions DualQuaternion({{0, 0, 0}, 1}, {{0, 0, 0}, 0}) and "
        "DualQuaternion({{1, 2, 3}, 4}, {{0, 0, 0}, 1}) are not normalized\n"},
};

class MathAssertTest: public testing::TestWithParam<Failure> {};

TEST_P(MathAssertTest, printsAndAborts) { EXPECT_ABORT(GetParam().call(), GetParam().message); }

INSTANTIATE_TEST_SUITE_P(Failures, MathAssertTest, testing::ValuesIn(Failures),
    [](const testing::TestParamInfo<Failure>& info) { return std::string{info.param.name}; });

}
