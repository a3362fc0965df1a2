#include "Magnum/Primitives/Plane.h"

#include "Magnum/Math/Vector3.h"
#include "Magnum/Mesh.h"
#include "Magnum/Trade/MeshData.h"

namespace Magnum::Primitives {

namespace {

struct Vertex {
    Vector3 position;
    Vector3 normal;
};

const Vertex Vertices[]{
    {{1.0f, -1.0f, 0.0f}, {0.0f, 0.0f, 1.0f}},
    {{1.0f, 1.0f, 0.0f}, {0.0f, 0.0f, 1.0f}},
    {{-1.0f, -1.0f, 0.0f}, {0.0f, 0.0f, 1.0f}},
    {{-1.0f, 1.0f, 0.0f}, {0.0f, 0.0f, 1.0f}},
};

}

Trade::MeshData planeSolid() {
    const auto vertices = Containers::stridedArrayView(Vertices);
    return Trade::MeshData{MeshPrimitive::TriangleStrip, Trade::DataFlag::Global, Vertices,
        {Trade::MeshAttributeData{Trade::MeshAttribute::Position, vertices.slice(&Vertex::position)},
            Trade::MeshAttributeData{Trade::MeshAttribute::Normal, vertices.slice(&Vertex::normal)}}};
}

}
