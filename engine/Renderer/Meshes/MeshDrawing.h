#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include <Magnum/GL/GL.h>
#include <Magnum/Magnum.h>

#include "Renderer/Meshes/DrawList.h"

namespace VantrelEngine {

class MeshBuffers;
class MeshProgram;
class ObjectBuffer;

// Draws runs of a list: with one call where the run is of one mesh, or where the GL can tell shaders which of several
// ranges is drawn; else with a call a mesh. The picture is the same.
class MeshDrawing {
public:
    explicit MeshDrawing(bool canMultiDraw): _canMultiDraw{canMultiDraw} {}

    void setMultiDrawEnabled(bool enabled) { _isMultiDrawEnabled = enabled; }

    // Expects that the list is the one that was bound for shaders.
    void draw(MeshProgram& program, const DrawList& list, const DrawRun& run, const ObjectBuffer& objects,
        MeshBuffers& meshes);

    // Since the last reset.
    std::size_t calls() const { return _calls; }
    std::uint64_t triangles() const { return _triangles; }
    void resetStatistics() { _calls = _triangles = 0; }

private:
    void drawMesh(MeshProgram& program, Magnum::GL::Mesh& all, Id mesh, Magnum::UnsignedInt begin,
        Magnum::UnsignedInt end, const MeshBuffers& meshes);
    void drawAtOnce(MeshProgram& program, Magnum::GL::Mesh& all, const DrawList& list, const DrawRun& run,
        const ObjectBuffer& objects, const MeshBuffers& meshes);

    bool _canMultiDraw;
    bool _isMultiDrawEnabled = true;
    std::size_t _calls = 0;
    std::uint64_t _triangles = 0;
    // Used again from call to call: by slot of a run.
    std::vector<Magnum::UnsignedInt> _counts, _firstVertices;
    std::vector<Magnum::UnsignedLong> _indexOffsets;
};

} // namespace VantrelEngine
