#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/Math/Vector4.h>
#include <Vantrel/EngineData/Types.h>

#include "Renderer/Meshes/FrustumCulling.h"
#include "Renderer/TexelBuffer.h"

namespace VantrelEngine {

class MeshBuffers;
struct Scene;

// What shaders need of each active mesh of a scene, by its slot: where its object stands, the object, and the material.
// Beside it what the CPU needs: a sphere around each in the scene's space, the mesh, and whether it is mirrored.
//
// Only what changed is computed again, and only what came out different is uploaded.
class ObjectBuffer {
public:
    // All of them are computed again at the next update: meshes or slots are others than before.
    void setAllDirty() { _areAllDirty = true; }

    // Takes over the objects that changed since the scene's last resetChanged(), and slots that hold something else.
    void update(const Scene& scene, const MeshBuffers& meshes);

    void bind();

    // Active meshes.
    std::size_t size() const { return _spheres.size(); }
    const Spheres& spheres() const { return _spheres; }
    // Where that stood and stands what the last update computed again, whether it came out different or not.
    const Spheres& touched() const { return _touched; }
    Id object(std::size_t slot) const { return _objects[slot]; }
    Id mesh(std::size_t slot) const { return _meshes[slot]; }
    bool isMirrored(std::size_t slot) const { return _isMirrored[slot]; }

    std::uint64_t uploadedBytes() const { return _buffer.writtenBytes(); }

private:
    // The rows of the transformation; then the object, the material, the factor that brings the largest scaling to 1,
    // and -1 where it mirrors.
    struct Record {
        Magnum::Vector4 rows[3];
        Magnum::Vector4 rest;
    };

    void resize(std::size_t size);
    void takeSlots(const Scene& scene);
    bool takeIds(std::vector<Id>& known, Corrade::Containers::ArrayView<const Id> ids);
    void linkSlots();
    void markChanged(const Scene& scene);
    void mark(std::size_t slot) { _dirty[slot / 64] |= std::uint64_t{1} << slot % 64; }
    void touch(std::size_t slot);
    template<class Function> void forEachDirty(Function function);
    bool compute(std::size_t slot, const Scene& scene, const MeshBuffers& meshes);
    void upload(std::size_t first, std::size_t end);

    bool _areAllDirty = true;
    // What the slots held at the last update.
    std::vector<Id> _objects, _meshes, _materials;
    std::vector<Record> _records;
    std::vector<char> _isMirrored;
    Spheres _spheres, _touched;
    std::vector<std::uint64_t> _dirty;
    // The first slot of an object, and the next one of the same object; NoComponent for none.
    std::vector<Id> _firstSlot, _nextSlot;
    TexelBuffer _buffer{Magnum::GL::BufferTextureFormat::RGBA32F, "Renderer objects"};
};

} // namespace VantrelEngine
