#include "Import/Converter/Shadows.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include <Magnum/Math/Functions.h>

namespace VantrelImport {

using namespace Magnum;

namespace {

// Each shadow of a point is six pictures of the scene.
constexpr std::size_t FewLights = 4;

struct Box {
    Vector3 lowest{std::numeric_limits<float>::max()}, highest{-std::numeric_limits<float>::max()};

    void add(const Vector3& point) {
        lowest = Math::min(lowest, point);
        highest = Math::max(highest, point);
    }
    bool isEmpty() const { return lowest.x() > highest.x(); }
    Vector3 corner(unsigned number) const {
        return {(number & 1 ? highest : lowest).x(), (number & 2 ? highest : lowest).y(),
            (number & 4 ? highest : lowest).z()};
    }
};

Box boxOf(const Mesh& mesh) {
    Box box;
    for(const Vector3& position: mesh.positions) box.add(position);
    return box;
}

Matrix4 placeOf(const Node& node) {
    return Matrix4::from(node.rotation.toMatrix(), node.translation) * Matrix4::scaling(node.scaling);
}

} // namespace

float diagonal(const Model& model) {
    std::vector<Box> boxes;
    for(const Mesh& mesh: model.meshes) boxes.push_back(boxOf(mesh));
    std::vector<Matrix4> places;
    Box all;
    for(const Node& node: model.nodes) {
        const Matrix4 place = placeOf(node);
        places.push_back(node.parent == Nothing ? place : places[std::size_t(node.parent)] * place);
        for(const int mesh: node.meshes) {
            const Box& box = boxes[std::size_t(mesh)];
            for(unsigned i = 0; i != 8 && !box.isEmpty(); ++i) all.add(places.back().transformPoint(box.corner(i)));
        }
    }
    const float length = all.isEmpty() ? 0.0f : (all.highest - all.lowest).length();
    return std::isfinite(length) ? length : 0.0f;
}

Shadows::Shadows(const Model& model): _diagonal{diagonal(model)} {
    for(const Node& node: model.nodes) {
        if(!node.light) continue;
        ++_lights;
        if(!_sun && node.light->type == LightType::Sun) _sun = &*node.light;
    }
}

bool Shadows::has(const Light& light) const {
    if(light.type == LightType::Sun) return &light == _sun && _diagonal > 0.0f;
    return light.range && _lights <= FewLights;
}

// A sun's begins at the camera, which is about a diagonal away when it sees everything; shadows fade at the end.
float Shadows::range(const Light& light) const {
    return light.type == LightType::Sun ? 2.0f * _diagonal : light.range.value_or(_diagonal);
}

} // namespace VantrelImport
