#pragma once

#include <cstdint>
#include <string>

#include <Magnum/GL/GL.h>
#include <Vantrel/EngineData/SceneResources.h>

namespace VantrelEngine {

// Where the attributes of a vertex stand: floats, one after the other, the position first. All meshes of a scene have
// one layout, with what any of them has; and always with normals, since lighting is not possible without.
class VertexLayout {
public:
    static constexpr std::uint32_t None = ~std::uint32_t{};

    // MeshLayoutFlag; others are left out.
    explicit VertexLayout(std::uint32_t flags = 0);

    // Bytes.
    std::uint32_t stride() const { return _stride; }
    // Of an attribute, by its flag, in bytes from the position; None where the layout has none.
    std::uint32_t offset(MeshLayoutFlag attribute) const;

    // Tells a mesh of the attributes in a buffer of vertices.
    void describe(Magnum::GL::Mesh& mesh, Magnum::GL::Buffer& vertices) const;
    // The attributes in the shading language, each with a constant in its place where the layout has none.
    std::string declarations() const;

    bool operator==(const VertexLayout& other) const { return _flags == other._flags; }
    bool operator!=(const VertexLayout& other) const { return _flags != other._flags; }

private:
    std::uint32_t _flags;
    std::uint32_t _stride;
};

} // namespace VantrelEngine
