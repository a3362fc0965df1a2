#include "Import/Converter/LibraryMeshes.h"

#include <algorithm>
#include <limits>

#include "Import/Converter/MeshRepair.h"
#include "Import/Converter/Text.h"

namespace VantrelImport {

using namespace Magnum;

namespace {

constexpr unsigned MaximumInfluences = 4;

Vector3 vector(const aiVector3D& from) { return {from.x, from.y, from.z}; }

// The side of the bitangent that makes a right-handed system with the other two, or a left-handed one.
Vector4 tangent(const aiMesh& mesh, unsigned i) {
    const Vector3 normal = vector(mesh.mNormals[i]), along = vector(mesh.mTangents[i]);
    const bool isMirrored = Math::dot(Math::cross(normal, along), vector(mesh.mBitangents[i])) < 0.0f;
    return {along, isMirrored ? -1.0f : 1.0f};
}

// Puts a joint's weight in the place of the smallest one, if it is larger.
void addInfluence(Mesh& mesh, std::size_t vertex, std::uint16_t joint, float weight) {
    Vector4& weights = mesh.weights[vertex];
    unsigned smallest = 0;
    for(unsigned i = 1; i != MaximumInfluences; ++i)
        if(weights[i] < weights[smallest]) smallest = i;
    if(!(weight > weights[smallest])) return;
    weights[smallest] = weight;
    mesh.joints[vertex][smallest] = joint;
}

void normalizeWeights(Mesh& mesh) {
    for(Vector4& weights: mesh.weights) {
        const float sum = weights.x() + weights.y() + weights.z() + weights.w();
        weights = sum > 0.0f ? weights / sum : Vector4{1.0f, 0.0f, 0.0f, 0.0f};
    }
}

} // namespace

int LibraryMeshes::use(unsigned index, const std::string& name) {
    if(index >= _scene.mNumMeshes) return Nothing;
    const auto [found, isNew] = _meshes.emplace(index, Nothing);
    if(!isNew) return found->second;
    const aiMesh& source = *_scene.mMeshes[index];
    Mesh mesh = read(source, nameOr(source.mName.C_Str(), name));
    if(!repair(mesh, _messages)) return Nothing;
    if(mesh.normals.empty()) makeFlatNormals(mesh);
    mesh.material = _materials.use(source.mMaterialIndex);
    _model.meshes.push_back(std::move(mesh));
    return found->second = int(_model.meshes.size()) - 1;
}

Mesh LibraryMeshes::read(const aiMesh& source, const std::string& name) {
    Mesh mesh;
    mesh.name = name;
    const unsigned count = source.mNumVertices;
    for(unsigned i = 0; i != count; ++i) mesh.positions.push_back(vector(source.mVertices[i]));
    if(source.HasNormals())
        for(unsigned i = 0; i != count; ++i) mesh.normals.push_back(vector(source.mNormals[i]));
    if(source.HasNormals() && source.HasTangentsAndBitangents())
        for(unsigned i = 0; i != count; ++i) mesh.tangents.push_back(tangent(source, i));
    for(unsigned set = 0; set != UvSets; ++set)
        if(source.HasTextureCoords(set))
            for(unsigned i = 0; i != count; ++i) {
                const aiVector3D& uv = source.mTextureCoords[set][i];
                mesh.uvs[set].emplace_back(uv.x, 1.0f - uv.y);
            }
    if(source.HasVertexColors(0))
        for(unsigned i = 0; i != count; ++i) {
            const aiColor4D& color = source.mColors[0][i];
            mesh.colors.emplace_back(color.r, color.g, color.b, color.a);
        }
    std::size_t others = 0;
    for(unsigned i = 0; i != source.mNumFaces; ++i) {
        const aiFace& face = source.mFaces[i];
        if(face.mNumIndices == 3)
            mesh.indices.insert(mesh.indices.end(), face.mIndices, face.mIndices + 3);
        else
            ++others;
    }
    // Without an index every vertex would be used.
    if(mesh.indices.empty()) mesh.positions.clear();
    if(others) _messages.warn("mesh " + quoted(name) + ": " + std::to_string(others) + " points or lines are left out");
    if(source.mNumAnimMeshes) _messages.warn("mesh " + quoted(name) + ": its morph targets are left out");
    if(source.HasBones()) readSkinning(source, mesh);
    return mesh;
}

void LibraryMeshes::readSkinning(const aiMesh& source, Mesh& mesh) {
    mesh.joints.resize(mesh.positions.size());
    mesh.weights.resize(mesh.positions.size());
    const unsigned bones = std::min<unsigned>(source.mNumBones, std::numeric_limits<std::uint16_t>::max());
    for(unsigned i = 0; i != bones; ++i)
        for(unsigned j = 0; j != source.mBones[i]->mNumWeights; ++j) {
            const aiVertexWeight& weight = source.mBones[i]->mWeights[j];
            if(weight.mVertexId < mesh.positions.size())
                addInfluence(mesh, weight.mVertexId, std::uint16_t(i), weight.mWeight);
        }
    normalizeWeights(mesh);
}

} // namespace VantrelImport
