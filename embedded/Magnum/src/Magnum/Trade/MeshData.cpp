#include "Magnum/Trade/MeshData.h"

#include <algorithm>
#include <cstring>
#include <limits>

#include "Corrade/Containers/EnumSet.hpp"
#include "Corrade/Containers/Optional.h"
#include "Corrade/Utility/Algorithms.h"
#include "Magnum/Implementation/EnumDebug.h"
#include "Magnum/Math/Color.h"
#include "Magnum/Math/Half.h"
#include "Magnum/Math/Vector2.h"
#include "Magnum/Math/Vector3.h"
#include "Magnum/Trade/Implementation/ReferencedArray.h"

namespace Magnum::Trade {

namespace {

// What the parameter of a vertex format tells about the attribute.
enum FormatKind {
    FloatKind = 1,
    UnsignedKind = 2,
    SignedKind = 4,
    UnsignedNormalizedKind = 8,
    SignedNormalizedKind = 16
};

FormatKind formatKind(VertexFormat format) {
    switch(vertexFormatComponentFormat(format)) {
    case VertexFormat::UnsignedByte:
    case VertexFormat::UnsignedShort: return isVertexFormatNormalized(format) ? UnsignedNormalizedKind : UnsignedKind;
    case VertexFormat::Byte:
    case VertexFormat::Short: return isVertexFormatNormalized(format) ? SignedNormalizedKind : SignedKind;
    case VertexFormat::Float:
    case VertexFormat::Half: return FloatKind;
    default: return {};
    }
}

bool isFormatAllowed(MeshAttribute name, VertexFormat format) {
    const UnsignedInt components = vertexFormatComponentCount(format);
    const UnsignedInt kind = formatKind(format);
    constexpr UnsignedInt AnyKind =
        FloatKind | UnsignedKind | SignedKind | UnsignedNormalizedKind | SignedNormalizedKind;
    switch(name) {
    case MeshAttribute::Position: return (components == 2 || components == 3) && kind & AnyKind;
    case MeshAttribute::TextureCoordinates: return components == 2 && kind & AnyKind;
    case MeshAttribute::Tangent: return components >= 3 && kind & (FloatKind | SignedNormalizedKind);
    case MeshAttribute::Bitangent:
    case MeshAttribute::Normal: return components == 3 && kind & (FloatKind | SignedNormalizedKind);
    case MeshAttribute::Color: return components >= 3 && kind & (FloatKind | UnsignedNormalizedKind);
    case MeshAttribute::Weights: return components == 1 && kind & (FloatKind | UnsignedNormalizedKind);
    case MeshAttribute::JointIds:
    case MeshAttribute::ObjectId:
        return components == 1 && (kind == UnsignedKind || format == VertexFormat::UnsignedInt);
    }
    return isMeshAttributeCustom(name);
}

bool isArrayAllowed(MeshAttribute name) {
    return name == MeshAttribute::JointIds || name == MeshAttribute::Weights || isMeshAttributeCustom(name);
}

bool isMorphTargetAllowed(MeshAttribute name) { return name <= MeshAttribute::Color || isMeshAttributeCustom(name); }

// For views of what was found to be inside of the data before: a view would want the padding behind the last item, too.
template<class T> constexpr Containers::ArrayView<T> Everything{nullptr, ~std::size_t{}};

UnsignedInt itemCount(UnsignedShort arraySize) { return arraySize ? arraySize : 1; }

// The memory between the first byte of the first and the last byte of the last of `count` items, for messages too.
struct Span {
    const char* begin;
    const char* end;

    explicit Span(Containers::ArrayView<const char> data): begin{data.begin()}, end{data.end()} {}
    explicit Span(const char* first, std::size_t count, std::ptrdiff_t stride, std::size_t size) {
        const std::ptrdiff_t last = count ? std::ptrdiff_t(count - 1) * stride : 0;
        begin = first + std::min<std::ptrdiff_t>(last, 0);
        end = first + std::max<std::ptrdiff_t>(last, 0) + (count ? size : 0);
    }

    bool isIn(const Span& other) const { return begin >= other.begin && end <= other.end; }
};

Debug& operator<<(Debug& debug, const Span& span) {
    return debug << "[" << Debug::nospace << static_cast<const void*>(span.begin) << Debug::nospace << ":"
                 << Debug::nospace << static_cast<const void*>(span.end) << Debug::nospace << "]";
}

// The end of the message about an attribute that is not there.
struct MissingAttribute {
    const char* noun;
    MeshAttribute name;
    Int morphTargetId;
};

Debug& operator<<(Debug& debug, const MissingAttribute& missing) {
    if(missing.noun)
        debug << missing.noun;
    else
        debug << missing.name;
    debug << "attributes";
    if(missing.morphTargetId != -1) debug << "in morph target" << missing.morphTargetId;
    return debug;
}

template<class T>
void convertInto(const Containers::StridedArrayView2D<const char>& source, bool normalized,
    const Containers::StridedArrayView2D<Float>& destination) {
    const std::size_t count = std::min(source.size()[1] / sizeof(T), destination.size()[1]);
    for(std::size_t i = 0; i != source.size()[0]; ++i) {
        const char* const bytes = &source[i][0];
        for(std::size_t j = 0; j != count; ++j) {
            // Attributes need not be aligned.
            T value;
            std::memcpy(&value, bytes + j * sizeof(T), sizeof(T));
            Float& out = destination[i][j];
            out = Float(value);
            if constexpr(std::numeric_limits<T>::is_integer) {
                // Both the lowest value and the one above stand for -1.
                if(normalized) out = std::max(out / Float(std::numeric_limits<T>::max()), -1.0f);
            }
        }
    }
}

template<class T>
void castInto(const Containers::StridedArrayView2D<const char>& source,
    const Containers::StridedArrayView2D<UnsignedInt>& destination) {
    for(std::size_t i = 0; i != source.size()[0]; ++i) {
        const char* const bytes = &source[i][0];
        for(std::size_t j = 0; j != destination.size()[1]; ++j) {
            T value;
            std::memcpy(&value, bytes + j * sizeof(T), sizeof(T));
            destination[i][j] = value;
        }
    }
}

// From unsigned integers of one, two or four bytes.
void castInto(const Containers::StridedArrayView2D<const char>& source, UnsignedInt size,
    const Containers::StridedArrayView2D<UnsignedInt>& destination) {
    if(size == 1) return castInto<UnsignedByte>(source, destination);
    if(size == 2) return castInto<UnsignedShort>(source, destination);
    castInto<UnsignedInt>(source, destination);
}

}

Debug& operator<<(Debug& debug, MeshAttribute value) {
    static constexpr const char* Names[]{
        "Position", "Tangent", "Bitangent", "Normal", "TextureCoordinates", "Color", "JointIds", "Weights", "ObjectId"};
    if(isMeshAttributeCustom(value))
        return debug << "Trade::MeshAttribute::Custom(" << Debug::nospace << UnsignedShort(value) - 32768
                     << Debug::nospace << ")";
    return Magnum::Implementation::printEnum(debug, "Trade::MeshAttribute", Names, 1, value);
}

MeshIndexData MeshIndexData::contiguous(MeshIndexType type, Containers::ArrayView<const void> data) {
    const UnsignedInt size = meshIndexTypeSize(type);
    CORRADE_ASSERT(data.size() % size == 0,
        "Trade::MeshIndexData: view size" << data.size() << "does not correspond to" << type, MeshIndexData{});
    return MeshIndexData{
        type, Containers::StridedArrayView1D<const void>{data, data.size() / size, std::ptrdiff_t(size)}};
}

MeshAttributeData::MeshAttributeData(const Containers::StridedArrayView1D<const void>& data, MeshAttribute name,
    VertexFormat format, UnsignedShort arraySize, Int morphTargetId) noexcept:
    _data{static_cast<const char*>(data.data())},
    _name{name}, _format{format}, _vertexCount{UnsignedInt(data.size())}, _stride{Short(data.stride())},
    _arraySize{arraySize}, _morphTargetId{Byte(morphTargetId)} {
    check(data.stride(), morphTargetId);
}

MeshAttributeData::MeshAttributeData(MeshAttribute name, VertexFormat format, std::size_t offset,
    UnsignedInt vertexCount, std::ptrdiff_t stride, UnsignedShort arraySize, Int morphTargetId) noexcept:
    _offset{offset},
    _isOffsetOnly{true}, _name{name}, _format{format}, _vertexCount{vertexCount}, _stride{Short(stride)},
    _arraySize{arraySize}, _morphTargetId{Byte(morphTargetId)} {
    check(stride, morphTargetId);
}

void MeshAttributeData::check(std::ptrdiff_t stride, Int morphTargetId) const {
    CORRADE_ASSERT(isFormatAllowed(_name, _format),
        "Trade::MeshAttributeData:" << _format << "is not a valid format for" << _name, );
    CORRADE_ASSERT(
        !_arraySize || isArrayAllowed(_name), "Trade::MeshAttributeData:" << _name << "can't be an array attribute", );
    CORRADE_ASSERT(
        stride == Short(stride), "Trade::MeshAttributeData: expected stride to fit into 16 bits but got" << stride, );
    CORRADE_ASSERT(morphTargetId >= -1 && morphTargetId < 128,
        "Trade::MeshAttributeData: expected morph target ID to be either -1 or less than 128 but got"
            << morphTargetId, );
    CORRADE_ASSERT(morphTargetId == -1 || isMorphTargetAllowed(_name),
        "Trade::MeshAttributeData: morph target not allowed for" << _name, );
}

const char* MeshAttributeData::begin(Containers::ArrayView<const char> vertexData) const {
    return _isOffsetOnly ? vertexData.data() + _offset : _data;
}

MeshData::MeshData(MeshPrimitive primitive, Containers::Array<char>&& indexData, DataFlags indexDataFlags,
    const MeshIndexData& indices, Containers::Array<char>&& vertexData, DataFlags vertexDataFlags,
    Containers::Array<MeshAttributeData>&& attributes, UnsignedInt vertexCount) noexcept:
    _primitive{primitive},
    _indexType{indices._type}, _indexStride{Short(indices._data.stride())}, _indexDataFlags{indexDataFlags},
    _vertexDataFlags{vertexDataFlags}, _indexCount{UnsignedInt(indices._data.size())}, _vertexCount{vertexCount},
    _indices{static_cast<const char*>(indices._data.data())}, _indexData{Utility::move(indexData)},
    _vertexData{Utility::move(vertexData)}, _attributes{Utility::move(attributes)} {
    if(_vertexCount == ImplicitVertexCount) {
        CORRADE_ASSERT(
            !_attributes.isEmpty(), "Trade::MeshData: vertex count can't be implicit if there are no attributes", );
        _vertexCount = _attributes[0]._vertexCount;
    }
    checkIndices();
    checkAttributes();
    checkWeights();
}

void MeshData::checkIndices() const {
    if(!isIndexed()) {
        CORRADE_ASSERT(_indexData.isEmpty(), "Trade::MeshData: indexData passed for a non-indexed mesh", );
        return;
    }
    if(!_indexCount) return;
    const Span data{_indexData};
    const Span indices{_indices, _indexCount, _indexStride, meshIndexTypeSize(_indexType)};
    CORRADE_ASSERT(indices.isIn(data),
        "Trade::MeshData: indices" << indices << "are not contained in passed indexData array" << data, );
}

void MeshData::checkAttributes() const {
    const Span data{_vertexData};
    for(std::size_t i = 0; i != _attributes.size(); ++i) {
        const MeshAttributeData& attribute = _attributes[i];
        CORRADE_ASSERT(
            attribute._format != VertexFormat{}, "Trade::MeshData: attribute" << i << "doesn't specify anything", );
        CORRADE_ASSERT(attribute._vertexCount == _attributes[0]._vertexCount,
            "Trade::MeshData: attribute" << i << "has" << attribute._vertexCount << "vertices but"
                                         << _attributes[0]._vertexCount << "expected", );
        if(!_vertexCount) continue;
        const Span span{attribute.begin(_vertexData), _vertexCount, attribute._stride,
            vertexFormatSize(attribute._format) * itemCount(attribute._arraySize)};
        CORRADE_ASSERT(!attribute._isOffsetOnly || span.isIn(data),
            "Trade::MeshData: offset-only attribute" << i << "spans" << span.end - data.begin
                                                     << "bytes but passed vertexData array has only"
                                                     << _vertexData.size(), );
        CORRADE_ASSERT(span.isIn(data),
            "Trade::MeshData: attribute" << i << span << "is not contained in passed vertexData array" << data, );
    }
}

void MeshData::checkWeights() const {
    const UnsignedInt count = attributeCount(MeshAttribute::JointIds);
    CORRADE_ASSERT(attributeCount(MeshAttribute::Weights) == count,
        "Trade::MeshData: expected" << count << "weight attributes to match joint IDs but got"
                                    << attributeCount(MeshAttribute::Weights), );
    for(UnsignedInt i = 0; i != count; ++i) {
        const UnsignedShort joints = attributeArraySize(MeshAttribute::JointIds, i);
        const UnsignedShort weights = attributeArraySize(MeshAttribute::Weights, i);
        CORRADE_ASSERT(joints == weights,
            "Trade::MeshData: expected" << joints << "array items for weight attribute" << i
                                        << "to match joint IDs but got" << weights, );
    }
}

MeshData::MeshData(MeshPrimitive primitive, Containers::Array<char>&& indexData, const MeshIndexData& indices,
    Containers::Array<char>&& vertexData, Containers::Array<MeshAttributeData>&& attributes,
    UnsignedInt vertexCount) noexcept:
    MeshData{primitive, Utility::move(indexData), DataFlag::Owned | DataFlag::Mutable, indices,
        Utility::move(vertexData), DataFlag::Owned | DataFlag::Mutable, Utility::move(attributes), vertexCount} {}

MeshData::MeshData(MeshPrimitive primitive, Containers::Array<char>&& indexData, const MeshIndexData& indices,
    Containers::Array<char>&& vertexData, std::initializer_list<MeshAttributeData> attributes,
    UnsignedInt vertexCount) noexcept:
    MeshData{primitive, Utility::move(indexData), indices, Utility::move(vertexData),
        Containers::Array<MeshAttributeData>{InPlaceInit, attributes}, vertexCount} {}

MeshData::MeshData(MeshPrimitive primitive, Containers::Array<char>&& vertexData,
    Containers::Array<MeshAttributeData>&& attributes, UnsignedInt vertexCount) noexcept:
    MeshData{primitive, Containers::Array<char>{}, MeshIndexData{}, Utility::move(vertexData),
        Utility::move(attributes), vertexCount} {}

MeshData::MeshData(MeshPrimitive primitive, Containers::Array<char>&& vertexData,
    std::initializer_list<MeshAttributeData> attributes, UnsignedInt vertexCount) noexcept:
    MeshData{primitive, Utility::move(vertexData), Containers::Array<MeshAttributeData>{InPlaceInit, attributes},
        vertexCount} {}

MeshData::MeshData(MeshPrimitive primitive, DataFlags indexDataFlags, Containers::ArrayView<const void> indexData,
    const MeshIndexData& indices, DataFlags vertexDataFlags, Containers::ArrayView<const void> vertexData,
    Containers::Array<MeshAttributeData>&& attributes, UnsignedInt vertexCount) noexcept:
    MeshData{primitive, Implementation::referencedArray(indexData), indexDataFlags, indices,
        Implementation::referencedArray(vertexData), vertexDataFlags, Utility::move(attributes), vertexCount} {
    CORRADE_ASSERT(!(indexDataFlags & DataFlag::Owned),
        "Trade::MeshData: can't construct with non-owned index data but" << indexDataFlags, );
    CORRADE_ASSERT(!(vertexDataFlags & DataFlag::Owned),
        "Trade::MeshData: can't construct with non-owned vertex data but" << vertexDataFlags, );
}

MeshData::MeshData(MeshPrimitive primitive, DataFlags indexDataFlags, Containers::ArrayView<const void> indexData,
    const MeshIndexData& indices, DataFlags vertexDataFlags, Containers::ArrayView<const void> vertexData,
    std::initializer_list<MeshAttributeData> attributes, UnsignedInt vertexCount) noexcept:
    MeshData{primitive, indexDataFlags, indexData, indices, vertexDataFlags, vertexData,
        Containers::Array<MeshAttributeData>{InPlaceInit, attributes}, vertexCount} {}

MeshData::MeshData(MeshPrimitive primitive, DataFlags vertexDataFlags, Containers::ArrayView<const void> vertexData,
    Containers::Array<MeshAttributeData>&& attributes, UnsignedInt vertexCount) noexcept:
    MeshData{primitive, Containers::Array<char>{}, DataFlag::Owned | DataFlag::Mutable, MeshIndexData{},
        Implementation::referencedArray(vertexData), vertexDataFlags, Utility::move(attributes), vertexCount} {
    CORRADE_ASSERT(!(vertexDataFlags & DataFlag::Owned),
        "Trade::MeshData: can't construct with non-owned vertex data but" << vertexDataFlags, );
}

MeshData::MeshData(MeshPrimitive primitive, DataFlags vertexDataFlags, Containers::ArrayView<const void> vertexData,
    std::initializer_list<MeshAttributeData> attributes, UnsignedInt vertexCount) noexcept:
    MeshData{primitive, vertexDataFlags, vertexData, Containers::Array<MeshAttributeData>{InPlaceInit, attributes},
        vertexCount} {}

Containers::ArrayView<char> MeshData::mutableIndexData() {
    CORRADE_ASSERT(
        _indexDataFlags & DataFlag::Mutable, "Trade::MeshData::mutableIndexData(): index data not mutable", {});
    return _indexData;
}

Containers::ArrayView<char> MeshData::mutableVertexData() {
    CORRADE_ASSERT(
        _vertexDataFlags & DataFlag::Mutable, "Trade::MeshData::mutableVertexData(): vertex data not mutable", {});
    return _vertexData;
}

UnsignedInt MeshData::indexCount() const {
    CORRADE_ASSERT(isIndexed(), "Trade::MeshData::indexCount(): the mesh is not indexed", {});
    return _indexCount;
}

MeshIndexType MeshData::indexType() const {
    CORRADE_ASSERT(isIndexed(), "Trade::MeshData::indexType(): the mesh is not indexed", {});
    return _indexType;
}

std::size_t MeshData::indexOffset() const {
    CORRADE_ASSERT(isIndexed(), "Trade::MeshData::indexOffset(): the mesh is not indexed", {});
    return _indices - _indexData.data();
}

Short MeshData::indexStride() const {
    CORRADE_ASSERT(isIndexed(), "Trade::MeshData::indexStride(): the mesh is not indexed", {});
    return _indexStride;
}

Containers::StridedArrayView2D<const char> MeshData::indices() const {
    if(!isIndexed()) return {};
    return {Everything<const void>, _indices, {_indexCount, meshIndexTypeSize(_indexType)}, {_indexStride, 1}};
}

void MeshData::requireIndexType(MeshIndexType type) const {
    CORRADE_ASSERT(isIndexed(), "Trade::MeshData::indices(): the mesh is not indexed", );
    CORRADE_ASSERT(
        type == _indexType, "Trade::MeshData::indices(): indices are" << _indexType << "but requested" << type, );
}

Containers::Array<UnsignedInt> MeshData::indicesAsArray() const {
    CORRADE_ASSERT(isIndexed(), "Trade::MeshData::indicesAsArray(): the mesh is not indexed", {});
    Containers::Array<UnsignedInt> out{NoInit, _indexCount};
    indicesInto(out);
    return out;
}

void MeshData::indicesInto(const Containers::StridedArrayView1D<UnsignedInt>& destination) const {
    CORRADE_ASSERT(isIndexed(), "Trade::MeshData::indicesInto(): the mesh is not indexed", );
    CORRADE_ASSERT(destination.size() == _indexCount,
        "Trade::MeshData::indicesInto(): expected a view with" << _indexCount << "elements but got"
                                                               << destination.size(), );
    castInto(indices(), meshIndexTypeSize(_indexType),
        Containers::StridedArrayView2D<UnsignedInt>{Containers::arrayCast<2, UnsignedInt>(destination)});
}

UnsignedInt MeshData::attributeCount(MeshAttribute name, Int morphTargetId) const {
    return UnsignedInt(std::count_if(_attributes.begin(), _attributes.end(),
        [&](const MeshAttributeData& a) { return a._name == name && a._morphTargetId == morphTargetId; }));
}

bool MeshData::hasAttribute(MeshAttribute name, Int morphTargetId) const {
    return bool(findAttributeId(name, 0, morphTargetId));
}

Containers::Optional<UnsignedInt> MeshData::findAttributeId(
    MeshAttribute name, UnsignedInt id, Int morphTargetId) const {
    for(UnsignedInt i = 0; i != _attributes.size(); ++i) {
        if(_attributes[i]._name != name || _attributes[i]._morphTargetId != morphTargetId) continue;
        if(id-- == 0) return i;
    }
    return {};
}

UnsignedInt MeshData::requireAttribute(
    const char* function, const char* noun, MeshAttribute name, UnsignedInt id, Int morphTargetId) const {
    const Containers::Optional<UnsignedInt> found = findAttributeId(name, id, morphTargetId);
    const MissingAttribute missing{noun, name, morphTargetId};
    CORRADE_ASSERT(found,
        "Trade::MeshData::" << Debug::nospace << function << Debug::nospace << "(): index" << id << "out of range for"
                            << attributeCount(name, morphTargetId) << missing,
        {});
    return *found;
}

UnsignedInt MeshData::requireAttribute(
    const char* function, MeshAttribute name, UnsignedInt id, Int morphTargetId) const {
    return requireAttribute(function, nullptr, name, id, morphTargetId);
}

const MeshAttributeData& MeshData::attributeData(const char* function, UnsignedInt id) const {
    CORRADE_ASSERT(id < _attributes.size(),
        "Trade::MeshData::" << Debug::nospace << function << Debug::nospace << "(): index" << id << "out of range for"
                            << _attributes.size() << "attributes",
        _attributes[0]);
    return _attributes[id];
}

MeshAttribute MeshData::attributeName(UnsignedInt id) const { return attributeData("attributeName", id)._name; }

UnsignedInt MeshData::attributeId(UnsignedInt id) const {
    const MeshAttributeData& attribute = attributeData("attributeId", id);
    return UnsignedInt(
        std::count_if(_attributes.begin(), _attributes.begin() + id, [&](const MeshAttributeData& other) {
            return other._name == attribute._name && other._morphTargetId == attribute._morphTargetId;
        }));
}

UnsignedInt MeshData::attributeId(MeshAttribute name, UnsignedInt id, Int morphTargetId) const {
    return requireAttribute("attributeId", name, id, morphTargetId);
}

Int MeshData::attributeMorphTargetId(UnsignedInt id) const {
    return attributeData("attributeMorphTargetId", id)._morphTargetId;
}

VertexFormat MeshData::attributeFormat(UnsignedInt id) const { return attributeData("attributeFormat", id)._format; }

VertexFormat MeshData::attributeFormat(MeshAttribute name, UnsignedInt id, Int morphTargetId) const {
    return attributeFormat(requireAttribute("attributeFormat", name, id, morphTargetId));
}

std::size_t MeshData::attributeOffset(UnsignedInt id) const {
    return attributeData("attributeOffset", id).begin(_vertexData) - _vertexData.data();
}

std::size_t MeshData::attributeOffset(MeshAttribute name, UnsignedInt id, Int morphTargetId) const {
    return attributeOffset(requireAttribute("attributeOffset", name, id, morphTargetId));
}

Short MeshData::attributeStride(UnsignedInt id) const { return attributeData("attributeStride", id)._stride; }

Short MeshData::attributeStride(MeshAttribute name, UnsignedInt id, Int morphTargetId) const {
    return attributeStride(requireAttribute("attributeStride", name, id, morphTargetId));
}

UnsignedShort MeshData::attributeArraySize(UnsignedInt id) const {
    return attributeData("attributeArraySize", id)._arraySize;
}

UnsignedShort MeshData::attributeArraySize(MeshAttribute name, UnsignedInt id, Int morphTargetId) const {
    return attributeArraySize(requireAttribute("attributeArraySize", name, id, morphTargetId));
}

Containers::StridedArrayView2D<const char> MeshData::attributeBytes(const MeshAttributeData& attribute) const {
    return {Everything<const void>, attribute.begin(_vertexData),
        {_vertexCount, vertexFormatSize(attribute._format) * itemCount(attribute._arraySize)}, {attribute._stride, 1}};
}

Containers::StridedArrayView2D<const char> MeshData::attribute(UnsignedInt id) const {
    return attributeBytes(attributeData("attribute", id));
}

Containers::StridedArrayView2D<const char> MeshData::attribute(
    MeshAttribute name, UnsignedInt id, Int morphTargetId) const {
    return attribute(requireAttribute("attribute", name, id, morphTargetId));
}

Containers::StridedArrayView2D<char> MeshData::mutableAttribute(UnsignedInt id) {
    CORRADE_ASSERT(
        _vertexDataFlags & DataFlag::Mutable, "Trade::MeshData::mutableAttribute(): vertex data not mutable", {});
    const Containers::StridedArrayView2D<const char> bytes = attributeBytes(attributeData("mutableAttribute", id));
    return {Everything<void>, const_cast<char*>(static_cast<const char*>(bytes.data())), bytes.size(), bytes.stride()};
}

Containers::StridedArrayView2D<char> MeshData::mutableAttribute(MeshAttribute name, UnsignedInt id, Int morphTargetId) {
    CORRADE_ASSERT(
        _vertexDataFlags & DataFlag::Mutable, "Trade::MeshData::mutableAttribute(): vertex data not mutable", {});
    return mutableAttribute(requireAttribute("mutableAttribute", name, id, morphTargetId));
}

void MeshData::requireFormat(const char* function, UnsignedInt id, VertexFormat format, bool hasNormalized) const {
    const MeshAttributeData& attribute = attributeData(function, id);
    CORRADE_ASSERT(
        attribute._format == format || (hasNormalized && UnsignedInt(attribute._format) == UnsignedInt(format) + 1),
        "Trade::MeshData::" << Debug::nospace << function << Debug::nospace << "():" << attribute._name << "is"
                            << attribute._format << "but requested a type equivalent to" << format, );
    CORRADE_ASSERT(!attribute._arraySize,
        "Trade::MeshData::" << Debug::nospace << function << Debug::nospace << "():" << attribute._name
                            << "is an array attribute, use T[] to access it", );
}

// Fills what the attribute has no component for with `missing`.
void MeshData::unpackInto(const char* function, const char* noun,
    const Containers::StridedArrayView2D<Float>& destination, Float missing, MeshAttribute name, UnsignedInt id,
    Int morphTargetId) const {
    const MeshAttributeData& data = _attributes[requireAttribute(function, noun, name, id, morphTargetId)];
    CORRADE_ASSERT(destination.size()[0] == _vertexCount,
        "Trade::MeshData::" << Debug::nospace << function << Debug::nospace << "(): expected a view with"
                            << _vertexCount << "elements but got" << destination.size()[0], );
    const Containers::StridedArrayView2D<const char> source = attributeBytes(data);
    const bool normalized = isVertexFormatNormalized(data._format);
    switch(vertexFormatComponentFormat(data._format)) {
    case VertexFormat::Float: convertInto<Float>(source, normalized, destination); break;
    case VertexFormat::Half: convertInto<Half>(source, normalized, destination); break;
    case VertexFormat::UnsignedByte: convertInto<UnsignedByte>(source, normalized, destination); break;
    case VertexFormat::Byte: convertInto<Byte>(source, normalized, destination); break;
    case VertexFormat::UnsignedShort: convertInto<UnsignedShort>(source, normalized, destination); break;
    case VertexFormat::Short: convertInto<Short>(source, normalized, destination); break;
    default: CORRADE_INTERNAL_ASSERT_UNREACHABLE();
    }
    const std::size_t given = vertexFormatComponentCount(data._format) * itemCount(data._arraySize);
    for(std::size_t i = 0; i != destination.size()[0]; ++i)
        for(std::size_t j = given; j < destination.size()[1]; ++j) destination[i][j] = missing;
}

Containers::Array<Vector3> MeshData::positions3DAsArray(UnsignedInt id, Int morphTargetId) const {
    Containers::Array<Vector3> out{NoInit, _vertexCount};
    positions3DInto(out, id, morphTargetId);
    return out;
}

void MeshData::positions3DInto(
    const Containers::StridedArrayView1D<Vector3>& destination, UnsignedInt id, Int morphTargetId) const {
    unpackInto("positions3DInto", "position", Containers::arrayCast<2, Float>(destination), 0.0f,
        MeshAttribute::Position, id, morphTargetId);
}

Containers::Array<Vector3> MeshData::tangentsAsArray(UnsignedInt id, Int morphTargetId) const {
    Containers::Array<Vector3> out{NoInit, _vertexCount};
    tangentsInto(out, id, morphTargetId);
    return out;
}

void MeshData::tangentsInto(
    const Containers::StridedArrayView1D<Vector3>& destination, UnsignedInt id, Int morphTargetId) const {
    unpackInto("tangentsInto", "tangent", Containers::arrayCast<2, Float>(destination), 0.0f, MeshAttribute::Tangent,
        id, morphTargetId);
}

Containers::Array<Vector3> MeshData::normalsAsArray(UnsignedInt id, Int morphTargetId) const {
    Containers::Array<Vector3> out{NoInit, _vertexCount};
    normalsInto(out, id, morphTargetId);
    return out;
}

void MeshData::normalsInto(
    const Containers::StridedArrayView1D<Vector3>& destination, UnsignedInt id, Int morphTargetId) const {
    unpackInto("normalsInto", "normal", Containers::arrayCast<2, Float>(destination), 0.0f, MeshAttribute::Normal, id,
        morphTargetId);
}

Containers::Array<Vector2> MeshData::textureCoordinates2DAsArray(UnsignedInt id, Int morphTargetId) const {
    Containers::Array<Vector2> out{NoInit, _vertexCount};
    textureCoordinates2DInto(out, id, morphTargetId);
    return out;
}

void MeshData::textureCoordinates2DInto(
    const Containers::StridedArrayView1D<Vector2>& destination, UnsignedInt id, Int morphTargetId) const {
    unpackInto("textureCoordinates2DInto", "texture coordinate", Containers::arrayCast<2, Float>(destination), 0.0f,
        MeshAttribute::TextureCoordinates, id, morphTargetId);
}

Containers::Array<Color4> MeshData::colorsAsArray(UnsignedInt id, Int morphTargetId) const {
    Containers::Array<Color4> out{NoInit, _vertexCount};
    colorsInto(out, id, morphTargetId);
    return out;
}

void MeshData::colorsInto(
    const Containers::StridedArrayView1D<Color4>& destination, UnsignedInt id, Int morphTargetId) const {
    unpackInto("colorsInto", "color", Containers::arrayCast<2, Float>(destination), 1.0f, MeshAttribute::Color, id,
        morphTargetId);
}

Containers::Array<UnsignedInt> MeshData::jointIdsAsArray(UnsignedInt id) const {
    const UnsignedInt size = itemCount(
        _attributes[requireAttribute("jointIdsAsArray", "joint ID", MeshAttribute::JointIds, id, -1)]._arraySize);
    Containers::Array<UnsignedInt> out{NoInit, std::size_t(_vertexCount) * size};
    jointIdsInto(Containers::StridedArrayView2D<UnsignedInt>{out, {_vertexCount, size}}, id);
    return out;
}

void MeshData::jointIdsInto(const Containers::StridedArrayView2D<UnsignedInt>& destination, UnsignedInt id) const {
    const MeshAttributeData& data =
        _attributes[requireAttribute("jointIdsInto", "joint ID", MeshAttribute::JointIds, id, -1)];
    const Containers::Size2D size{_vertexCount, itemCount(data._arraySize)};
    CORRADE_ASSERT(destination.size() == size,
        "Trade::MeshData::jointIdsInto(): expected a view with" << size << "elements but got" << destination.size(), );
    castInto(attributeBytes(data), vertexFormatSize(data._format), destination);
}

Containers::Array<Float> MeshData::weightsAsArray(UnsignedInt id) const {
    const UnsignedInt size =
        itemCount(_attributes[requireAttribute("weightsAsArray", "weight", MeshAttribute::Weights, id, -1)]._arraySize);
    Containers::Array<Float> out{NoInit, std::size_t(_vertexCount) * size};
    weightsInto(Containers::StridedArrayView2D<Float>{out, {_vertexCount, size}}, id);
    return out;
}

void MeshData::weightsInto(const Containers::StridedArrayView2D<Float>& destination, UnsignedInt id) const {
    const MeshAttributeData& data =
        _attributes[requireAttribute("weightsInto", "weight", MeshAttribute::Weights, id, -1)];
    const Containers::Size2D size{_vertexCount, itemCount(data._arraySize)};
    CORRADE_ASSERT(destination.size() == size,
        "Trade::MeshData::weightsInto(): expected a view with" << size << "elements but got" << destination.size(), );
    unpackInto("weightsInto", "weight", destination, 0.0f, MeshAttribute::Weights, id, -1);
}

Containers::Array<char> MeshData::releaseIndexData() {
    _indexCount = 0;
    Containers::Array<char> out = Utility::move(_indexData);
    _indices = nullptr;
    return out;
}

Containers::Array<char> MeshData::releaseVertexData() {
    _vertexCount = 0;
    return Utility::move(_vertexData);
}

Containers::Array<MeshAttributeData> MeshData::releaseAttributeData() { return Utility::move(_attributes); }

}
