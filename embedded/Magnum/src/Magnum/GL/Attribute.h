#pragma once

#include "Corrade/Containers/EnumSet.h"
#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/OpenGL.h"
#include "Magnum/Math/RectangularMatrix.h"
#include "Magnum/Math/Vector.h"

namespace Magnum::GL {

namespace Implementation {

template<UnsignedInt components, UnsignedInt vectors, bool integral, UnsignedInt dataType> struct AttributeShape {
    enum : UnsignedInt { Components = components, Vectors = vectors, DataType = dataType };
    enum : bool { Integral = integral };
};

// The type in the shader: Float is what integers are converted to unless the shader wants integers.
template<UnsignedInt components, UnsignedInt vectors, class T> struct AttributeShapeOf;
template<UnsignedInt components, UnsignedInt vectors>
struct AttributeShapeOf<components, vectors, Float>: AttributeShape<components, vectors, false, GL_FLOAT> {};
template<UnsignedInt components>
struct AttributeShapeOf<components, 1, Int>: AttributeShape<components, 1, true, GL_INT> {};
template<UnsignedInt components>
struct AttributeShapeOf<components, 1, UnsignedInt>: AttributeShape<components, 1, true, GL_UNSIGNED_INT> {};

// For scalars, and for whatever derives from a vector or a matrix.
AttributeShapeOf<1, 1, Float> attributeShape(const Float*);
AttributeShapeOf<1, 1, Int> attributeShape(const Int*);
AttributeShapeOf<1, 1, UnsignedInt> attributeShape(const UnsignedInt*);
template<std::size_t size, class T> AttributeShapeOf<size, 1, T> attributeShape(const Math::Vector<size, T>*);
template<std::size_t cols, std::size_t rows, class T>
AttributeShapeOf<rows, cols, T> attributeShape(const Math::RectangularMatrix<cols, rows, T>*);

// In bytes. The type is one of Attribute::DataType.
CORRADE_VISIBILITY_EXPORT UnsignedInt attributeDataTypeSize(GLenum type);

}

// A vertex attribute: its location, its type in the shader and, where that differs, its type in the buffer. T is Float,
// Int, UnsignedInt, a vector of these, or a matrix of Float, which takes a location a column.
template<UnsignedInt location_, class T> class Attribute {
    typedef decltype(Implementation::attributeShape(static_cast<const T*>(nullptr))) Shape;

public:
    enum : UnsignedInt { Location = location_, VectorCount = Shape::Vectors };

    enum class Components : GLint { One = 1, Two, Three, Four };

    // Integral attributes take the integer types only.
    enum class DataType : GLenum {
        UnsignedByte = GL_UNSIGNED_BYTE,
        Byte = GL_BYTE,
        UnsignedShort = GL_UNSIGNED_SHORT,
        Short = GL_SHORT,
        UnsignedInt = GL_UNSIGNED_INT,
        Int = GL_INT,
        Half = GL_HALF_FLOAT,
        Float = GL_FLOAT,
        Double = GL_DOUBLE
    };

    enum class DataOption : UnsignedByte {
        // Integers stand for numbers in [0, 1] or [-1, 1].
        Normalized = 1
    };
    typedef Containers::EnumSet<DataOption> DataOptions;

    constexpr explicit Attribute(Components components = Components(Shape::Components),
        DataType dataType = DataType(Shape::DataType), DataOptions dataOptions = {}):
        _components{components},
        _dataType{dataType}, _dataOptions{dataOptions} {}
    constexpr explicit Attribute(DataType dataType, DataOptions dataOptions = {}):
        Attribute{Components(Shape::Components), dataType, dataOptions} {}

    constexpr Components components() const { return _components; }
    constexpr DataType dataType() const { return _dataType; }
    constexpr DataOptions dataOptions() const { return _dataOptions; }
    static constexpr bool isIntegral() { return Shape::Integral; }

    // In the buffer, in bytes.
    UnsignedInt vectorSize() const {
        return UnsignedInt(_components) * Implementation::attributeDataTypeSize(GLenum(_dataType));
    }

private:
    Components _components;
    DataType _dataType;
    DataOptions _dataOptions;
};

// An attribute that is known at run time only.
class CORRADE_VISIBILITY_EXPORT DynamicAttribute {
public:
    enum class Kind {
        // Float in the shader, converted from whatever is in the buffer.
        Generic,
        GenericNormalized,
        // Integer in the shader and in the buffer.
        Integral
    };
    typedef Attribute<0, Math::Vector<4, Float>>::Components Components;
    typedef Attribute<0, Math::Vector<4, Float>>::DataType DataType;

    constexpr explicit DynamicAttribute(Kind kind, UnsignedInt location, Components components, DataType dataType):
        _kind{kind}, _location{location}, _components{components}, _dataType{dataType} {}

    template<UnsignedInt location, class T>
    constexpr /*implicit*/ DynamicAttribute(const Attribute<location, T>& attribute):
        _kind{attribute.isIntegral()                                                       ? Kind::Integral
                : attribute.dataOptions() & Attribute<location, T>::DataOption::Normalized ? Kind::GenericNormalized
                                                                                           : Kind::Generic},
        _location{location}, _components{Components(attribute.components())}, _dataType{DataType(attribute.dataType())},
        _vectors{Attribute<location, T>::VectorCount} {}

    // The attribute stored in this format. Asserts that there are not more components than in the attribute, and that
    // an integral attribute gets integers.
    template<UnsignedInt location, class T>
    explicit DynamicAttribute(const Attribute<location, T>& attribute, VertexFormat format):
        DynamicAttribute{attribute.isIntegral() ? Kind::Integral : Kind::Generic, location,
            UnsignedInt(attribute.components()), format} {}

    constexpr Kind kind() const { return _kind; }
    // Of the first vector.
    constexpr UnsignedInt location() const { return _location; }
    constexpr Components components() const { return _components; }
    constexpr DataType dataType() const { return _dataType; }
    // Columns of a matrix, else 1. They take consecutive locations and lie one after the other.
    constexpr UnsignedInt vectors() const { return _vectors; }

private:
    explicit DynamicAttribute(Kind kind, UnsignedInt location, UnsignedInt maxComponents, VertexFormat format);

    Kind _kind;
    UnsignedInt _location;
    Components _components;
    DataType _dataType;
    UnsignedInt _vectors{1};
};

}
