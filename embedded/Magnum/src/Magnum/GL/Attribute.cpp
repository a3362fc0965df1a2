#include "Magnum/GL/Attribute.h"

#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/Debug.h"
#include "Magnum/VertexFormat.h"

namespace Magnum::GL {

UnsignedInt Implementation::attributeDataTypeSize(GLenum type) {
    switch(type) {
    case GL_UNSIGNED_BYTE:
    case GL_BYTE: return 1;
    case GL_UNSIGNED_SHORT:
    case GL_SHORT:
    case GL_HALF_FLOAT: return 2;
    case GL_UNSIGNED_INT:
    case GL_INT:
    case GL_FLOAT: return 4;
    case GL_DOUBLE: return 8;
    }
    CORRADE_INTERNAL_ASSERT_UNREACHABLE();
}

namespace {

DynamicAttribute::DataType dataTypeOf(VertexFormat componentFormat) {
    switch(componentFormat) {
    case VertexFormat::Float: return DynamicAttribute::DataType::Float;
    case VertexFormat::Half: return DynamicAttribute::DataType::Half;
    case VertexFormat::Double: return DynamicAttribute::DataType::Double;
    case VertexFormat::UnsignedByte: return DynamicAttribute::DataType::UnsignedByte;
    case VertexFormat::Byte: return DynamicAttribute::DataType::Byte;
    case VertexFormat::UnsignedShort: return DynamicAttribute::DataType::UnsignedShort;
    case VertexFormat::Short: return DynamicAttribute::DataType::Short;
    case VertexFormat::UnsignedInt: return DynamicAttribute::DataType::UnsignedInt;
    case VertexFormat::Int: return DynamicAttribute::DataType::Int;
    default: CORRADE_INTERNAL_ASSERT_UNREACHABLE();
    }
}

bool isFloatingPoint(VertexFormat componentFormat) {
    return componentFormat == VertexFormat::Float || componentFormat == VertexFormat::Half ||
        componentFormat == VertexFormat::Double;
}

}

DynamicAttribute::DynamicAttribute(Kind kind, UnsignedInt location, UnsignedInt maxComponents, VertexFormat format):
    _kind{kind}, _location{location} {
    const UnsignedInt components = vertexFormatComponentCount(format);
    CORRADE_ASSERT(components <= maxComponents,
        "GL::DynamicAttribute: can't use" << format << "for a" << maxComponents << Debug::nospace
                                          << "-component attribute", );
    const VertexFormat componentFormat = vertexFormatComponentFormat(format);
    if(kind == Kind::Integral) {
        CORRADE_ASSERT(!isFloatingPoint(componentFormat),
            "GL::DynamicAttribute: can't use" << format << "for an integral attribute", );
        CORRADE_ASSERT(!isVertexFormatNormalized(format),
            "GL::DynamicAttribute: can't use" << format << "for a GL::DynamicAttribute::Kind::Integral attribute", );
    } else if(isVertexFormatNormalized(format))
        _kind = Kind::GenericNormalized;
    _components = Components(components);
    _dataType = dataTypeOf(componentFormat);
}

}
