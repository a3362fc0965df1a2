#include <random>
#include <vector>

#include <Magnum/Magnum.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>

#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace Magnum;
using namespace Math::Literals;

namespace {

// As many as a scene has objects at most.
constexpr std::size_t Count = 65534;

std::vector<float> randomFloats(std::size_t count) {
    std::mt19937 generator{1};
    std::uniform_real_distribution<float> distribution{-10.0f, 10.0f};
    std::vector<float> values(count);
    for(float& value: values) value = distribution(generator);
    return values;
}

Matrix4 someMatrix() {
    return Matrix4::perspectiveProjection(60.0_degf, 1.5f, 0.1f, 100.0f) *
        Matrix4::rotation(33.0_degf, Vector3{1.0f, 2.0f, 3.0f}.normalized());
}

// Column-major, as the library stores it.
void transformPlain(const float* m, const float* in, float* out) {
    for(std::size_t i = 0; i != Count; ++i)
        for(std::size_t row = 0; row != 4; ++row)
            out[4 * i + row] = m[row] * in[4 * i] + m[4 + row] * in[4 * i + 1] + m[8 + row] * in[4 * i + 2] +
                m[12 + row] * in[4 * i + 3];
}

Result matrixTimesVector() {
    const Matrix4 matrix = someMatrix();
    const std::vector<float> values = randomFloats(4 * Count);
    std::vector<Vector4> in(Count), out(Count);
    for(std::size_t i = 0; i != Count; ++i)
        in[i] = {values[4 * i], values[4 * i + 1], values[4 * i + 2], values[4 * i + 3]};
    std::vector<float> plainOut(4 * Count);
    return measurePairs(
        "math", "matrix4_times_vector4_65534",
        [&] {
            for(std::size_t i = 0; i != Count; ++i) out[i] = matrix * in[i];
            keep(out[0]);
        },
        [&] {
            transformPlain(matrix.data(), values.data(), plainOut.data());
            keep(plainOut[0]);
        });
}

Result matrixTimesMatrix() {
    const Matrix4 matrix = someMatrix();
    const std::vector<float> values = randomFloats(16 * 4096);
    std::vector<Matrix4> in(4096), out(4096);
    for(std::size_t i = 0; i != in.size(); ++i)
        for(std::size_t j = 0; j != 16; ++j) in[i].data()[j] = values[16 * i + j];
    std::vector<float> plainOut(values.size());
    return measurePairs(
        "math", "matrix4_times_matrix4_4096",
        [&] {
            for(std::size_t i = 0; i != in.size(); ++i) out[i] = matrix * in[i];
            keep(out[0]);
        },
        [&] {
            const float* const m = matrix.data();
            for(std::size_t i = 0; i != values.size(); i += 4)
                for(std::size_t row = 0; row != 4; ++row)
                    plainOut[i + row] = m[row] * values[i] + m[4 + row] * values[i + 1] + m[8 + row] * values[i + 2] +
                        m[12 + row] * values[i + 3];
            keep(plainOut[0]);
        });
}

// p + 2 v x (v x p + w p) is the rotation, 2 (w d - e v + v x d) the translation, for the real part (v, w) and the dual
// part (d, e).
void transformPlain(const float* q, const float* in, float* out, std::size_t count) {
    const float vx = q[0], vy = q[1], vz = q[2], w = q[3], dx = q[4], dy = q[5], dz = q[6], e = q[7];
    const float tx = 2 * (w * dx - e * vx + vy * dz - vz * dy), ty = 2 * (w * dy - e * vy + vz * dx - vx * dz),
                tz = 2 * (w * dz - e * vz + vx * dy - vy * dx);
    for(std::size_t i = 0; i != 3 * count; i += 3) {
        const float x = in[i], y = in[i + 1], z = in[i + 2];
        const float cx = vy * z - vz * y + w * x, cy = vz * x - vx * z + w * y, cz = vx * y - vy * x + w * z;
        out[i] = x + 2 * (vy * cz - vz * cy) + tx;
        out[i + 1] = y + 2 * (vz * cx - vx * cz) + ty;
        out[i + 2] = z + 2 * (vx * cy - vy * cx) + tz;
    }
}

DualQuaternion someDualQuaternion(float angle) {
    return DualQuaternion::translation({1.0f, -2.0f, 3.0f}) *
        DualQuaternion::rotation(Deg{angle}, Vector3{1.0f, 2.0f, 3.0f}.normalized());
}

Result dualQuaternionPoints() {
    const std::vector<float> values = randomFloats(3 * Count);
    std::vector<Vector3> in(Count), out(Count);
    for(std::size_t i = 0; i != Count; ++i) in[i] = {values[3 * i], values[3 * i + 1], values[3 * i + 2]};
    // One transformation an object, as in a scene.
    std::vector<DualQuaternion> transformations(Count);
    for(std::size_t i = 0; i != Count; ++i) transformations[i] = someDualQuaternion(float(i % 360));
    std::vector<float> plainOut(3 * Count);
    return measurePairs(
        "math", "dual_quaternion_transform_point_65534",
        [&] {
            for(std::size_t i = 0; i != Count; ++i) out[i] = transformations[i].transformPointNormalized(in[i]);
            keep(out[0]);
        },
        [&] {
            for(std::size_t i = 0; i != Count; ++i)
                transformPlain(transformations[i].data(), &values[3 * i], &plainOut[3 * i], 1);
            keep(plainOut[0]);
        });
}

}

void math() {
    print(matrixTimesVector());
    print(matrixTimesMatrix());
    print(dualQuaternionPoints());
}

}
