#include "Magnum/MeshTools/Implementation/Layout.h"

#include <algorithm>
#include <cstring>

#include "Magnum/Trade/MeshData.h"

namespace Magnum::MeshTools::Implementation {

namespace {

// In bytes, of one vertex.
std::size_t attributeSize(const Trade::MeshData& mesh, UnsignedInt id) { return mesh.attribute(id).size()[1]; }

}

Layout packedLayout(const Trade::MeshData& mesh) {
    Layout layout{Containers::Array<std::size_t>{NoInit, mesh.attributeCount()}, 0};
    for(UnsignedInt i = 0; i != mesh.attributeCount(); ++i) {
        layout.offsets[i] = layout.stride;
        layout.stride += attributeSize(mesh, i);
    }
    return layout;
}

Layout preservedLayout(const Trade::MeshData& mesh) {
    if(!mesh.attributeCount()) return {};
    Layout layout{Containers::Array<std::size_t>{NoInit, mesh.attributeCount()}, 0};
    std::size_t begin = ~std::size_t{}, end = 0;
    for(UnsignedInt i = 0; i != mesh.attributeCount(); ++i) {
        if(mesh.attributeStride(i) <= 0 || mesh.attributeStride(i) != mesh.attributeStride(0))
            return packedLayout(mesh);
        layout.offsets[i] = mesh.attributeOffset(i);
        begin = std::min(begin, layout.offsets[i]);
        end = std::max(end, layout.offsets[i] + attributeSize(mesh, i));
    }
    layout.stride = mesh.attributeStride(0);
    if(end - begin > layout.stride) return packedLayout(mesh);
    for(std::size_t& offset: layout.offsets) offset -= begin;
    return layout;
}

void copyAttribute(const Trade::MeshData& mesh, UnsignedInt id, char* destination, std::size_t stride) {
    const Containers::StridedArrayView2D<const char> source = mesh.attribute(id);
    for(std::size_t i = 0; i != source.size()[0]; ++i)
        std::memcpy(destination + i * stride, &source[i][0], source.size()[1]);
}

}
