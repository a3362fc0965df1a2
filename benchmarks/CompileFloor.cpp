#include "CompileFloor.h"

#include <cstdint>
#include <cstring>
#include <string_view>
#include <vector>

#include "Measure.h"

namespace VantrelBench {

using namespace VantrelEngine;

namespace {

template<std::size_t size> struct Numbers { float values[size]; };

struct Entity {
    std::string_view id, name, parent, skin;
    Numbers<3> translation, scaling;
    Numbers<4> rotation;
};
struct Mesh {
    std::size_t entity;
    std::string_view mesh, material, skin;
    bool isActive;
};
struct Collision {
    std::size_t entity;
    std::string_view collider;
    Numbers<3> extents;
    unsigned groups;
    bool isActive;
};
struct Light {
    std::size_t entity;
    std::string_view type;
    Numbers<3> color;
    float intensity, outerAngle, innerAngle, shadowRange, shadowBias, shadowNormalBias, shadowTexelSize;
    int cascadeCount;
    bool hasShadows, isActive;
};
struct View {
    std::size_t entity;
    float fov, near, far;
    bool isActive;
};
struct Input {
    std::size_t entity;
    std::string_view type;
    bool isActive;
};

const JsonValue* find(const JsonValue& object, std::string_view key) {
    for(auto member = object.MemberBegin(); member != object.MemberEnd(); ++member)
        if(member->name.GetStringLength() == key.size() &&
            std::memcmp(member->name.GetString(), key.data(), key.size()) == 0)
            return &member->value;
    return nullptr;
}

std::string_view text(const JsonValue& object, std::string_view key) {
    const JsonValue* const value = find(object, key);
    if(!value || !value->IsString()) return {};
    return {value->GetString(), value->GetStringLength()};
}

float number(const JsonValue& object, std::string_view key) {
    const JsonValue* const value = find(object, key);
    return value && value->IsNumber() ? float(value->GetDouble()) : 0.0f;
}

bool truth(const JsonValue& object, std::string_view key) {
    const JsonValue* const value = find(object, key);
    return value && value->IsTrue();
}

template<std::size_t size> Numbers<size> numbers(const JsonValue& object, std::string_view key) {
    const JsonValue* const value = find(object, key);
    Numbers<size> numbers{};
    if(value && value->IsArray() && value->Size() == size)
        for(std::size_t i = 0; i != size; ++i) numbers.values[i] = float((*value)[rapidjson::SizeType(i)].GetDouble());
    return numbers;
}

class Arrays {
public:
    void addEntity(const JsonDocument::ConstMemberIterator& object) {
        const JsonValue& json = object->value;
        _entities.push_back({{object->name.GetString(), object->name.GetStringLength()}, text(json, "name"),
            text(json, "parent"), text(json, "skin"), numbers<3>(json, "translation"), numbers<3>(json, "scaling"),
            numbers<4>(json, "rotation")});
        const JsonValue* const components = find(json, "components");
        if(!components || !components->IsArray()) return;
        for(const JsonValue& component: components->GetArray()) addComponent(component);
    }

    std::size_t componentCount() const {
        return _meshes.size() + _collisions.size() + _lights.size() + _views.size() + _inputs.size();
    }

    void keepAll() const {
        keep(_entities.data());
        keep(_meshes.data());
        keep(_collisions.data());
        keep(_lights.data());
        keep(_views.data());
        keep(_inputs.data());
    }

private:
    void addComponent(const JsonValue& json) {
        const std::string_view type = text(json, "type");
        const JsonValue* const properties = find(json, type);
        if(!properties) return;
        const std::size_t entity = _entities.size() - 1;
        const bool isActive = truth(json, "active");
        if(type == "collision")
            addCollision(entity, *properties, isActive);
        else if(type == "input")
            _inputs.push_back({entity, text(*properties, "type"), isActive});
        else if(type == "view")
            _views.push_back({entity, number(*properties, "fov"), number(*properties, "near"),
                number(*properties, "far"), isActive});
        else if(type == "light")
            addLight(entity, *properties, isActive);
        else if(type == "mesh")
            _meshes.push_back({entity, text(*properties, "mesh"), text(*properties, "material"),
                text(*properties, "skin"), isActive});
    }

    void addCollision(std::size_t entity, const JsonValue& json, bool isActive) {
        const std::string_view collider = text(json, "collider");
        Collision collision{entity, collider, {}, unsigned(number(json, "groups")), isActive};
        if(const JsonValue* const size = find(json, collider)) {
            if(collider == "sphere")
                collision.extents.values[0] = number(*size, "radius");
            else
                collision.extents = numbers<3>(*size, "extents");
        }
        _collisions.push_back(collision);
    }

    void addLight(std::size_t entity, const JsonValue& json, bool isActive) {
        _lights.push_back({entity, text(json, "type"), numbers<3>(json, "color"), number(json, "intensity"),
            number(json, "outerAngle"), number(json, "innerAngle"), number(json, "shadowRange"),
            number(json, "shadowBias"), number(json, "shadowNormalBias"), number(json, "shadowTexelSize"),
            int(number(json, "cascadeCount")), truth(json, "shadows"), isActive});
    }

    std::vector<Entity> _entities;
    std::vector<Mesh> _meshes;
    std::vector<Collision> _collisions;
    std::vector<Light> _lights;
    std::vector<View> _views;
    std::vector<Input> _inputs;
};

}

std::size_t compileFloor(const JsonValue& objects) {
    Arrays arrays;
    for(auto object = objects.MemberBegin(); object != objects.MemberEnd(); ++object) arrays.addEntity(object);
    arrays.keepAll();
    return arrays.componentCount();
}

}
