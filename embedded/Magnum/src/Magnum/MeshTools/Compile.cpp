#include "Magnum/MeshTools/Compile.h"

#include <algorithm>

#include "Corrade/Containers/Optional.h"
#include "Corrade/Utility/Assert.h"
#include "Magnum/GL/Buffer.h"
#include "Magnum/GL/Mesh.h"
#include "Magnum/Math/Matrix3.h"
#include "Magnum/Shaders/GenericGL.h"
#include "Magnum/Trade/MeshData.h"

namespace Magnum::MeshTools {

namespace {

typedef Shaders::GenericGL3D Generic;

// Where an attribute goes that is not an array; nothing for those that have no location.
Containers::Optional<GL::DynamicAttribute> genericAttribute(Trade::MeshAttribute name, VertexFormat format) {
    const UnsignedInt components = vertexFormatComponentCount(format);
    switch(name) {
    case Trade::MeshAttribute::Position: return GL::DynamicAttribute{Generic::Position{}, format};
    case Trade::MeshAttribute::TextureCoordinates: return GL::DynamicAttribute{Generic::TextureCoordinates{}, format};
    case Trade::MeshAttribute::Color:
        if(components == 3) return GL::DynamicAttribute{Generic::Color3{}, format};
        return GL::DynamicAttribute{Generic::Color4{}, format};
    case Trade::MeshAttribute::Tangent:
        if(components == 3) return GL::DynamicAttribute{Generic::Tangent{}, format};
        return GL::DynamicAttribute{Generic::Tangent4{}, format};
    case Trade::MeshAttribute::Bitangent: return GL::DynamicAttribute{Generic::Bitangent{}, format};
    case Trade::MeshAttribute::Normal: return GL::DynamicAttribute{Generic::Normal{}, format};
    case Trade::MeshAttribute::ObjectId: return GL::DynamicAttribute{Generic::ObjectId{}, format};
    default: return {};
    }
}

// A vector of as many components as there are items in a part of an array.
VertexFormat vectorFormat(VertexFormat scalar, UnsignedInt components) {
    const UnsignedInt step = UnsignedInt(VertexFormat::Vector2) - UnsignedInt(VertexFormat::Float);
    return VertexFormat(UnsignedInt(scalar) + (components - 1) * step);
}

GL::DynamicAttribute skinAttribute(Trade::MeshAttribute name, UnsignedInt set, VertexFormat format) {
    if(name == Trade::MeshAttribute::JointIds) {
        return set == 0 ? GL::DynamicAttribute{Generic::JointIds{}, format}
                        : GL::DynamicAttribute{Generic::SecondaryJointIds{}, format};
    }
    return set == 0 ? GL::DynamicAttribute{Generic::Weights{}, format}
                    : GL::DynamicAttribute{Generic::SecondaryWeights{}, format};
}

class Compiler {
public:
    explicit Compiler(const Trade::MeshData& mesh):
        _mesh{mesh}, _vertices{GL::Buffer::TargetHint::Array, mesh.vertexData()}, _out{mesh.primitive()} {}

    GL::Mesh run() {
        addIndices();
        UnsignedInt morphed = 0;
        for(UnsignedInt i = 0; i != _mesh.attributeCount(); ++i) {
            const Trade::MeshAttribute name = _mesh.attributeName(i);
            if(_mesh.attributeMorphTargetId(i) != -1)
                ++morphed;
            else if(name == Trade::MeshAttribute::JointIds)
                addSkinAttribute(i, _jointSets);
            else if(name == Trade::MeshAttribute::Weights)
                addSkinAttribute(i, _weightSets);
            else
                addAttribute(i);
        }
        if(morphed) Warning{} << "MeshTools::compile(): ignoring" << morphed << "morph target attributes";
        // No attribute: the mesh keeps what it draws from.
        _out.addVertexBuffer(Utility::move(_vertices), 0, 0);
        return Utility::move(_out);
    }

private:
    void addIndices() {
        if(!_mesh.isIndexed()) {
            _out.setCount(_mesh.vertexCount());
            return;
        }
        CORRADE_ASSERT(_mesh.indexStride() == Short(meshIndexTypeSize(_mesh.indexType())),
            "MeshTools::compile():" << _mesh.indexType() << "with stride of" << _mesh.indexStride()
                                    << "bytes isn't supported by OpenGL", );
        _out.setCount(_mesh.indexCount())
            .setIndexBuffer(GL::Buffer{GL::Buffer::TargetHint::ElementArray, _mesh.indexData()}, _mesh.indexOffset(),
                _mesh.indexType());
    }

    void addAttribute(UnsignedInt id) {
        const Trade::MeshAttribute name = _mesh.attributeName(id);
        const Containers::Optional<GL::DynamicAttribute> attribute = genericAttribute(name, _mesh.attributeFormat(id));
        if(!attribute) {
            Warning{} << "MeshTools::compile(): ignoring unknown/unsupported attribute" << name;
            return;
        }
        Containers::Optional<UnsignedInt>& occupant = _occupants[attribute->location()];
        if(occupant) {
            Warning{} << "MeshTools::compile(): ignoring" << name << _mesh.attributeId(id)
                      << "as its binding slot is already occupied by" << _mesh.attributeName(*occupant)
                      << _mesh.attributeId(*occupant);
            return;
        }
        occupant = id;
        bind(id, 0, *attribute);
    }

    // There are two sets of up to four joints, whether they come from one array or from two.
    void addSkinAttribute(UnsignedInt id, UnsignedInt& sets) {
        const Trade::MeshAttribute name = _mesh.attributeName(id);
        const VertexFormat format = _mesh.attributeFormat(id);
        const UnsignedInt size = std::max(UnsignedInt(_mesh.attributeArraySize(id)), 1u);
        UnsignedInt done = 0;
        for(; done < size && sets != 2; ++sets) {
            const UnsignedInt components = std::min(size - done, 4u);
            bind(id, done * vertexFormatSize(format), skinAttribute(name, sets, vectorFormat(format, components)));
            done += components;
        }
        if(done != size && name == Trade::MeshAttribute::JointIds)
            Warning{} << "MeshTools::compile(): ignoring remaining" << size - done
                      << "components of joint ID / weights attribute" << _mesh.attributeId(id) << Debug::nospace
                      << ", only two sets are supported at most";
    }

    void bind(UnsignedInt id, std::size_t offset, const GL::DynamicAttribute& attribute) {
        const Short stride = _mesh.attributeStride(id);
        CORRADE_ASSERT(stride >= 0,
            "MeshTools::compile():" << _mesh.attributeName(id) << "stride of" << stride
                                    << "bytes isn't supported by OpenGL", );
        _out.addVertexBuffer(_vertices, _mesh.attributeOffset(id) + offset, stride, attribute);
    }

    const Trade::MeshData& _mesh;
    GL::Buffer _vertices;
    GL::Mesh _out;
    UnsignedInt _jointSets{}, _weightSets{};
    // By location: the attribute that has it.
    Containers::Optional<UnsignedInt> _occupants[Generic::TextureOffset::Location + 1];
};

}

GL::Mesh compile(const Trade::MeshData& mesh) { return Compiler{mesh}.run(); }

}
