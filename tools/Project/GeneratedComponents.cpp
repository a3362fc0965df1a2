#include "Project/GeneratedComponents.h"

#include <iterator>

namespace VantrelTools {

using namespace VantrelEngine;

namespace {

template<std::size_t size> const char* oneOf(const char* const (&choices)[size], GeneratedNumbers& numbers) {
    return choices[numbers.below(size)];
}

JsonValue text(const char* text) { return JsonValue{rapidjson::StringRef(text)}; }

JsonValue mesh(GeneratedNumbers& numbers, JsonAllocator& allocator) {
    static constexpr const char* meshes[]{"cube", "sphere", "plane", "cylinder"};
    static constexpr const char* materials[]{"clay", "slate", "moss", "brass", "iron", "red", "green", "blue"};
    JsonValue mesh{rapidjson::kObjectType};
    mesh.AddMember("mesh", text(oneOf(meshes, numbers)), allocator);
    mesh.AddMember("material", text(oneOf(materials, numbers)), allocator);
    mesh.AddMember("skin", "", allocator);
    return mesh;
}

JsonValue extents(GeneratedNumbers& numbers, JsonAllocator& allocator) {
    JsonValue vector{rapidjson::kArrayType};
    for(int i = 0; i != 3; ++i) vector.PushBack(numbers.between(0.1, 2.0), allocator);
    JsonValue size{rapidjson::kObjectType};
    size.AddMember("extents", vector, allocator);
    return size;
}

JsonValue collision(GeneratedNumbers& numbers, JsonAllocator& allocator) {
    static constexpr const char* colliders[]{"sphere", "aabb", "obb"};
    JsonValue sphere{rapidjson::kObjectType};
    sphere.AddMember("radius", numbers.between(0.1, 2.0), allocator);
    JsonValue collision{rapidjson::kObjectType};
    collision.AddMember("collider", text(oneOf(colliders, numbers)), allocator);
    collision.AddMember("sphere", sphere, allocator);
    collision.AddMember("aabb", extents(numbers, allocator), allocator);
    collision.AddMember("obb", extents(numbers, allocator), allocator);
    collision.AddMember("groups", unsigned(1 + numbers.below(255)), allocator);
    return collision;
}

JsonValue light(GeneratedNumbers& numbers, JsonAllocator& allocator) {
    static constexpr const char* types[]{"point", "spot", "sun"};
    JsonValue color{rapidjson::kArrayType};
    for(int i = 0; i != 3; ++i) color.PushBack(numbers.between(0.3, 1.0), allocator);
    JsonValue light{rapidjson::kObjectType};
    light.AddMember("type", text(oneOf(types, numbers)), allocator);
    light.AddMember("color", color, allocator);
    light.AddMember("intensity", numbers.between(0.5, 20.0), allocator);
    light.AddMember("outerAngle", numbers.between(30.0, 60.0), allocator);
    light.AddMember("innerAngle", numbers.between(10.0, 30.0), allocator);
    light.AddMember("shadows", numbers.below(2) == 0, allocator);
    light.AddMember("shadowRange", numbers.between(10.0, 50.0), allocator);
    light.AddMember("shadowBias", 0.001, allocator);
    light.AddMember("shadowNormalBias", 0.02, allocator);
    light.AddMember("shadowTexelSize", 0.01, allocator);
    light.AddMember("cascadeCount", 1 + int(numbers.below(4)), allocator);
    return light;
}

JsonValue view(GeneratedNumbers& numbers, JsonAllocator& allocator) {
    JsonValue view{rapidjson::kObjectType};
    view.AddMember("fov", numbers.between(30.0, 90.0), allocator);
    view.AddMember("near", 0.1, allocator);
    view.AddMember("far", numbers.between(100.0, 1000.0), allocator);
    return view;
}

JsonValue input(GeneratedNumbers& numbers, JsonAllocator& allocator) {
    static constexpr const char* types[]{"keyboard", "mouse", "gamepad", "touch"};
    JsonValue input{rapidjson::kObjectType};
    input.AddMember("type", text(oneOf(types, numbers)), allocator);
    return input;
}

struct Kind {
    const char* type;
    JsonValue (*make)(GeneratedNumbers& numbers, JsonAllocator& allocator);
    // Of 100 objects of the mix, so many have one.
    std::size_t frequency;
};

constexpr Kind Kinds[]{
    {"mesh", mesh, 70}, {"collision", collision, 30}, {"light", light, 4}, {"view", view, 2}, {"input", input, 6}};

void add(JsonValue& components, const Kind& kind, GeneratedNumbers& numbers, JsonAllocator& allocator) {
    JsonValue component{rapidjson::kObjectType};
    component.AddMember("type", text(kind.type), allocator);
    component.AddMember("active", numbers.below(20) != 0, allocator);
    component.AddMember(text(kind.type), kind.make(numbers, allocator), allocator);
    components.PushBack(component, allocator);
}

}

JsonValue generatedComponents(std::optional<std::size_t> count, GeneratedNumbers& numbers, JsonAllocator& allocator) {
    JsonValue components{rapidjson::kArrayType};
    if(count)
        for(std::size_t i = 0; i != *count; ++i) add(components, Kinds[i % std::size(Kinds)], numbers, allocator);
    else
        for(const Kind& kind: Kinds)
            if(numbers.below(100) < kind.frequency) add(components, kind, numbers, allocator);
    return components;
}

}
