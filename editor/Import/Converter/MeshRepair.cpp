#include "Import/Converter/MeshRepair.h"

#include <cmath>
#include <numeric>

#include "Import/Converter/Text.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

// Bytes of a mesh that the editor draws from.
constexpr std::uint64_t MaximumMeshSize = (std::uint64_t{1} << 30) - (std::uint64_t{1} << 20);
constexpr std::uint32_t Unused = ~std::uint32_t{};

template<class Function> void forEachAttribute(Mesh& mesh, Function&& function) {
    function(mesh.positions);
    function(mesh.normals);
    function(mesh.tangents);
    for(auto& uvs: mesh.uvs) function(uvs);
    function(mesh.colors);
    function(mesh.joints);
    function(mesh.weights);
}

template<std::size_t size> bool isFinite(const Math::Vector<size, float>& vector) {
    for(std::size_t i = 0; i != size; ++i)
        if(!std::isfinite(vector[i])) return false;
    return true;
}

std::size_t dropBrokenTriangles(Mesh& mesh) {
    const auto isUsable = [&](std::uint32_t index) {
        return index < mesh.positions.size() && isFinite(mesh.positions[index]);
    };
    std::size_t kept = 0;
    for(std::size_t i = 0; i + 2 < mesh.indices.size(); i += 3) {
        if(!isUsable(mesh.indices[i]) || !isUsable(mesh.indices[i + 1]) || !isUsable(mesh.indices[i + 2])) continue;
        for(std::size_t j = 0; j != 3; ++j) mesh.indices[kept++] = mesh.indices[i + j];
    }
    const std::size_t dropped = mesh.indices.size() / 3 - kept / 3;
    mesh.indices.resize(kept);
    return dropped;
}

// Puts the vertices that indices name in front, in the order of the old ones, and forgets the others.
void dropUnusedVertices(Mesh& mesh) {
    std::vector<std::uint32_t> places(mesh.positions.size(), Unused);
    for(const std::uint32_t index: mesh.indices) places[index] = 0;
    std::uint32_t used = 0;
    for(std::uint32_t& place: places)
        if(place != Unused) place = used++;
    if(used == places.size()) return;
    forEachAttribute(mesh, [&](auto& values) {
        if(values.empty()) return;
        for(std::size_t i = 0; i != places.size(); ++i)
            if(places[i] != Unused) values[places[i]] = values[i];
        values.resize(used);
    });
    for(std::uint32_t& index: mesh.indices) index = places[index];
}

template<std::size_t size, class T> bool makeFinite(std::vector<T>& values, const Math::Vector<size, float>& neutral) {
    bool isChanged = false;
    for(T& value: values) {
        if(isFinite<size>(value)) continue;
        value = T{neutral};
        isChanged = true;
    }
    return isChanged;
}

bool makeAttributesFinite(Mesh& mesh) {
    bool isChanged = makeFinite<3>(mesh.normals, Vector3{0.0f});
    isChanged |= makeFinite<4>(mesh.tangents, Vector4{0.0f});
    for(auto& uvs: mesh.uvs) isChanged |= makeFinite<2>(uvs, Vector2{0.0f});
    isChanged |= makeFinite<4>(mesh.colors, Vector4{1.0f});
    return isChanged | makeFinite<4>(mesh.weights, Vector4{1.0f, 0.0f, 0.0f, 0.0f});
}

bool dropUnevenAttributes(Mesh& mesh) {
    bool isChanged = false;
    forEachAttribute(mesh, [&](auto& values) {
        if(values.empty() || values.size() == mesh.positions.size()) return;
        values.clear();
        isChanged = true;
    });
    if(mesh.joints.empty() == mesh.weights.empty()) return isChanged;
    mesh.joints.clear();
    mesh.weights.clear();
    return true;
}

std::uint64_t sizeOf(Mesh& mesh) {
    std::uint64_t size = mesh.indices.size() * std::uint64_t{4};
    forEachAttribute(mesh, [&](const auto& values) { size += values.size() * sizeof(values[0]); });
    return size;
}

} // namespace

bool repair(Mesh& mesh, Messages& messages) {
    const std::string name = "mesh " + quoted(mesh.name);
    if(dropUnevenAttributes(mesh))
        messages.warn(name + ": an attribute without an element for each vertex is left out");
    if(mesh.indices.empty()) {
        mesh.indices.resize(mesh.positions.size());
        std::iota(mesh.indices.begin(), mesh.indices.end(), 0u);
    }
    if(mesh.indices.size() % 3 != 0) messages.warn(name + ": its last triangle is not whole and is left out");
    if(const std::size_t dropped = dropBrokenTriangles(mesh))
        messages.warn(name + ": " + std::to_string(dropped) +
            " triangles whose indices are out of range or whose positions are not finite are left out");
    if(mesh.indices.empty()) {
        messages.warn(name + " is left out: it has no triangles");
        return false;
    }
    dropUnusedVertices(mesh);
    if(makeAttributesFinite(mesh)) messages.warn(name + ": values that are not finite are left out");
    if(sizeOf(mesh) <= MaximumMeshSize) return true;
    messages.warn(name + " is left out: with " + std::to_string(mesh.positions.size()) +
        " vertices it is larger than one buffer");
    return false;
}

void makeFlatNormals(Mesh& mesh) {
    mesh.tangents.clear();
    mesh.normals.clear();
    forEachAttribute(mesh, [&](auto& values) {
        if(values.empty()) return;
        auto own = values;
        own.resize(mesh.indices.size());
        for(std::size_t i = 0; i != mesh.indices.size(); ++i) own[i] = values[mesh.indices[i]];
        values = std::move(own);
    });
    std::iota(mesh.indices.begin(), mesh.indices.end(), 0u);
    mesh.normals.resize(mesh.positions.size());
    for(std::size_t i = 0; i + 2 < mesh.positions.size(); i += 3) {
        const Vector3 normal =
            Math::cross(mesh.positions[i + 1] - mesh.positions[i], mesh.positions[i + 2] - mesh.positions[i]);
        const float length = normal.length();
        // One without an area is not seen.
        const Vector3 unit = length > 0.0f && std::isfinite(length) ? normal / length : Vector3{0.0f, 1.0f, 0.0f};
        for(std::size_t j = 0; j != 3; ++j) mesh.normals[i + j] = unit;
    }
}

} // namespace VantrelImport
