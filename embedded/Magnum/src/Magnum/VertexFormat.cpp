#include "Magnum/VertexFormat.h"

#include <iterator>

#include "Corrade/Utility/Assert.h"
#include "Magnum/Implementation/EnumDebug.h"

namespace Magnum {

namespace {

struct Component {
    // Of the scalar format, and what a vector format of such components appends to VectorN.
    const char* name;
    const char* suffix;
    VertexFormat format;
    UnsignedInt size;
    bool normalized;
};

// In the order of the enumerators; there are as many formats for each number of components.
constexpr Component Components[]{
    {"Float", "", VertexFormat::Float, 4, false},
    {"Half", "h", VertexFormat::Half, 2, false},
    {"Double", "d", VertexFormat::Double, 8, false},
    {"UnsignedByte", "ub", VertexFormat::UnsignedByte, 1, false},
    {"UnsignedByteNormalized", "ubNormalized", VertexFormat::UnsignedByte, 1, true},
    {"Byte", "b", VertexFormat::Byte, 1, false},
    {"ByteNormalized", "bNormalized", VertexFormat::Byte, 1, true},
    {"UnsignedShort", "us", VertexFormat::UnsignedShort, 2, false},
    {"UnsignedShortNormalized", "usNormalized", VertexFormat::UnsignedShort, 2, true},
    {"Short", "s", VertexFormat::Short, 2, false},
    {"ShortNormalized", "sNormalized", VertexFormat::Short, 2, true},
    {"UnsignedInt", "ui", VertexFormat::UnsignedInt, 4, false},
    {"Int", "i", VertexFormat::Int, 4, false},
};
constexpr UnsignedInt ComponentTypeCount = std::size(Components);

constexpr UnsignedInt formatIndex(VertexFormat format) { return UnsignedInt(format) - 1; }
constexpr bool isValid(VertexFormat format) { return formatIndex(format) < 4 * ComponentTypeCount; }
constexpr const Component& component(VertexFormat format) {
    return Components[formatIndex(format) % ComponentTypeCount];
}
constexpr UnsignedInt componentCount(VertexFormat format) { return formatIndex(format) / ComponentTypeCount + 1; }

}

UnsignedInt vertexFormatSize(VertexFormat format) {
    CORRADE_ASSERT(isValid(format), "vertexFormatSize(): invalid format" << format, {});
    return component(format).size * componentCount(format);
}

UnsignedInt vertexFormatComponentCount(VertexFormat format) {
    CORRADE_ASSERT(isValid(format), "vertexFormatComponentCount(): invalid format" << format, {});
    return componentCount(format);
}

VertexFormat vertexFormatComponentFormat(VertexFormat format) {
    // The original says "Type" here.
    CORRADE_ASSERT(isValid(format), "vertexFormatComponentType(): invalid format" << format, {});
    return component(format).format;
}

bool isVertexFormatNormalized(VertexFormat format) {
    CORRADE_ASSERT(isValid(format), "isVertexFormatNormalized(): invalid format" << format, {});
    return component(format).normalized;
}

Debug& operator<<(Debug& debug, VertexFormat value) {
    if(!isValid(value)) return Implementation::printUnknownEnum(debug, "VertexFormat", value);
    debug << "VertexFormat::" << Debug::nospace;
    if(componentCount(value) == 1) return debug << component(value).name;
    return debug << "Vector" << Debug::nospace << componentCount(value) << Debug::nospace << component(value).suffix;
}

}
