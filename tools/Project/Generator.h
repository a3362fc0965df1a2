#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include <Vantrel/EngineData/Json.h>

namespace VantrelTools {

// How the objects of a generated project hang together. The i-th object is named before the (i + 1)-th one.
enum class Topology {
    // All below the root.
    Flat,
    // Eight children each; parents are listed before their children.
    Tree,
    // The same tree with every child listed before its parent.
    Reverse,
    // The parent of each is any one of those named before it; listed in shuffled order.
    Random,
    // Each is the child of the one named before it, and listed before that one.
    Chain
};

enum class IdStyle { Uuid, Short };

// None for a name that no topology has: "flat", "tree", "reverse", "random", "chain".
std::optional<Topology> topologyNamed(std::string_view name);

struct GeneratorOptions {
    // Objects, at most VantrelEngine::MaxObjects.
    std::size_t count = 1000;
    Topology topology = Topology::Tree;
    // The same options give the same project, on every machine.
    std::uint32_t seed = 1;
    IdStyle ids = IdStyle::Uuid;
    // For each object: mesh, collision, light, view, input, and from the start again. None: a mix as in a game, mostly
    // meshes, some colliders, few of the others.
    std::optional<std::size_t> componentsPerObject;
};

// A project without files of its own: objects with unit rotations and with scalings whose product along a path stays
// within 1/8 and 8, the materials and meshes that they use, and settings. Linear.
VantrelEngine::JsonDocument generateProject(const GeneratorOptions& options);

}
