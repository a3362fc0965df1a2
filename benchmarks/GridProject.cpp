#include "GridProject.h"

#include <cmath>
#include <initializer_list>
#include <string>

#include <Magnum/Magnum.h>
#include <Magnum/Math/Angle.h>
#include <Magnum/Math/Vector3.h>

#include "Project/Generator.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

// Where the camera is at first; it looks at the origin. How far from it the grid is, and half its edge, which is seen
// under a smaller angle than a picture of any usual shape has.
constexpr Vector3 Eye{3.0f, 3.0f, 3.0f};
constexpr Float Distance = 40.0f;
constexpr Float HalfEdge = 20.0f;
// Of the space between two objects.
constexpr Float Size = 0.3f;

JsonValue text(const std::string& text, JsonAllocator& allocator) {
    return {text.data(), rapidjson::SizeType(text.size()), allocator};
}

JsonValue array(std::initializer_list<Float> numbers, JsonAllocator& allocator) {
    JsonValue value{rapidjson::kArrayType};
    for(const Float number: numbers) value.PushBack(number, allocator);
    return value;
}

struct Look {
    const char* mesh;
    const char* material;
    bool isTurned;
};

Look lookOf(std::size_t i, GridObjects objects) {
    static constexpr const char* materials[]{"clay", "red", "slate", "green"};
    if(objects == GridObjects::Backs) return {i % 2 ? "plane" : "otherPlane", "clay", true};
    return {i % 2 ? "plane" : "cube", materials[i / 2 % 4], false};
}

JsonValue components(const Look& look, JsonAllocator& allocator) {
    JsonValue mesh{rapidjson::kObjectType}, component{rapidjson::kObjectType}, all{rapidjson::kArrayType};
    mesh.AddMember("mesh", JsonValue{rapidjson::StringRef(look.mesh)}, allocator);
    mesh.AddMember("material", JsonValue{rapidjson::StringRef(look.material)}, allocator);
    mesh.AddMember("skin", "", allocator);
    component.AddMember("type", "mesh", allocator);
    component.AddMember("active", true, allocator);
    component.AddMember("mesh", mesh, allocator);
    all.PushBack(component, allocator);
    return all;
}

JsonValue object(std::size_t i, const Look& look, const Vector3& place, Float scaling, JsonAllocator& allocator) {
    JsonValue object{rapidjson::kObjectType};
    object.AddMember("name", text("Object " + std::to_string(i), allocator), allocator);
    object.AddMember("parent", "", allocator);
    object.AddMember("translation", array({place.x(), place.y(), place.z()}, allocator), allocator);
    object.AddMember("rotation",
        look.isTurned ? array({0.0f, 1.0f, 0.0f, 0.0f}, allocator) : array({0.0f, 0.0f, 0.0f, 1.0f}, allocator),
        allocator);
    object.AddMember("scaling", array({scaling, scaling, scaling}, allocator), allocator);
    object.AddMember("components", components(look, allocator), allocator);
    return object;
}

}

JsonDocument gridProject(std::size_t count, double outside, GridObjects kind) {
    VantrelTools::GeneratorOptions options;
    options.count = 0;
    JsonDocument project = VantrelTools::generateProject(options);
    JsonAllocator& allocator = project.GetAllocator();
    JsonValue& objects = project["objects"];
    JsonValue otherPlane{project["meshes"]["plane"], allocator};
    project["meshes"].AddMember("otherPlane", otherPlane, allocator);

    const auto columns = std::size_t(std::ceil(std::sqrt(double(count))));
    const Float step = 2.0f * HalfEdge / Float(columns ? columns : 1);
    for(std::size_t i = 0; i != count; ++i) {
        // Evenly among the others.
        const bool isBehind = std::floor(double(i + 1) * outside) != std::floor(double(i) * outside);
        const Vector2 part{(Float(i % columns) + 0.5f) * step, (Float(i / columns) + 0.5f) * step};
        const Vector3 place = gridPlace(part / HalfEdge - Vector2{1.0f}, isBehind ? 2.0f * Distance : 0.0f);
        objects.AddMember(text("o" + std::to_string(i), allocator),
            object(i, lookOf(i, kind), place, step * Size, allocator), allocator);
    }
    return project;
}

Vector3 gridPlace(const Vector2& part, Float before) {
    const Vector3 forward = -Eye.normalized();
    const Vector3 right = Math::cross(forward, Vector3::yAxis()).normalized();
    const Vector3 up = Math::cross(right, forward);
    return Eye + forward * (Distance - before) + (right * part.x() + up * part.y()) * HalfEdge;
}

Matrix4 gridToClip(const Vector2i& pictureSize) {
    return Matrix4::perspectiveProjection(Deg(90.0f), Vector2{pictureSize}.aspectRatio(), 0.05f, 2000.0f) *
        Matrix4::lookAt(Eye, {}, Vector3::yAxis()).invertedRigid();
}

}
