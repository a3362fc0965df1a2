#include "Renderer/Meshes/MeshBuffers.h"

#include <limits>

#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Debug.h>
#include <Magnum/Math/Range.h>

#include "Renderer/Meshes/MeshVertices.h"
#include "Renderer/VectorView.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Ranges are given to the GL as signed numbers.
constexpr std::size_t MaximumNumber = std::numeric_limits<Int>::max();

} // namespace

void MeshBuffers::setLayout(const VertexLayout& layout) {
    _layout = layout;
    _slots.clear();
    _used = _capacity = {};
}

MeshBuffers::Extent MeshBuffers::needed(const SceneMesh& mesh) {
    if(!mesh.data || mesh.data->primitive() != MeshPrimitive::Triangles) return {};
    return {mesh.data->vertexCount(), drawCount(*mesh.data)};
}

bool MeshBuffers::place(Slot& slot, const Extent& size) {
    if(size.vertices <= slot.room.vertices && size.indices <= slot.room.indices) return true;
    if(size.vertices > _capacity.vertices - _used.vertices || size.indices > _capacity.indices - _used.indices)
        return false;
    slot = {_used, size, {}, 0};
    _used.vertices += size.vertices;
    _used.indices += size.indices;
    return true;
}

void MeshBuffers::prepare(Containers::ArrayView<const SceneMesh> meshes) {
    _slots.resize(meshes.size());
    Extent total;
    bool isPlaced = true;
    for(std::size_t i = 0; i != meshes.size(); ++i) {
        const Extent size = needed(meshes[i]);
        total.vertices += size.vertices;
        total.indices += size.indices;
        isPlaced = isPlaced && place(_slots[i], size);
    }
    const bool isMostlyEmpty = total.vertices < _capacity.vertices / 4 && total.indices < _capacity.indices / 4;
    if(!isPlaced || isMostlyEmpty) placeAll(meshes);
}

void MeshBuffers::placeAll(Containers::ArrayView<const SceneMesh> meshes) {
    const bool isGrowing = _capacity.indices != 0;
    _used = {};
    for(std::size_t i = 0; i != meshes.size(); ++i) {
        const Extent size = needed(meshes[i]);
        _slots[i] = {};
        if(_used.vertices + size.vertices > MaximumNumber || _used.indices + size.indices > MaximumNumber) {
            Utility::Error{} << "WebGL2Renderer: mesh" << Containers::StringView{meshes[i].id}
                             << "is not drawn, there are too many vertices";
            continue;
        }
        _slots[i].start = _used;
        _slots[i].room = size;
        _used.vertices += size.vertices;
        _used.indices += size.indices;
    }
    // The next ones will not be long in coming.
    allocate(isGrowing ? Extent{_used.vertices + _used.vertices / 4, _used.indices + _used.indices / 4} : _used);
}

void MeshBuffers::allocate(const Extent& capacity) {
    _capacity = capacity;
    if(!capacity.indices) return;
    _vertices = GL::Buffer{};
    _indices = GL::Buffer{GL::Buffer::TargetHint::ElementArray};
    _vertices.setData({nullptr, capacity.vertices * _layout.stride()}).setLabel("Renderer vertices");
    _indices.setData({nullptr, capacity.indices * sizeof(UnsignedInt)}).setLabel("Renderer indices");
    for(GL::Mesh* const mesh: {&_all, &_one}) {
        *mesh = GL::Mesh{GL::MeshPrimitive::Triangles};
        _layout.describe(*mesh, _vertices);
        mesh->setIndexBuffer(_indices, 0, MeshIndexType::UnsignedInt);
    }
    _all.setLabel("Renderer meshes");
    _one.setLabel("Renderer mesh");
}

bool MeshBuffers::update(Containers::ArrayView<const SceneMesh> meshes) {
    CORRADE_ASSERT(meshes.size() == _slots.size(),
        "MeshBuffers::update(): prepared for" << _slots.size() << "meshes, not" << meshes.size(), false);
    bool isChanged = false;
    for(std::size_t i = 0; i != meshes.size(); ++i) isChanged = upload(_slots[i], meshes[i]) || isChanged;
    return isChanged;
}

bool MeshBuffers::upload(Slot& slot, const SceneMesh& mesh) {
    const Extent size = needed(mesh);
    if(!size.indices || size.vertices > slot.room.vertices || size.indices > slot.room.indices) {
        const bool wasThere = slot.range.indexCount != 0;
        slot.range = {};
        slot.fingerprint = 0;
        return wasThere;
    }
    const std::uint64_t print = fingerprint(*mesh.data);
    if(print == slot.fingerprint) return false;
    slot.fingerprint = print;
    slot.range = {UnsignedInt(slot.start.vertices), UnsignedInt(slot.start.indices), UnsignedInt(size.indices),
        mesh.bounds.center(), mesh.radius};

    interleave(*mesh.data, _layout, _vertexData, _indexData);
    _vertices.setSubData(GLintptr(slot.start.vertices * _layout.stride()), vectorView(_vertexData));
    _indices.setSubData(GLintptr(slot.start.indices * sizeof(UnsignedInt)), vectorView(_indexData));
    _uploadedBytes += _vertexData.size() + _indexData.size() * sizeof(UnsignedInt);
    return true;
}

GL::Mesh* MeshBuffers::one(Id mesh) {
    const MeshRange found = range(mesh);
    if(!found.indexCount) return nullptr;
    _one.setCount(Int(found.indexCount)).setBaseVertex(Int(found.firstVertex)).setIndexOffset(found.firstIndex);
    return &_one;
}

} // namespace VantrelEngine
