#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Mesh.h>
#include <Magnum/Math/Vector3.h>
#include <Vantrel/EngineData/Types.h>

#include "Renderer/Meshes/VertexLayout.h"

namespace VantrelEngine {

// Where a mesh lies in the buffers that all share, and the sphere around it in its own space.
struct MeshRange {
    Magnum::UnsignedInt firstVertex = 0;
    Magnum::UnsignedInt firstIndex = 0;
    // 0 where there is no such mesh.
    Magnum::UnsignedInt indexCount = 0;
    Magnum::Vector3 center;
    Magnum::Float radius = 0.0f;
};

// The vertices and indices of all meshes of a scene, in one buffer each, by the index of the mesh.
class MeshBuffers {
public:
    // Nothing is kept.
    void setLayout(const VertexLayout& layout);
    const VertexLayout& layout() const { return _layout; }

    // Makes room for all of them. Those that still fit where they are stay there; where there is no more room, all get
    // another place. A line for a mesh for which there is no number left.
    void prepare(Corrade::Containers::ArrayView<const SceneMesh> meshes);
    // Uploads those that changed since the last time. Whether there were any, or others went. Expects that there is
    // room for them.
    bool update(Corrade::Containers::ArrayView<const SceneMesh> meshes);

    std::size_t size() const { return _slots.size(); }
    // An empty one for what is not there.
    MeshRange range(Id mesh) const { return mesh < _slots.size() ? _slots[mesh].range : MeshRange{}; }

    // All vertices and indices, for ranges of it. Null before there is any mesh.
    Magnum::GL::Mesh* all() { return _capacity.indices ? &_all : nullptr; }
    // One mesh, null where it is not there. Valid until the next call.
    Magnum::GL::Mesh* one(Id mesh);

    std::uint64_t uploadedBytes() const { return _uploadedBytes; }

private:
    struct Extent {
        std::size_t vertices = 0, indices = 0;
    };
    struct Slot {
        Extent start, room;
        MeshRange range;
        // 0 where nothing was uploaded yet.
        std::uint64_t fingerprint = 0;
    };

    static Extent needed(const SceneMesh& mesh);
    bool place(Slot& slot, const Extent& size);
    void placeAll(Corrade::Containers::ArrayView<const SceneMesh> meshes);
    void allocate(const Extent& capacity);
    bool upload(Slot& slot, const SceneMesh& mesh);

    VertexLayout _layout;
    std::vector<Slot> _slots;
    Extent _used, _capacity;
    Magnum::GL::Buffer _vertices{Magnum::NoCreate}, _indices{Magnum::NoCreate};
    Magnum::GL::Mesh _all{Magnum::NoCreate}, _one{Magnum::NoCreate};
    std::uint64_t _uploadedBytes = 0;
    // Used again from upload to upload.
    std::vector<char> _vertexData;
    std::vector<Magnum::UnsignedInt> _indexData;
};

} // namespace VantrelEngine
