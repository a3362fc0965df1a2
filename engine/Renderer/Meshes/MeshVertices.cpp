#include "Renderer/Meshes/MeshVertices.h"

#include <cmath>
#include <cstring>

#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/Math/Color.h>
#include <Magnum/Math/Vector3.h>

#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// One attribute of all vertices.
template<class T>
Containers::StridedArrayView1D<T> column(std::vector<char>& vertices, std::uint32_t stride, std::uint32_t offset) {
    return {Containers::ArrayView<void>{vertices.data(), vertices.size()},
        reinterpret_cast<T*>(vertices.data() + offset), vertices.size() / stride, std::ptrdiff_t(stride)};
}

void makeNormals(const Containers::StridedArrayView1D<const Vector3>& positions,
    const std::vector<UnsignedInt>& indices, const Containers::StridedArrayView1D<Vector3>& normals) {
    for(Vector3& normal: normals) normal = {};
    for(std::size_t i = 0; i + 2 < indices.size(); i += 3) {
        const Vector3 corner = positions[indices[i]];
        // Twice as long as the triangle is large.
        const Vector3 normal = Math::cross(positions[indices[i + 1]] - corner, positions[indices[i + 2]] - corner);
        for(std::size_t j = i; j != i + 3; ++j) normals[indices[j]] += normal;
    }
    for(Vector3& normal: normals) {
        const Float length = normal.length();
        normal = std::isnormal(length) ? normal / length : Vector3::zAxis();
    }
}

void writeIndices(const Trade::MeshData& mesh, std::vector<UnsignedInt>& indices) {
    indices.resize(drawCount(mesh));
    if(mesh.isIndexed())
        mesh.indicesInto(vectorView(indices));
    else
        for(std::size_t i = 0; i != indices.size(); ++i) indices[i] = UnsignedInt(i);
}

void writeTangents(const Trade::MeshData& mesh, const Containers::StridedArrayView1D<Vector4>& tangents) {
    if(!mesh.hasAttribute(Trade::MeshAttribute::Tangent)) return;
    if(mesh.attributeFormat(Trade::MeshAttribute::Tangent) == VertexFormat::Vector4) {
        const auto source = mesh.attribute<Vector4>(Trade::MeshAttribute::Tangent);
        for(std::size_t i = 0; i != tangents.size(); ++i) tangents[i] = source[i];
        return;
    }
    const Containers::Array<Vector3> source = mesh.tangentsAsArray();
    for(std::size_t i = 0; i != tangents.size(); ++i) tangents[i] = Vector4{source[i], 1.0f};
}

void mix(std::uint64_t& hash, std::uint64_t word) {
    hash = (hash ^ word) * 0x9e3779b97f4a7c15u;
    hash ^= hash >> 29;
}

void mix(std::uint64_t& hash, Containers::ArrayView<const char> bytes) {
    std::size_t i = 0;
    for(std::uint64_t word; i + sizeof(word) <= bytes.size(); i += sizeof(word)) {
        std::memcpy(&word, bytes.data() + i, sizeof(word));
        mix(hash, word);
    }
    std::uint64_t rest = 0;
    if(i != bytes.size()) std::memcpy(&rest, bytes.data() + i, bytes.size() - i);
    mix(hash, rest);
    mix(hash, bytes.size());
}

} // namespace

void interleave(const Trade::MeshData& mesh, const VertexLayout& layout, std::vector<char>& vertices,
    std::vector<UnsignedInt>& indices) {
    writeIndices(mesh, indices);
    const std::uint32_t stride = layout.stride();
    vertices.assign(std::size_t{mesh.vertexCount()} * stride, '\0');
    if(vertices.empty()) return;

    const auto positions = column<Vector3>(vertices, stride, 0);
    mesh.positions3DInto(positions);
    const auto normals = column<Vector3>(vertices, stride, layout.offset(LayoutNormal));
    if(mesh.hasAttribute(Trade::MeshAttribute::Normal))
        mesh.normalsInto(normals);
    else
        makeNormals(positions, indices, normals);

    if(const std::uint32_t offset = layout.offset(LayoutTangent); offset != VertexLayout::None)
        writeTangents(mesh, column<Vector4>(vertices, stride, offset));
    const std::uint32_t coordinates[]{
        layout.offset(LayoutTextureCoordinates), layout.offset(LayoutSecondTextureCoordinates)};
    for(UnsignedInt i = 0; i != 2; ++i)
        if(coordinates[i] != VertexLayout::None && i < mesh.attributeCount(Trade::MeshAttribute::TextureCoordinates))
            mesh.textureCoordinates2DInto(column<Vector2>(vertices, stride, coordinates[i]), i);
    if(const std::uint32_t offset = layout.offset(LayoutColor); offset != VertexLayout::None) {
        const auto colors = column<Color4>(vertices, stride, offset);
        if(mesh.hasAttribute(Trade::MeshAttribute::Color))
            mesh.colorsInto(colors);
        else
            for(Color4& color: colors) color = Color4{1.0f};
    }
}

UnsignedInt drawCount(const Trade::MeshData& mesh) { return mesh.isIndexed() ? mesh.indexCount() : mesh.vertexCount(); }

std::uint64_t fingerprint(const Trade::MeshData& mesh) {
    std::uint64_t hash = mesh.vertexCount();
    mix(hash, mesh.vertexData());
    mix(hash, mesh.indexData());
    if(mesh.isIndexed()) {
        mix(hash, UnsignedInt(mesh.indexType()));
        mix(hash, mesh.indexOffset());
        mix(hash, mesh.indexCount());
    }
    for(UnsignedInt i = 0; i != mesh.attributeCount(); ++i) {
        mix(hash, UnsignedInt(mesh.attributeName(i)));
        mix(hash, UnsignedInt(mesh.attributeFormat(i)));
        mix(hash, mesh.attributeOffset(i));
        mix(hash, std::uint64_t(mesh.attributeStride(i)));
    }
    return hash ? hash : 1;
}

} // namespace VantrelEngine
