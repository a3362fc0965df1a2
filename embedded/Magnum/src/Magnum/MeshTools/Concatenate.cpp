#include "Magnum/MeshTools/Concatenate.h"

#include "Corrade/Containers/Optional.h"
#include "Corrade/Utility/Assert.h"
#include "Magnum/MeshTools/Implementation/Layout.h"
#include "Magnum/Trade/MeshData.h"

namespace Magnum::MeshTools {

namespace {

typedef Containers::Iterable<const Trade::MeshData> Meshes;

void checkPrimitives(const Meshes& meshes) {
    const MeshPrimitive primitive = meshes[0].primitive();
    CORRADE_ASSERT(primitive != MeshPrimitive::LineLoop && primitive != MeshPrimitive::LineStrip &&
            primitive != MeshPrimitive::TriangleStrip && primitive != MeshPrimitive::TriangleFan,
        "MeshTools::concatenate():" << primitive << "is not supported, turn it into a plain indexed mesh first", );
    for(std::size_t i = 1; i != meshes.size(); ++i)
        CORRADE_ASSERT(meshes[i].primitive() == primitive,
            "MeshTools::concatenate(): expected" << primitive << "but got" << meshes[i].primitive() << "in mesh"
                                                 << i, );
}

void checkAttribute(const Trade::MeshData& first, UnsignedInt firstId, const Trade::MeshData& mesh, UnsignedInt id,
    std::size_t meshId) {
    CORRADE_ASSERT(mesh.attributeFormat(id) == first.attributeFormat(firstId),
        "MeshTools::concatenate(): expected" << first.attributeFormat(firstId) << "for attribute" << firstId << "("
                                             << Debug::nospace << first.attributeName(firstId) << Debug::nospace
                                             << ") but got" << mesh.attributeFormat(id) << "in mesh" << meshId
                                             << "attribute" << id, );
    CORRADE_ASSERT(mesh.attributeArraySize(id) <= first.attributeArraySize(firstId),
        "MeshTools::concatenate(): expected array size"
            << first.attributeArraySize(firstId) << "or less for attribute" << firstId << "(" << Debug::nospace
            << first.attributeName(firstId) << Debug::nospace << ") but got" << mesh.attributeArraySize(id) << "in mesh"
            << meshId << "attribute" << id, );
}

Containers::Array<char> concatenatedIndices(const Meshes& meshes) {
    bool indexed = false;
    std::size_t count = 0;
    for(const Trade::MeshData& mesh: meshes) {
        indexed = indexed || mesh.isIndexed();
        count += mesh.isIndexed() ? mesh.indexCount() : mesh.vertexCount();
    }
    if(!indexed) return {};

    Containers::Array<char> out{NoInit, count * sizeof(UnsignedInt)};
    const Containers::ArrayView<UnsignedInt> indices = Containers::arrayCast<UnsignedInt>(out);
    std::size_t begin = 0;
    UnsignedInt firstVertex = 0;
    for(const Trade::MeshData& mesh: meshes) {
        const auto part = indices.sliceSize(begin, mesh.isIndexed() ? mesh.indexCount() : mesh.vertexCount());
        if(mesh.isIndexed()) {
            mesh.indicesInto(part);
            for(UnsignedInt& index: part) index += firstVertex;
        } else {
            for(std::size_t i = 0; i != part.size(); ++i) part[i] = firstVertex + UnsignedInt(i);
        }
        begin += part.size();
        firstVertex += mesh.vertexCount();
    }
    return out;
}

}

Trade::MeshData concatenate(const Meshes& meshes, InterleaveFlags flags) {
    CORRADE_ASSERT(!meshes.isEmpty(), "MeshTools::concatenate(): expected at least one mesh",
        (Trade::MeshData{MeshPrimitive::Points, Containers::Array<char>{}, {}, 0}));
    checkPrimitives(meshes);

    const Trade::MeshData& first = meshes[0];
    const Implementation::Layout layout = flags & InterleaveFlag::PreserveInterleavedAttributes
        ? Implementation::preservedLayout(first)
        : Implementation::packedLayout(first);
    UnsignedInt vertexCount = 0;
    for(const Trade::MeshData& mesh: meshes) vertexCount += mesh.vertexCount();

    // Zeroed for what some meshes lack and for the padding.
    Containers::Array<char> vertexData{ValueInit, vertexCount * layout.stride};
    Containers::Array<Trade::MeshAttributeData> attributes{ValueInit, first.attributeCount()};
    for(UnsignedInt i = 0; i != first.attributeCount(); ++i) {
        const Trade::MeshAttribute name = first.attributeName(i);
        const Int morphTarget = first.attributeMorphTargetId(i);
        attributes[i] = Trade::MeshAttributeData{name, first.attributeFormat(i), layout.offsets[i], vertexCount,
            std::ptrdiff_t(layout.stride), first.attributeArraySize(i), morphTarget};

        std::size_t firstVertex = 0;
        for(std::size_t j = 0; j != meshes.size(); ++j) {
            const Containers::Optional<UnsignedInt> id =
                meshes[j].findAttributeId(name, first.attributeId(i), morphTarget);
            if(id) {
                checkAttribute(first, i, meshes[j], *id, j);
                Implementation::copyAttribute(
                    meshes[j], *id, vertexData.data() + firstVertex * layout.stride + layout.offsets[i], layout.stride);
            }
            firstVertex += meshes[j].vertexCount();
        }
    }

    Containers::Array<char> indexData = concatenatedIndices(meshes);
    const Trade::MeshIndexData indices =
        indexData.isEmpty() ? Trade::MeshIndexData{} : Trade::MeshIndexData{MeshIndexType::UnsignedInt, indexData};
    return Trade::MeshData{first.primitive(), Utility::move(indexData), indices, Utility::move(vertexData),
        Utility::move(attributes), vertexCount};
}

}
