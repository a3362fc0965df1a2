#include "Import/Converter/GltfMeshes.h"

#include <cstring>
#include <limits>
#include <numeric>

#include "Import/Converter/MeshRepair.h"
#include "Import/Converter/Text.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

enum Mode { Triangles = 4, TriangleStrip = 5, TriangleFan = 6 };

template<class T> std::vector<T> grouped(const std::vector<float>& numbers) {
    std::vector<T> values(numbers.size() / (sizeof(T) / sizeof(float)));
    if(!values.empty()) std::memcpy(static_cast<void*>(values.data()), numbers.data(), values.size() * sizeof(T));
    return values;
}

// A strip turns around with each triangle; a fan begins at its first vertex each time.
std::vector<std::uint32_t> trianglesOf(const std::vector<std::uint32_t>& indices, int mode) {
    std::vector<std::uint32_t> triangles;
    for(std::size_t i = 2; i < indices.size(); ++i) {
        const bool isTurned = mode == TriangleStrip && i % 2 == 1;
        triangles.push_back(mode == TriangleFan ? indices[0] : indices[i - 2]);
        triangles.push_back(indices[isTurned ? i : i - 1]);
        triangles.push_back(indices[isTurned ? i - 1 : i]);
    }
    return triangles;
}

} // namespace

const std::vector<int>& GltfMeshes::use(int index) {
    const auto [found, isNew] = _meshes.emplace(index, std::vector<int>{});
    const Json* const json = _file.element("meshes", index);
    if(!isNew || !json) return found->second;
    const std::string name = nameOr(asText(member(json, "name")), "Mesh " + std::to_string(index + 1));
    const Json* const primitives = member(json, "primitives");
    for(std::size_t i = 0; i != sizeOf(primitives); ++i) {
        const int mesh = addPrimitive(*elementOf(primitives, i), i ? name + ' ' + std::to_string(i + 1) : name);
        if(mesh != Nothing) found->second.push_back(mesh);
    }
    return found->second;
}

int GltfMeshes::addPrimitive(const Json& json, const std::string& name) {
    try {
        const Json* const attributes = member(&json, "attributes");
        if(!hasTriangles(json, name)) return Nothing;
        const int positions = asIndex(member(attributes, "POSITION"));
        if(positions == Nothing || !_file.hasValues(positions)) throw Unusable{"it has no positions"};
        Mesh mesh;
        mesh.name = name;
        readAttributes(*attributes, mesh);
        readIndices(json, mesh);
        sayWhatIsLeftOut(json, name);
        if(!repair(mesh, _messages)) return Nothing;
        // What a file without normals means: https://registry.khronos.org/glTF/specs/2.0/glTF-2.0.html#meshes-overview
        if(mesh.normals.empty()) makeFlatNormals(mesh);
        mesh.material = _materials.use(asIndex(member(&json, "material")));
        _model.meshes.push_back(std::move(mesh));
        return int(_model.meshes.size()) - 1;
    } catch(const Unusable& problem) {
        _messages.warn("mesh " + quoted(name) + " is left out: " + problem.what());
        return Nothing;
    }
}

bool GltfMeshes::hasTriangles(const Json& json, const std::string& name) {
    const std::uint64_t mode = asSize(member(&json, "mode"), Triangles);
    if(mode >= Triangles && mode <= TriangleFan) return true;
    _messages.warn("mesh " + quoted(name) + " is left out: it consists of " +
        (mode == 0                 ? "points"
                : mode < Triangles ? "lines"
                                   : "what mode " + std::to_string(mode) + " is"));
    return false;
}

void GltfMeshes::readAttributes(const Json& attributes, Mesh& mesh) {
    const auto has = [&](const char* name) { return member(&attributes, name); };
    const auto read = [&](const char* name, unsigned components) {
        return _file.floats(asIndex(member(&attributes, name)), components);
    };
    mesh.positions = grouped<Vector3>(read("POSITION", 3));
    if(has("NORMAL")) mesh.normals = grouped<Vector3>(read("NORMAL", 3));
    if(has("TANGENT")) mesh.tangents = grouped<Vector4>(read("TANGENT", 4));
    if(has("TEXCOORD_0")) mesh.uvs[0] = grouped<Vector2>(read("TEXCOORD_0", 2));
    if(has("TEXCOORD_1")) mesh.uvs[1] = grouped<Vector2>(read("TEXCOORD_1", 2));
    if(has("COLOR_0")) readColors(asIndex(has("COLOR_0")), mesh);
    if(has("JOINTS_0") && has("WEIGHTS_0")) readSkinning(attributes, mesh);
}

void GltfMeshes::readColors(int accessor, Mesh& mesh) {
    const unsigned components = _file.componentsOf(accessor) == 3 ? 3 : 4;
    const std::vector<float> numbers = _file.floats(accessor, components);
    mesh.colors.assign(numbers.size() / components, Vector4{1.0f});
    for(std::size_t i = 0; i != mesh.colors.size(); ++i)
        for(std::size_t j = 0; j != components; ++j) mesh.colors[i][j] = numbers[i * components + j];
}

void GltfMeshes::readSkinning(const Json& attributes, Mesh& mesh) {
    const std::vector<std::uint32_t> joints = _file.integers(asIndex(member(&attributes, "JOINTS_0")), 4);
    mesh.weights = grouped<Vector4>(_file.floats(asIndex(member(&attributes, "WEIGHTS_0")), 4));
    mesh.joints.resize(joints.size() / 4);
    for(std::size_t i = 0; i != joints.size(); ++i) {
        if(joints[i] > std::numeric_limits<std::uint16_t>::max()) throw Unusable{"a joint's number is too large"};
        mesh.joints[i / 4][i % 4] = std::uint16_t(joints[i]);
    }
}

void GltfMeshes::readIndices(const Json& json, Mesh& mesh) {
    if(const Json* const accessor = member(&json, "indices")) {
        mesh.indices = _file.integers(asIndex(accessor), 1);
    } else {
        mesh.indices.resize(mesh.positions.size());
        std::iota(mesh.indices.begin(), mesh.indices.end(), 0u);
    }
    const int mode = int(asSize(member(&json, "mode"), Triangles));
    if(mode != Triangles) mesh.indices = trianglesOf(mesh.indices, mode);
}

void GltfMeshes::sayWhatIsLeftOut(const Json& json, const std::string& name) {
    const Json* const attributes = member(&json, "attributes");
    const std::string of = "mesh " + quoted(name) + ": ";
    if(sizeOf(member(&json, "targets"))) _messages.warn(of + "its morph targets are left out");
    if(member(attributes, "TEXCOORD_2")) _messages.warn(of + "texture coordinates beyond the second are left out");
    if(member(attributes, "COLOR_1")) _messages.warn(of + "vertex colours beyond the first are left out");
    if(member(attributes, "JOINTS_1")) _messages.warn(of + "joints beyond the fourth of a vertex are left out");
}

} // namespace VantrelImport
