#include "Renderer/Meshes/MeshDrawing.h"

#include <utility>

#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/GL/MeshView.h>

#include "Renderer/Meshes/MeshBuffers.h"
#include "Renderer/Meshes/ObjectBuffer.h"
#include "Renderer/Pipelines/MeshProgram.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

void MeshDrawing::draw(
    MeshProgram& program, const DrawList& list, const DrawRun& run, const ObjectBuffer& objects, MeshBuffers& meshes) {
    GL::Mesh* const all = meshes.all();
    if(!all) return;
    const auto endOfMesh = [&](UnsignedInt begin) {
        const Id mesh = objects.mesh(list.slots()[begin]);
        UnsignedInt end = begin + 1;
        while(end != run.end && objects.mesh(list.slots()[end]) == mesh) ++end;
        return end;
    };
    if(_canMultiDraw && _isMultiDrawEnabled && endOfMesh(run.begin) != run.end)
        return drawAtOnce(program, *all, list, run, objects, meshes);
    for(UnsignedInt begin = run.begin; begin != run.end;) {
        const UnsignedInt end = endOfMesh(begin);
        drawMesh(program, *all, objects.mesh(list.slots()[begin]), begin, end, meshes);
        begin = end;
    }
}

void MeshDrawing::drawMesh(
    MeshProgram& program, GL::Mesh& all, Id mesh, UnsignedInt begin, UnsignedInt end, const MeshBuffers& meshes) {
    const MeshRange range = meshes.range(mesh);
    if(!range.indexCount) return;
    GL::MeshView view{all};
    view.setCount(Int(range.indexCount))
        .setBaseVertex(Int(range.firstVertex))
        .setIndexOffset(range.firstIndex)
        .setInstanceCount(Int(end - begin));
    program.setFirstInstance(Int(begin)).draw(view);
    ++_calls;
    _triangles += std::uint64_t{range.indexCount / 3} * (end - begin);
}

void MeshDrawing::drawAtOnce(MeshProgram& program, GL::Mesh& all, const DrawList& list, const DrawRun& run,
    const ObjectBuffer& objects, const MeshBuffers& meshes) {
    const std::size_t size = run.end - run.begin;
    _counts.resize(size);
    _firstVertices.resize(size);
    _indexOffsets.resize(size);
    for(std::size_t i = 0; i != size; ++i) {
        const MeshRange range = meshes.range(objects.mesh(list.slots()[run.begin + i]));
        _counts[i] = range.indexCount;
        _firstVertices[i] = range.firstVertex;
        _indexOffsets[i] = UnsignedLong{range.firstIndex} * sizeof(UnsignedInt);
        _triangles += range.indexCount / 3;
    }
    program.setFirstInstance(Int(run.begin))
        .draw(all, vectorView(std::as_const(_counts)), vectorView(std::as_const(_firstVertices)),
            vectorView(std::as_const(_indexOffsets)));
    ++_calls;
}

} // namespace VantrelEngine
