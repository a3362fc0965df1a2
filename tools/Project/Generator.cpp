#include "Project/Generator.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <string>
#include <vector>

#include <Corrade/Utility/Assert.h>
#include <Vantrel/EngineData/Types.h>

#include "Project/GeneratedComponents.h"
#include "Project/GeneratedNumbers.h"

namespace VantrelTools {

using namespace VantrelEngine;

namespace {

constexpr std::size_t Branching = 8;

constexpr const char* Resources = R"({
  "shaders": {
    "lit": {"name": "Lit", "stage": "mesh", "variant": 1, "vertex": "Dynamic.vert", "fragment": "Lit.frag",
      "parameters": [
        {"name": "baseColor", "type": "color", "default": [1, 1, 1, 1]},
        {"name": "metalness", "type": "float", "default": 0},
        {"name": "roughness", "type": "float", "default": 0.8}
      ]},
    "flat": {"name": "Flat", "stage": "mesh", "variant": 1, "vertex": "Dynamic.vert", "fragment": "Flat.frag",
      "parameters": [{"name": "color", "type": "color", "default": [1, 1, 1, 1]}]}
  },
  "pipelines": {
    "lit": {"name": "Lit", "shader": "lit", "features": []},
    "flat": {"name": "Flat", "shader": "flat", "features": [], "doubleSided": true}
  },
  "materials": {
    "clay": {"name": "Clay", "pipeline": "lit",
      "Lit": {"baseColor": [0.72, 0.42, 0.3, 1], "metalness": 0, "roughness": 0.9}},
    "slate": {"name": "Slate", "pipeline": "lit",
      "Lit": {"baseColor": [0.3, 0.33, 0.36, 1], "metalness": 0, "roughness": 0.7}},
    "moss": {"name": "Moss", "pipeline": "lit",
      "Lit": {"baseColor": [0.33, 0.45, 0.2, 1], "metalness": 0, "roughness": 1}},
    "brass": {"name": "Brass", "pipeline": "lit",
      "Lit": {"baseColor": [0.8, 0.65, 0.3, 1], "metalness": 1, "roughness": 0.35}},
    "iron": {"name": "Iron", "pipeline": "lit",
      "Lit": {"baseColor": [0.5, 0.5, 0.52, 1], "metalness": 1, "roughness": 0.5}},
    "red": {"name": "Red", "pipeline": "flat", "Flat": {"color": [0.85, 0.15, 0.1, 1]}},
    "green": {"name": "Green", "pipeline": "flat", "Flat": {"color": [0.2, 0.7, 0.25, 1]}},
    "blue": {"name": "Blue", "pipeline": "flat", "Flat": {"color": [0.15, 0.3, 0.85, 1]}}
  },
  "meshes": {
    "cube": {"name": "Cube", "primitive": "cube"},
    "sphere": {"name": "Sphere", "primitive": "sphere"},
    "plane": {"name": "Plane", "primitive": "plane"},
    "cylinder": {"name": "Cylinder", "primitive": "cylinder"}
  },
  "settings": {
    "rendering": {"clearColor": [0.05, 0.06, 0.08, 1], "useFrustumCulling": true},
    "editor": {"camera": {"near": 0.05, "far": 2000}}
  }
})";

// Position of each object's parent; for one below the root its own.
std::vector<std::size_t> parentsOf(const GeneratorOptions& options, GeneratedNumbers& numbers) {
    std::vector<std::size_t> parents(options.count);
    for(std::size_t i = 0; i != options.count; ++i) {
        if(i == 0 || options.topology == Topology::Flat)
            parents[i] = i;
        else if(options.topology == Topology::Random)
            parents[i] = numbers.below(i);
        else if(options.topology == Topology::Chain)
            parents[i] = i - 1;
        else
            parents[i] = (i - 1) / Branching;
    }
    return parents;
}

// Positions of the objects in the order in which the document lists them.
std::vector<std::size_t> listingOf(const GeneratorOptions& options, GeneratedNumbers& numbers) {
    std::vector<std::size_t> listing(options.count);
    for(std::size_t i = 0; i != options.count; ++i) listing[i] = i;
    if(options.topology == Topology::Reverse || options.topology == Topology::Chain)
        std::reverse(listing.begin(), listing.end());
    if(options.topology == Topology::Random)
        for(std::size_t i = options.count; i > 1; --i) std::swap(listing[i - 1], listing[numbers.below(i)]);
    return listing;
}

// Version 4 of RFC 4122.
std::string uuid(GeneratedNumbers& numbers) {
    constexpr char digits[] = "0123456789abcdef";
    std::string id = "xxxxxxxx-xxxx-4xxx-yxxx-xxxxxxxxxxxx";
    for(char& c: id) {
        if(c == 'x') c = digits[numbers.below(16)];
        if(c == 'y') c = digits[8 + numbers.below(4)];
    }
    return id;
}

std::vector<std::string> idsOf(const GeneratorOptions& options, GeneratedNumbers& numbers) {
    std::vector<std::string> ids(options.count);
    for(std::size_t i = 0; i != ids.size(); ++i)
        ids[i] = options.ids == IdStyle::Uuid ? uuid(numbers) : "o" + std::to_string(i);
    return ids;
}

std::string nameOf(std::size_t i, GeneratedNumbers& numbers) {
    static constexpr const char* nouns[]{"Wall", "Door", "Lamp", "Crate", "Tree", "Rock", "Stair", "Pillar"};
    return nouns[numbers.below(std::size(nouns))] + (" " + std::to_string(i));
}

// Exponents of 2, by axis.
using Exponents = std::array<int, 3>;

class ObjectWriter {
public:
    explicit ObjectWriter(const GeneratorOptions& options, GeneratedNumbers& numbers, JsonAllocator& allocator):
        _options{options}, _numbers{numbers}, _allocator{allocator}, _scaling(options.count) {}

    // Objects are made in the order of their names, parents first: a scaling depends on those above it.
    JsonValue make(std::size_t i, std::size_t parent, const std::string& parentId) {
        JsonValue object{rapidjson::kObjectType};
        object.AddMember("name", text(nameOf(i, _numbers)), _allocator);
        object.AddMember("parent", text(parentId), _allocator);
        object.AddMember("translation", translation(), _allocator);
        object.AddMember("rotation", rotation(), _allocator);
        object.AddMember("scaling", scaling(i, parent), _allocator);
        object.AddMember(
            "components", generatedComponents(_options.componentsPerObject, _numbers, _allocator), _allocator);
        return object;
    }

private:
    JsonValue text(const std::string& text) { return {text.data(), rapidjson::SizeType(text.size()), _allocator}; }

    JsonValue translation() {
        JsonValue vector{rapidjson::kArrayType};
        for(int i = 0; i != 3; ++i) vector.PushBack(_numbers.between(-10.0, 10.0), _allocator);
        return vector;
    }

    // Never all zero: the last one is at least 0.2.
    JsonValue rotation() {
        const double x = _numbers.between(-1.0, 1.0), y = _numbers.between(-1.0, 1.0), z = _numbers.between(-1.0, 1.0),
                     w = _numbers.between(0.2, 1.0);
        const double length = std::sqrt(x * x + y * y + z * z + w * w);
        JsonValue quaternion{rapidjson::kArrayType};
        for(const double value: {x, y, z, w}) quaternion.PushBack(value / length, _allocator);
        return quaternion;
    }

    JsonValue scaling(std::size_t i, std::size_t parent) {
        constexpr int limit = 3;
        JsonValue vector{rapidjson::kArrayType};
        for(std::size_t axis = 0; axis != 3; ++axis) {
            const int above = parent == i ? 0 : _scaling[parent][axis];
            int own = int(_numbers.below(3)) - 1;
            if(std::abs(above + own) > limit) own = -own;
            _scaling[i][axis] = above + own;
            vector.PushBack(std::ldexp(1.0, own), _allocator);
        }
        return vector;
    }

    const GeneratorOptions& _options;
    GeneratedNumbers& _numbers;
    JsonAllocator& _allocator;
    std::vector<Exponents> _scaling;
};

JsonValue generateObjects(const GeneratorOptions& options, JsonAllocator& allocator) {
    GeneratedNumbers numbers{options.seed};
    const std::vector<std::size_t> parents = parentsOf(options, numbers);
    const std::vector<std::size_t> listing = listingOf(options, numbers);
    const std::vector<std::string> ids = idsOf(options, numbers);
    ObjectWriter writer{options, numbers, allocator};
    std::vector<JsonValue> objects;
    objects.reserve(options.count);
    for(std::size_t i = 0; i != options.count; ++i)
        objects.push_back(writer.make(i, parents[i], parents[i] == i ? std::string{} : ids[parents[i]]));

    JsonValue members{rapidjson::kObjectType};
    for(const std::size_t i: listing)
        members.AddMember(
            JsonValue{ids[i].data(), rapidjson::SizeType(ids[i].size()), allocator}, objects[i], allocator);
    return members;
}

}

std::optional<Topology> topologyNamed(std::string_view name) {
    static constexpr const char* names[]{"flat", "tree", "reverse", "random", "chain"};
    const auto* const found = std::find(std::begin(names), std::end(names), name);
    if(found == std::end(names)) return {};
    return Topology(found - std::begin(names));
}

JsonDocument generateProject(const GeneratorOptions& options) {
    JsonDocument project{rapidjson::kObjectType};
    CORRADE_ASSERT(
        options.count <= MaxObjects, "generateProject():" << options.count << "objects are too many", project);
    JsonAllocator& allocator = project.GetAllocator();
    project.AddMember("objects", generateObjects(options, allocator), allocator);
    JsonDocument resources{&allocator};
    resources.Parse(Resources);
    CORRADE_INTERNAL_ASSERT(!resources.HasParseError());
    for(auto& section: resources.GetObject()) project.AddMember(section.name, section.value, allocator);
    return project;
}

}
