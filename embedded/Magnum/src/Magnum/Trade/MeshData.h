#pragma once

#include <cstddef>
#include <initializer_list>
#include <type_traits>

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/Containers.h"
#include "Corrade/Containers/StridedArrayView.h"
#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/Mesh.h"
#include "Magnum/Trade/Data.h"
#include "Magnum/Trade/Implementation/VertexFormatFor.h"
#include "Magnum/VertexFormat.h"

namespace Magnum::Trade {

enum class MeshAttribute : UnsignedShort {
    // Two or three components of any float but double, or of bytes or shorts, normalized or not.
    Position = 1,
    // Three or four components of any float but double, or of normalized signed bytes or shorts. A fourth one is the
    // sign of the bitangent.
    Tangent,
    // As a tangent, of three components.
    Bitangent,
    Normal,
    // As a position, of two components.
    TextureCoordinates,
    // Three or four components of any float but double, or of normalized unsigned bytes or shorts.
    Color,
    // Arrays of unsigned integers, one item for each joint that moves the vertex.
    JointIds,
    // Arrays of floats, halves or normalized unsigned bytes or shorts, as many as there are joint IDs.
    Weights,
    // An unsigned integer.
    ObjectId
    // 32768 and on: custom attributes of any format.
};

constexpr bool isMeshAttributeCustom(MeshAttribute name) { return UnsignedShort(name) >= 32768; }
// Asserts that the ID is less than 32768.
constexpr MeshAttribute meshAttributeCustom(UnsignedShort id) {
    CORRADE_CONSTEXPR_ASSERT(id < 32768, "Trade::meshAttributeCustom(): index" << id << "too large");
    return MeshAttribute(32768 + id);
}

// "Trade::MeshAttribute::Position", "Trade::MeshAttribute::Custom(3)".
CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, MeshAttribute value);

// Type and place of the indices of a mesh. Does not own anything.
class CORRADE_VISIBILITY_EXPORT MeshIndexData {
public:
    // Stands for no indices.
    explicit MeshIndexData() noexcept = default;

    // From contiguous data of any type. Asserts that the size in bytes is a multiple of the size of the index type.
    template<class T, class = std::enable_if_t<std::is_convertible<const T&, Containers::ArrayView<const void>>::value>>
    explicit MeshIndexData(MeshIndexType type, const T& data) noexcept:
        MeshIndexData{contiguous(type, Containers::ArrayView<const void>(data))} {}

    explicit MeshIndexData(MeshIndexType type, const Containers::StridedArrayView1D<const void>& data) noexcept:
        _type{type}, _data{data} {}
    explicit MeshIndexData(const Containers::StridedArrayView1D<const UnsignedByte>& data) noexcept:
        MeshIndexData{MeshIndexType::UnsignedByte, Containers::StridedArrayView1D<const void>{data}} {}
    explicit MeshIndexData(const Containers::StridedArrayView1D<const UnsignedShort>& data) noexcept:
        MeshIndexData{MeshIndexType::UnsignedShort, Containers::StridedArrayView1D<const void>{data}} {}
    explicit MeshIndexData(const Containers::StridedArrayView1D<const UnsignedInt>& data) noexcept:
        MeshIndexData{MeshIndexType::UnsignedInt, Containers::StridedArrayView1D<const void>{data}} {}

private:
    friend MeshData;

    static MeshIndexData contiguous(MeshIndexType type, Containers::ArrayView<const void> data);

    MeshIndexType _type{};
    Containers::StridedArrayView1D<const void> _data;
};

// Name, format and place of one attribute of a mesh. Does not own anything. The constructors assert that the attribute
// can have the format, be an array and belong to a morph target, and that the stride fits into 16 bits.
class CORRADE_VISIBILITY_EXPORT MeshAttributeData {
public:
    explicit MeshAttributeData() noexcept = default;

    // arraySize is zero for everything but arrays; morphTargetId -1 for attributes of the mesh itself.
    // The data are anything that converts to Containers::StridedArrayView1D<const void>.
    template<class Data,
        class = std::enable_if_t<std::is_convertible<const Data&, Containers::StridedArrayView1D<const void>>::value>>
    explicit MeshAttributeData(MeshAttribute name, VertexFormat format, const Data& data, UnsignedShort arraySize = 0,
        Int morphTargetId = -1) noexcept:
        MeshAttributeData{Containers::StridedArrayView1D<const void>(data), name, format, arraySize, morphTargetId} {}

    template<class T>
    explicit MeshAttributeData(
        MeshAttribute name, const Containers::StridedArrayView1D<T>& data, Int morphTargetId = -1) noexcept:
        MeshAttributeData{Containers::StridedArrayView1D<const void>{data}, name,
            Implementation::VertexFormatFor<std::remove_const_t<T>>::Format, 0, morphTargetId} {}
    template<class T>
    explicit MeshAttributeData(
        MeshAttribute name, const Containers::ArrayView<T>& data, Int morphTargetId = -1) noexcept:
        MeshAttributeData{name, Containers::StridedArrayView1D<T>{data}, morphTargetId} {}

    // For data that do not exist yet: the offset counts from the beginning of the vertex data that the mesh gets.
    explicit MeshAttributeData(MeshAttribute name, VertexFormat format, std::size_t offset, UnsignedInt vertexCount,
        std::ptrdiff_t stride, UnsignedShort arraySize = 0, Int morphTargetId = -1) noexcept;

private:
    friend MeshData;

    explicit MeshAttributeData(const Containers::StridedArrayView1D<const void>& data, MeshAttribute name,
        VertexFormat format, UnsignedShort arraySize, Int morphTargetId) noexcept;

    void check(std::ptrdiff_t stride, Int morphTargetId) const;
    const char* begin(Containers::ArrayView<const char> vertexData) const;

    // The pointer, or a number when it is an offset.
    const char* _data{};
    std::size_t _offset{};
    bool _isOffsetOnly{};
    MeshAttribute _name{};
    VertexFormat _format{};
    UnsignedInt _vertexCount{};
    Short _stride{};
    UnsignedShort _arraySize{};
    Byte _morphTargetId{-1};
};

// Vertices and indices in memory. The structure is fixed on construction; the data can be changed in place when their
// flags say so. Movable only.
//
// Attributes are found by their number, in the order of construction, or by name, number among those of that name and
// morph target (-1: none). Every function that does not say otherwise asserts that the attribute is there.
class CORRADE_VISIBILITY_EXPORT MeshData {
public:
    enum : UnsignedInt {
        // As many vertices as the first attribute has.
        ImplicitVertexCount = ~UnsignedInt{}
    };

    // All of these assert that indices and attributes lie inside of the data, that the attributes have the same number
    // of vertices and that weights match joint IDs. A count that is not implicit overrides that of the attributes.

    // Owned, mutable data.
    explicit MeshData(MeshPrimitive primitive, Containers::Array<char>&& indexData, const MeshIndexData& indices,
        Containers::Array<char>&& vertexData, Containers::Array<MeshAttributeData>&& attributes,
        UnsignedInt vertexCount = ImplicitVertexCount) noexcept;
    explicit MeshData(MeshPrimitive primitive, Containers::Array<char>&& indexData, const MeshIndexData& indices,
        Containers::Array<char>&& vertexData, std::initializer_list<MeshAttributeData> attributes,
        UnsignedInt vertexCount = ImplicitVertexCount) noexcept;
    explicit MeshData(MeshPrimitive primitive, Containers::Array<char>&& vertexData,
        Containers::Array<MeshAttributeData>&& attributes, UnsignedInt vertexCount = ImplicitVertexCount) noexcept;
    explicit MeshData(MeshPrimitive primitive, Containers::Array<char>&& vertexData,
        std::initializer_list<MeshAttributeData> attributes, UnsignedInt vertexCount = ImplicitVertexCount) noexcept;

    // Someone else's data, that have to stay in memory; the flags must not say that they are owned.
    explicit MeshData(MeshPrimitive primitive, DataFlags indexDataFlags, Containers::ArrayView<const void> indexData,
        const MeshIndexData& indices, DataFlags vertexDataFlags, Containers::ArrayView<const void> vertexData,
        Containers::Array<MeshAttributeData>&& attributes, UnsignedInt vertexCount = ImplicitVertexCount) noexcept;
    explicit MeshData(MeshPrimitive primitive, DataFlags indexDataFlags, Containers::ArrayView<const void> indexData,
        const MeshIndexData& indices, DataFlags vertexDataFlags, Containers::ArrayView<const void> vertexData,
        std::initializer_list<MeshAttributeData> attributes, UnsignedInt vertexCount = ImplicitVertexCount) noexcept;
    explicit MeshData(MeshPrimitive primitive, DataFlags vertexDataFlags, Containers::ArrayView<const void> vertexData,
        Containers::Array<MeshAttributeData>&& attributes, UnsignedInt vertexCount = ImplicitVertexCount) noexcept;
    explicit MeshData(MeshPrimitive primitive, DataFlags vertexDataFlags, Containers::ArrayView<const void> vertexData,
        std::initializer_list<MeshAttributeData> attributes, UnsignedInt vertexCount = ImplicitVertexCount) noexcept;

    MeshData(MeshData&&) noexcept = default;
    MeshData& operator=(MeshData&&) noexcept = default;

    MeshPrimitive primitive() const { return _primitive; }
    DataFlags indexDataFlags() const { return _indexDataFlags; }
    DataFlags vertexDataFlags() const { return _vertexDataFlags; }

    Containers::ArrayView<const char> indexData() const { return _indexData; }
    Containers::ArrayView<const char> vertexData() const { return _vertexData; }
    // These assert that the data are mutable.
    Containers::ArrayView<char> mutableIndexData();
    Containers::ArrayView<char> mutableVertexData();

    bool isIndexed() const { return _indexType != MeshIndexType{}; }
    // All further functions about indices assert that the mesh is indexed.
    UnsignedInt indexCount() const;
    MeshIndexType indexType() const;
    // In the index data, in bytes.
    std::size_t indexOffset() const;
    Short indexStride() const;
    // The bytes of every index; nothing for a mesh that is not indexed.
    Containers::StridedArrayView2D<const char> indices() const;
    // Asserts that T is the index type.
    template<class T> Containers::StridedArrayView1D<const T> indices() const;
    Containers::Array<UnsignedInt> indicesAsArray() const;
    // Asserts that there is a place for every index.
    void indicesInto(const Containers::StridedArrayView1D<UnsignedInt>& destination) const;

    UnsignedInt vertexCount() const { return _vertexCount; }

    UnsignedInt attributeCount() const { return UnsignedInt(_attributes.size()); }
    UnsignedInt attributeCount(MeshAttribute name, Int morphTargetId = -1) const;
    bool hasAttribute(MeshAttribute name, Int morphTargetId = -1) const;
    // Empty when it is not there.
    Containers::Optional<UnsignedInt> findAttributeId(
        MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1) const;
    UnsignedInt attributeId(MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1) const;

    MeshAttribute attributeName(UnsignedInt id) const;
    // The number among the attributes of the same name and morph target.
    UnsignedInt attributeId(UnsignedInt id) const;
    Int attributeMorphTargetId(UnsignedInt id) const;
    VertexFormat attributeFormat(UnsignedInt id) const;
    VertexFormat attributeFormat(MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1) const;
    // In the vertex data, in bytes.
    std::size_t attributeOffset(UnsignedInt id) const;
    std::size_t attributeOffset(MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1) const;
    Short attributeStride(UnsignedInt id) const;
    Short attributeStride(MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1) const;
    // Zero when the attribute is not an array.
    UnsignedShort attributeArraySize(UnsignedInt id) const;
    UnsignedShort attributeArraySize(MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1) const;

    // The bytes of the attribute in every vertex. The mutable forms assert that the vertex data are mutable.
    Containers::StridedArrayView2D<const char> attribute(UnsignedInt id) const;
    Containers::StridedArrayView2D<const char> attribute(
        MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1) const;
    Containers::StridedArrayView2D<char> mutableAttribute(UnsignedInt id);
    Containers::StridedArrayView2D<char> mutableAttribute(
        MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1);

    // These assert that the format is that of T or its normalized form, and that the attribute is not an array.
    template<class T> Containers::StridedArrayView1D<const T> attribute(UnsignedInt id) const;
    template<class T>
    Containers::StridedArrayView1D<const T> attribute(
        MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1) const {
        return attribute<T>(requireAttribute("attribute", name, id, morphTargetId));
    }
    template<class T> Containers::StridedArrayView1D<T> mutableAttribute(UnsignedInt id);
    template<class T>
    Containers::StridedArrayView1D<T> mutableAttribute(MeshAttribute name, UnsignedInt id = 0, Int morphTargetId = -1) {
        return mutableAttribute<T>(requireAttribute("mutableAttribute", name, id, morphTargetId));
    }

    // Copies that are converted from whatever format the attribute has. The Into forms assert that there is a place for
    // every vertex.

    // Z is zero for positions of two components.
    Containers::Array<Vector3> positions3DAsArray(UnsignedInt id = 0, Int morphTargetId = -1) const;
    void positions3DInto(
        const Containers::StridedArrayView1D<Vector3>& destination, UnsignedInt id = 0, Int morphTargetId = -1) const;
    // Without the fourth component.
    Containers::Array<Vector3> tangentsAsArray(UnsignedInt id = 0, Int morphTargetId = -1) const;
    void tangentsInto(
        const Containers::StridedArrayView1D<Vector3>& destination, UnsignedInt id = 0, Int morphTargetId = -1) const;
    Containers::Array<Vector3> normalsAsArray(UnsignedInt id = 0, Int morphTargetId = -1) const;
    void normalsInto(
        const Containers::StridedArrayView1D<Vector3>& destination, UnsignedInt id = 0, Int morphTargetId = -1) const;
    Containers::Array<Vector2> textureCoordinates2DAsArray(UnsignedInt id = 0, Int morphTargetId = -1) const;
    void textureCoordinates2DInto(
        const Containers::StridedArrayView1D<Vector2>& destination, UnsignedInt id = 0, Int morphTargetId = -1) const;
    // Alpha is one for colours of three components.
    Containers::Array<Color4> colorsAsArray(UnsignedInt id = 0, Int morphTargetId = -1) const;
    void colorsInto(
        const Containers::StridedArrayView1D<Color4>& destination, UnsignedInt id = 0, Int morphTargetId = -1) const;
    // Vertex by vertex, as many items for each as the array size says.
    Containers::Array<UnsignedInt> jointIdsAsArray(UnsignedInt id = 0) const;
    void jointIdsInto(const Containers::StridedArrayView2D<UnsignedInt>& destination, UnsignedInt id = 0) const;
    Containers::Array<Float> weightsAsArray(UnsignedInt id = 0) const;
    void weightsInto(const Containers::StridedArrayView2D<Float>& destination, UnsignedInt id = 0) const;

    // These give data away. Without index data there are no indices, without vertex data no vertices, without
    // attributes no attributes left.
    Containers::Array<char> releaseIndexData();
    Containers::Array<char> releaseVertexData();
    Containers::Array<MeshAttributeData> releaseAttributeData();

private:
    explicit MeshData(MeshPrimitive primitive, Containers::Array<char>&& indexData, DataFlags indexDataFlags,
        const MeshIndexData& indices, Containers::Array<char>&& vertexData, DataFlags vertexDataFlags,
        Containers::Array<MeshAttributeData>&& attributes, UnsignedInt vertexCount) noexcept;

    void checkIndices() const;
    void checkAttributes() const;
    void checkWeights() const;
    UnsignedInt requireAttribute(const char* function, MeshAttribute name, UnsignedInt id, Int morphTargetId) const;
    UnsignedInt requireAttribute(
        const char* function, const char* noun, MeshAttribute name, UnsignedInt id, Int morphTargetId) const;
    const MeshAttributeData& attributeData(const char* function, UnsignedInt id) const;
    void requireIndexType(MeshIndexType type) const;
    void requireFormat(const char* function, UnsignedInt id, VertexFormat format, bool hasNormalized) const;
    Containers::StridedArrayView2D<const char> attributeBytes(const MeshAttributeData& attribute) const;
    void unpackInto(const char* function, const char* noun, const Containers::StridedArrayView2D<Float>& destination,
        Float missing, MeshAttribute name, UnsignedInt id, Int morphTargetId) const;

    MeshPrimitive _primitive;
    MeshIndexType _indexType;
    Short _indexStride;
    DataFlags _indexDataFlags, _vertexDataFlags;
    UnsignedInt _indexCount, _vertexCount;
    const char* _indices;
    Containers::Array<char> _indexData, _vertexData;
    Containers::Array<MeshAttributeData> _attributes;
};

template<class T> Containers::StridedArrayView1D<const T> MeshData::indices() const {
    static_assert(std::is_unsigned<T>::value && sizeof(T) <= 4, "not an index type");
    requireIndexType(sizeof(T) == 4 ? MeshIndexType::UnsignedInt
            : sizeof(T) == 2        ? MeshIndexType::UnsignedShort
                                    : MeshIndexType::UnsignedByte);
    return Containers::arrayCast<1, const T>(indices());
}

template<class T> Containers::StridedArrayView1D<const T> MeshData::attribute(UnsignedInt id) const {
    typedef Implementation::VertexFormatFor<T> Type;
    requireFormat("attribute", id, Type::Format, Type::HasNormalized);
    return Containers::arrayCast<1, const T>(attribute(id));
}

template<class T> Containers::StridedArrayView1D<T> MeshData::mutableAttribute(UnsignedInt id) {
    typedef Implementation::VertexFormatFor<T> Type;
    requireFormat("mutableAttribute", id, Type::Format, Type::HasNormalized);
    return Containers::arrayCast<1, T>(mutableAttribute(id));
}

}
