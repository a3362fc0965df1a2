#include "Renderer/Debug/ColliderShapes.h"

#include <cstring>

#include <Corrade/Containers/Pair.h>
#include <Magnum/GL/Attribute.h>
#include <Magnum/Math/Functions.h>
#include <Vantrel/EngineData/Scene.h>

#include "Renderer/Debug/LineProgram.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;
using namespace Math::Literals;

namespace {

typedef GL::Attribute<0, Vector3> Position;
typedef GL::Attribute<8, Matrix4> Transformation;

// Of CollisionManager::EnumValuesCollider.
constexpr UnsignedByte Sphere = 0;
constexpr UnsignedByte SceneBox = 1;

constexpr int CircleSegments = 48;

// One circle about each axis.
std::vector<Vector3> sphereLines() {
    std::vector<Vector3> lines;
    for(std::size_t axis = 0; axis != 3; ++axis)
        for(int i = 0; i != 2 * CircleSegments; ++i) {
            // Each segment goes to where the next one starts.
            const Containers::Pair<Float, Float> direction =
                Math::sincos(Rad{360.0_degf} * Float((i + 1) / 2) / Float(CircleSegments));
            Vector3 point;
            point[(axis + 1) % 3] = direction.second();
            point[(axis + 2) % 3] = direction.first();
            lines.push_back(point);
        }
    return lines;
}

// From each corner along each axis where that goes up.
std::vector<Vector3> boxLines() {
    std::vector<Vector3> lines;
    for(unsigned corner = 0; corner != 8; ++corner)
        for(unsigned axis = 0; axis != 3; ++axis) {
            if(corner >> axis & 1) continue;
            Vector3 point;
            for(unsigned i = 0; i != 3; ++i) point[i] = corner >> i & 1 ? 1.0f : -1.0f;
            lines.push_back(point);
            point[axis] = 1.0f;
            lines.push_back(point);
        }
    return lines;
}

} // namespace

void findColliders(Scene& scene, ColliderPlaces& places) {
    places.spheres.clear();
    places.boxes.clear();
    CollisionManager& colliders = scene.collisions;
    for(const Id collider: colliders.components().prefix(colliders.numActiveComponents())) {
        const DualQuaternion object = scene.absoluteTransformation(colliders.object(collider));
        const Vector3 extents = colliders.extents(collider);
        const UnsignedByte kind = colliders.collider(collider);
        if(kind == Sphere)
            places.spheres.push_back(
                Matrix4::translation(object.translation()) * Matrix4::scaling(Vector3{extents.x()}));
        else
            places.boxes.push_back((kind == SceneBox ? Matrix4::translation(object.translation()) : object.toMatrix()) *
                Matrix4::scaling(extents));
    }
}

ColliderShapes::ColliderShapes() {
    make(_spheres, sphereLines());
    make(_boxes, boxLines());
}

void ColliderShapes::make(Shape& shape, const std::vector<Vector3>& lines) {
    GL::Buffer vertices{GL::Buffer::TargetHint::Array, vectorView(lines)};
    vertices.setLabel("Collider lines");
    shape.places.setLabel("Collider places");
    shape.mesh.setCount(Int(lines.size()))
        .addVertexBuffer(std::move(vertices), 0, Position{})
        .addVertexBufferInstanced(shape.places, 1, 0, Transformation{})
        .setLabel("Collider shapes");
}

void ColliderShapes::update(Scene& scene) {
    findColliders(scene, _places);
    upload(_spheres, _places.spheres);
    upload(_boxes, _places.boxes);
}

void ColliderShapes::clear() {
    _spheres.uploaded.clear();
    _boxes.uploaded.clear();
}

void ColliderShapes::upload(Shape& shape, const std::vector<Matrix4>& places) {
    const std::size_t size = places.size() * sizeof(Matrix4);
    if(places.empty() ||
        (places.size() == shape.uploaded.size() && !std::memcmp(places.data(), shape.uploaded.data(), size))) {
        shape.uploaded = places;
        return;
    }
    shape.uploaded = places;
    shape.places.setData(vectorView(places), GL::BufferUsage::DynamicDraw);
    _uploadedBytes += size;
}

std::size_t ColliderShapes::draw(LineProgram& program, const Matrix4& viewProjection, const Color4& color) {
    std::size_t calls = 0;
    for(Shape* const shape: {&_spheres, &_boxes}) {
        if(shape->uploaded.empty()) continue;
        shape->mesh.setInstanceCount(Int(shape->uploaded.size()));
        program.setViewProjection(viewProjection).setColor(color).draw(shape->mesh);
        ++calls;
    }
    return calls;
}

} // namespace VantrelEngine
