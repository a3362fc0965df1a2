#include "TransformFloor.h"

#include <algorithm>
#include <cmath>

#include "Measure.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

// p + 2 v x (v x p + w p)
inline void rotate(const float* q, const float* p, float* out) {
    const float cx = q[1] * p[2] - q[2] * p[1] + q[3] * p[0], cy = q[2] * p[0] - q[0] * p[2] + q[3] * p[1],
                cz = q[0] * p[1] - q[1] * p[0] + q[3] * p[2];
    out[0] = p[0] + 2 * (q[1] * cz - q[2] * cy);
    out[1] = p[1] + 2 * (q[2] * cx - q[0] * cz);
    out[2] = p[2] + 2 * (q[0] * cy - q[1] * cx);
}

inline void multiply(const float* a, const float* b, float* out) {
    const float x = a[3] * b[0] + a[0] * b[3] + a[1] * b[2] - a[2] * b[1],
                y = a[3] * b[1] - a[0] * b[2] + a[1] * b[3] + a[2] * b[0],
                z = a[3] * b[2] + a[0] * b[1] - a[1] * b[0] + a[2] * b[3],
                w = a[3] * b[3] - a[0] * b[0] - a[1] * b[1] - a[2] * b[2];
    const float length = std::sqrt(x * x + y * y + z * z + w * w);
    out[0] = x / length;
    out[1] = y / length;
    out[2] = z / length;
    out[3] = w / length;
}

}

TransformFloor::TransformFloor(const DynamicSceneGraph& graph):
    _parents(graph.size()), _local(graph.size()), _absolute(graph.size()) {
    _local[0] = _absolute[0] = {{0, 0, 0, 1}, {0, 0, 0}, {1, 1, 1}};
    for(std::size_t index = 1; index != graph.size(); ++index) {
        const Id object = graph.toId(index);
        _parents[index] = graph.toIndex(graph.parent(object));
        const DualQuaternion& local = graph.localTransformation(object);
        const Quaternion rotation = local.rotation();
        const Vector3 translation = local.translation(), scaling = graph.localScaling(object);
        _local[index] = {{rotation.vector().x(), rotation.vector().y(), rotation.vector().z(), rotation.scalar()},
            {translation.x(), translation.y(), translation.z()}, {scaling.x(), scaling.y(), scaling.z()}};
    }
}

void TransformFloor::compute() {
    for(std::size_t i = 1; i != _local.size(); ++i) {
        const Place& parent = _absolute[_parents[i]];
        const Place& local = _local[i];
        Place& absolute = _absolute[i];
        multiply(parent.rotation, local.rotation, absolute.rotation);
        float scaled[3];
        for(std::size_t axis = 0; axis != 3; ++axis) {
            scaled[axis] = parent.scaling[axis] * local.translation[axis];
            absolute.scaling[axis] = parent.scaling[axis] * local.scaling[axis];
        }
        rotate(parent.rotation, scaled, absolute.translation);
        for(std::size_t axis = 0; axis != 3; ++axis) absolute.translation[axis] += parent.translation[axis];
    }
    keep(_absolute.data());
}

double TransformFloor::differenceTo(const DynamicSceneGraph& graph) const {
    double difference = 0.0, largest = 1.0;
    for(std::size_t i = 1; i != _absolute.size(); ++i) {
        const Vector3 position = graph.absoluteTransformation(graph.toId(i)).translation();
        for(std::size_t axis = 0; axis != 3; ++axis) {
            difference = std::max(difference, double(std::abs(position[axis] - _absolute[i].translation[axis])));
            largest = std::max(largest, double(std::abs(position[axis])));
        }
    }
    return difference / largest;
}

}
