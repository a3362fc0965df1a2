#include "GridLights.h"

#include <cmath>
#include <string>

#include <Magnum/Math/Vector3.h>

#include "GridProject.h"

namespace VantrelBench {

using namespace Magnum;
using namespace VantrelEngine;

namespace {

// A light is followed to where a hundredth is left of it.
constexpr Float LeastLight = 0.01f;

struct LightValues {
    const char* type;
    Float intensity;
    bool hasShadows;
    std::size_t cascades;
};

JsonValue light(const LightValues& values, JsonAllocator& allocator) {
    JsonValue light{rapidjson::kObjectType};
    light.AddMember("type", rapidjson::StringRef(values.type), allocator);
    light.AddMember("color",
        JsonValue{rapidjson::kArrayType}.PushBack(1, allocator).PushBack(1, allocator).PushBack(1, allocator),
        allocator);
    light.AddMember("intensity", values.intensity, allocator);
    for(const char* const key: {"outerAngle", "innerAngle", "shadowBias", "shadowNormalBias", "shadowTexelSize"})
        light.AddMember(rapidjson::StringRef(key), 0.0, allocator);
    light.AddMember("shadows", values.hasShadows, allocator);
    light.AddMember("shadowRange", 100.0, allocator);
    light.AddMember("cascadeCount", rapidjson::SizeType(values.cascades), allocator);
    return light;
}

void addObject(JsonDocument& project, const std::string& id, const Vector3& place, const LightValues& values) {
    JsonAllocator& allocator = project.GetAllocator();
    JsonValue component{rapidjson::kObjectType}, object{rapidjson::kObjectType}, translation{rapidjson::kArrayType};
    component.AddMember("type", "light", allocator);
    component.AddMember("active", true, allocator);
    component.AddMember("light", light(values, allocator), allocator);
    for(std::size_t axis = 0; axis != 3; ++axis) translation.PushBack(place[axis], allocator);
    object.AddMember("name", JsonValue{id.data(), rapidjson::SizeType(id.size()), allocator}, allocator);
    object.AddMember("parent", "", allocator);
    object.AddMember("translation", translation, allocator);
    // Downwards, and away from the camera.
    JsonValue rotation{rapidjson::kArrayType};
    for(const Float number: {-0.2f, 0.0f, 0.2f, 0.959f}) rotation.PushBack(number, allocator);
    object.AddMember("rotation", rotation, allocator);
    object.AddMember("scaling",
        JsonValue{rapidjson::kArrayType}.PushBack(1, allocator).PushBack(1, allocator).PushBack(1, allocator),
        allocator);
    object.AddMember("components", JsonValue{rapidjson::kArrayType}.PushBack(component, allocator), allocator);
    project["objects"].AddMember(JsonValue{id.data(), rapidjson::SizeType(id.size()), allocator}, object, allocator);
}

}

void addSun(JsonDocument& project, std::size_t cascades) {
    addObject(project, "sun", {}, {"sun", 2.0f, true, cascades});
}

void addPointLights(JsonDocument& project, std::size_t count) {
    const auto columns = std::size_t(std::ceil(std::sqrt(double(count))));
    const Float step = 2.0f / Float(columns ? columns : 1);
    const Float reach = (gridPlace({step, 0.0f}) - gridPlace({0.0f, 0.0f})).length();
    for(std::size_t i = 0; i != count; ++i) {
        const Vector2 part{(Float(i % columns) + 0.5f) * step - 1.0f, (Float(i / columns) + 0.5f) * step - 1.0f};
        addObject(project, "light" + std::to_string(i), gridPlace(part, 0.25f * reach),
            {"point", LeastLight * reach * reach, false, 0});
    }
}

}
