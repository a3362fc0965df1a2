#include "Data/Resources/MeshFile.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <vector>

#include <Corrade/Containers/GrowableArray.h>
#include <Magnum/Math/Vector2.h>
#include <Magnum/Math/Vector3.h>
#include <Magnum/Mesh.h>

#include "Data/Resources/GlbFile.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// A small file can name the same data as many attributes.
constexpr std::uint64_t MaximumVertexDataSize = std::uint64_t{2} << 30;

constexpr std::uint64_t TriangleMode = 4;

enum class Numbers { Floats, FloatsOrNormalized, Integers };

// What an attribute of the file has to be, and what becomes of it.
struct AttributeRule {
    const char* name;
    Numbers numbers;
    unsigned minimumComponents, maximumComponents;
    Trade::MeshAttribute attribute;
    VertexFormat format;
    UnsignedShort arraySize;
};

constexpr AttributeRule Rules[]{
    {"POSITION", Numbers::Floats, 3, 3, Trade::MeshAttribute::Position, VertexFormat::Vector3, 0},
    {"NORMAL", Numbers::Floats, 3, 3, Trade::MeshAttribute::Normal, VertexFormat::Vector3, 0},
    {"TANGENT", Numbers::Floats, 4, 4, Trade::MeshAttribute::Tangent, VertexFormat::Vector4, 0},
    {"TEXCOORD_0", Numbers::FloatsOrNormalized, 2, 2, Trade::MeshAttribute::TextureCoordinates, VertexFormat::Vector2,
        0},
    {"TEXCOORD_1", Numbers::FloatsOrNormalized, 2, 2, Trade::MeshAttribute::TextureCoordinates, VertexFormat::Vector2,
        0},
    {"COLOR_0", Numbers::FloatsOrNormalized, 3, 4, Trade::MeshAttribute::Color, VertexFormat::Vector4, 0},
    {"JOINTS_0", Numbers::Integers, 4, 4, Trade::MeshAttribute::JointIds, VertexFormat::UnsignedShort, 4},
    {"WEIGHTS_0", Numbers::FloatsOrNormalized, 4, 4, Trade::MeshAttribute::Weights, VertexFormat::Float, 4}};

bool isAllowed(const AttributeRule& rule, const GlbAccessor& accessor) {
    if(accessor.components < rule.minimumComponents || accessor.components > rule.maximumComponents) return false;
    switch(rule.numbers) {
    case Numbers::Floats: return accessor.isFloat();
    case Numbers::FloatsOrNormalized:
        return accessor.isFloat() || (accessor.isUnsignedSmall() && accessor.isNormalized);
    case Numbers::Integers: return accessor.isUnsignedSmall() && !accessor.isNormalized;
    }
    return false;
}

class MeshReader {
public:
    MeshReader(const GlbFile& file, const GlbValue& primitive, std::string& reason):
        _file{file}, _primitive{primitive}, _reason{reason} {}

    std::optional<Trade::MeshData> read() {
        if(!checkMode() || !findAttributes() || !readVertices() || !readIndices()) return {};
        Containers::Array<Trade::MeshAttributeData> attributes;
        for(const Attribute& found: _attributes)
            arrayAppend(attributes,
                Trade::MeshAttributeData{found.rule->attribute, found.rule->format, found.offset,
                    UnsignedInt(_vertexCount), std::ptrdiff_t(_stride), found.rule->arraySize});
        if(_indices.isEmpty())
            return Trade::MeshData{MeshPrimitive::Triangles, std::move(_vertices), std::move(attributes)};
        const Trade::MeshIndexData indices{_indexType, _indices};
        return Trade::MeshData{
            MeshPrimitive::Triangles, std::move(_indices), indices, std::move(_vertices), std::move(attributes)};
    }

private:
    struct Attribute {
        const AttributeRule* rule;
        GlbAccessor accessor;
        std::size_t offset;
    };

    bool refuse(std::string reason) {
        _reason = std::move(reason);
        return false;
    }

    bool checkMode() {
        std::uint64_t mode = TriangleMode;
        if(!GlbFile::readIndex(_primitive, "mode", mode, _reason)) return false;
        if(mode == TriangleMode) return true;
        return refuse("its mode is " + std::to_string(mode) + ", not triangles");
    }

    bool findAttributes() {
        const GlbValue* const attributes = GlbFile::member(_primitive, "attributes");
        if(!attributes || !attributes->IsObject()) return refuse("it has no attributes");
        for(const AttributeRule& rule: Rules)
            if(GlbFile::member(*attributes, rule.name) && !addAttribute(*attributes, rule)) return false;
        if(_attributes.empty() || _attributes[0].rule != Rules) return refuse("it has no POSITION");
        if(!GlbFile::member(*attributes, "JOINTS_0") != !GlbFile::member(*attributes, "WEIGHTS_0"))
            return refuse("one of JOINTS_0 and WEIGHTS_0 is missing");
        return true;
    }

    bool addAttribute(const GlbValue& attributes, const AttributeRule& rule) {
        std::uint64_t index = 0;
        if(!GlbFile::readIndex(attributes, rule.name, index, _reason)) return false;
        const std::optional<GlbAccessor> accessor = _file.accessor(index, _reason);
        if(!accessor) return refuse(std::string{rule.name} + ": " + _reason);
        if(!isAllowed(rule, *accessor)) return refuse(std::string{rule.name} + ": its type is not supported");
        if(_attributes.empty()) _vertexCount = accessor->count;
        if(accessor->count != _vertexCount)
            return refuse(std::string{rule.name} + ": there are " + std::to_string(accessor->count) + " elements for " +
                std::to_string(_vertexCount) + " vertices");
        _attributes.push_back({&rule, *accessor, _stride});
        _stride += vertexFormatSize(rule.format) * std::max<std::size_t>(rule.arraySize, 1);
        return true;
    }

    bool readVertices() {
        if(_vertexCount > std::numeric_limits<UnsignedInt>::max() - 1 || _vertexCount > MaximumVertexDataSize / _stride)
            return refuse("there are " + std::to_string(_vertexCount) + " vertices, too many");
        _vertices = Containers::Array<char>{ValueInit, _vertexCount * _stride};
        for(const Attribute& found: _attributes) readAttribute(found);
        for(std::size_t i = 0; i != _vertexCount; ++i)
            if(!isFinite(*vertex<Vector3>(i, 0))) return refuse("a position is not finite");
        return true;
    }

    void readAttribute(const Attribute& found) {
        char* const destination = _vertices.data() + found.offset;
        const unsigned components = found.accessor.components;
        if(found.rule->numbers == Numbers::Integers)
            return found.accessor.readUnsignedShorts(destination, _stride, components);
        found.accessor.readFloats(destination, _stride, components);
        if(found.rule->attribute == Trade::MeshAttribute::TextureCoordinates)
            for(std::size_t i = 0; i != _vertexCount; ++i) {
                Vector2& coordinates = *vertex<Vector2>(i, found.offset);
                coordinates.y() = 1.0f - coordinates.y();
            }
        if(found.rule->attribute == Trade::MeshAttribute::Color && components == 3)
            for(std::size_t i = 0; i != _vertexCount; ++i) vertex<Float>(i, found.offset)[3] = 1.0f;
    }

    static bool isFinite(const Vector3& vector) {
        return std::isfinite(vector.x()) && std::isfinite(vector.y()) && std::isfinite(vector.z());
    }

    template<class T> T* vertex(std::size_t index, std::size_t offset) {
        return reinterpret_cast<T*>(_vertices.data() + index * _stride + offset);
    }

    bool readIndices() {
        if(!GlbFile::member(_primitive, "indices")) {
            if(_vertexCount % 3 == 0) return true;
            return refuse(std::to_string(_vertexCount) + " vertices are no whole triangles");
        }
        std::uint64_t index = 0;
        if(!GlbFile::readIndex(_primitive, "indices", index, _reason)) return false;
        const std::optional<GlbAccessor> accessor = _file.accessor(index, _reason);
        if(!accessor) return refuse("indices: " + _reason);
        if(accessor->components != 1 || accessor->isNormalized || !findIndexType(accessor->type))
            return refuse("indices: their type is not supported");
        if(accessor->count % 3 != 0 || accessor->count > std::numeric_limits<UnsignedInt>::max())
            return refuse(std::to_string(accessor->count) + " indices are no whole triangles");
        return copyIndices(*accessor);
    }

    bool findIndexType(GlbAccessor::Type type) {
        switch(type) {
        case GlbAccessor::Type::UnsignedByte: _indexType = MeshIndexType::UnsignedByte; return true;
        case GlbAccessor::Type::UnsignedShort: _indexType = MeshIndexType::UnsignedShort; return true;
        case GlbAccessor::Type::UnsignedInt: _indexType = MeshIndexType::UnsignedInt; return true;
        default: return false;
        }
    }

    bool copyIndices(const GlbAccessor& accessor) {
        const std::size_t size = meshIndexTypeSize(_indexType);
        _indices = Containers::Array<char>{NoInit, accessor.count * size};
        for(std::size_t i = 0; i != accessor.count; ++i) {
            const std::uint32_t value = accessor.unsignedAt(i);
            if(value >= _vertexCount)
                return refuse("index " + std::to_string(value) + " is out of range for " +
                    std::to_string(_vertexCount) + " vertices");
            std::copy_n(accessor.data + i * accessor.stride, size, _indices.data() + i * size);
        }
        return true;
    }

    const GlbFile& _file;
    const GlbValue& _primitive;
    std::string& _reason;
    std::vector<Attribute> _attributes;
    std::size_t _vertexCount = 0;
    std::size_t _stride = 0;
    Containers::Array<char> _vertices, _indices;
    MeshIndexType _indexType{};
};

} // namespace

std::optional<Trade::MeshData> readMesh(Containers::ArrayView<const char> bytes, std::string& reason) {
    const std::optional<GlbFile> file = GlbFile::open(bytes, reason);
    if(!file) return {};
    const GlbValue* const mesh = file->element("meshes", 0);
    const GlbValue* const primitives = mesh ? GlbFile::member(*mesh, "primitives") : nullptr;
    if(primitives && primitives->IsArray() && !primitives->Empty())
        return MeshReader{*file, (*primitives)[0], reason}.read();
    reason = "the file has no mesh";
    return {};
}

} // namespace VantrelEngine
