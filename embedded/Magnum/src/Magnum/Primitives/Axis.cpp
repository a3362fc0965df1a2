#include "Magnum/Primitives/Axis.h"

#include "Magnum/Math/Color.h"
#include "Magnum/Mesh.h"
#include "Magnum/Trade/MeshData.h"

namespace Magnum::Primitives {

namespace {

struct Vertex {
    Vector3 position;
    Color3 color;
};

// Origin, tip and the ends of the two barbs of each arrow.
const Vertex Vertices[]{
    {{0.0f, 0.0f, 0.0f}, {1.0f, 0.0f, 0.0f}},
    {{1.0f, 0.0f, 0.0f}, {1.0f, 0.0f, 0.0f}},
    {{0.9f, 0.1f, 0.0f}, {1.0f, 0.0f, 0.0f}},
    {{0.9f, -0.1f, 0.0f}, {1.0f, 0.0f, 0.0f}},

    {{0.0f, 0.0f, 0.0f}, {0.0f, 1.0f, 0.0f}},
    {{0.0f, 1.0f, 0.0f}, {0.0f, 1.0f, 0.0f}},
    {{0.1f, 0.9f, 0.0f}, {0.0f, 1.0f, 0.0f}},
    {{-0.1f, 0.9f, 0.0f}, {0.0f, 1.0f, 0.0f}},

    {{0.0f, 0.0f, 0.0f}, {0.0f, 0.0f, 1.0f}},
    {{0.0f, 0.0f, 1.0f}, {0.0f, 0.0f, 1.0f}},
    {{0.1f, 0.0f, 0.9f}, {0.0f, 0.0f, 1.0f}},
    {{-0.1f, 0.0f, 0.9f}, {0.0f, 0.0f, 1.0f}},
};

constexpr UnsignedShort Indices[]{0, 1, 1, 2, 1, 3, 4, 5, 5, 6, 5, 7, 8, 9, 9, 10, 9, 11};

}

Trade::MeshData axis3D() {
    const auto vertices = Containers::stridedArrayView(Vertices);
    return Trade::MeshData{MeshPrimitive::Lines, Trade::DataFlag::Global, Indices, Trade::MeshIndexData{Indices},
        Trade::DataFlag::Global, Vertices,
        {Trade::MeshAttributeData{Trade::MeshAttribute::Position, vertices.slice(&Vertex::position)},
            Trade::MeshAttributeData{Trade::MeshAttribute::Color, vertices.slice(&Vertex::color)}}};
}

}
