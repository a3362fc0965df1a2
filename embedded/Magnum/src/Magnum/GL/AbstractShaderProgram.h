#pragma once

#include "Corrade/Containers/Containers.h"
#include "Corrade/Containers/Pair.h"
#include "Corrade/Containers/StridedArrayView.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/Implementation/ObjectName.h"
#include "Magnum/Math/RectangularMatrix.h"
#include "Magnum/Math/Vector.h"
#include "Magnum/Tags.h"

namespace Magnum::GL {

// Base of shader programs: a subclass compiles and links in its constructor and offers setters for its uniforms.
class CORRADE_VISIBILITY_EXPORT AbstractShaderProgram {
public:
    explicit AbstractShaderProgram();
    explicit AbstractShaderProgram(NoCreateT) noexcept {}
    AbstractShaderProgram(AbstractShaderProgram&&) noexcept = default;
    AbstractShaderProgram& operator=(AbstractShaderProgram&&) noexcept = default;
    virtual ~AbstractShaderProgram();

    UnsignedInt id() const { return _id; }
    Containers::String label() const;
    AbstractShaderProgram& setLabel(Containers::StringView label);

    // Whether the program can run in the current GL state, and the message of the driver.
    Containers::Pair<bool, Containers::String> validate();

    // Draws with the current framebuffer and state. Asserts that the count was set. Draws nothing, without an error,
    // when the count or the instance count is zero. Allocates nothing.
    AbstractShaderProgram& draw(Mesh& mesh);
    AbstractShaderProgram& draw(Mesh&& mesh) { return draw(mesh); }
    AbstractShaderProgram& draw(MeshView& view);
    AbstractShaderProgram& draw(MeshView&& view) { return draw(view); }
    // Views of one mesh, none of them instanced, which is asserted. A view without a count is skipped.
    AbstractShaderProgram& draw(const Containers::Iterable<MeshView>& views);
    // Several ranges of one mesh in one call, each once: counts of vertices or indices, the first vertices (or, when
    // indexed, what is added to every index), and for an indexed mesh the places of the first indices in bytes. Asserts
    // that all are equally many and without gaps; without vertex offsets these are zero, which only an indexed mesh can
    // have. Shaders that know gl_DrawID count the ranges with it, also the empty ones.
    AbstractShaderProgram& draw(Mesh& mesh, const Containers::StridedArrayView1D<const UnsignedInt>& counts,
        const Containers::StridedArrayView1D<const UnsignedInt>& vertexOffsets,
        const Containers::StridedArrayView1D<const UnsignedLong>& indexOffsets);
    AbstractShaderProgram& draw(Mesh& mesh, const Containers::StridedArrayView1D<const UnsignedInt>& counts,
        const Containers::StridedArrayView1D<const UnsignedInt>& vertexOffsets, std::nullptr_t indexOffsets);

protected:
    // Before linking.
    void attachShader(Shader& shader);
    void attachShaders(const Containers::Iterable<Shader>& shaders);
    void bindAttributeLocation(UnsignedInt location, Containers::StringView name);
    void bindFragmentDataLocation(UnsignedInt location, Containers::StringView name);

    // Links without waiting.
    void submitLink();
    // Waits. Checks the shaders first and stops at the first that did not compile. Prints what the linker says.
    bool checkLink(const Containers::Iterable<Shader>& shaders);
    // Both, for shaders that were checked before.
    bool link();

    // -1 and a warning when there is no such uniform. Only after linking.
    Int uniformLocation(Containers::StringView name);
    // 0xffffffff and a warning when there is no such block.
    UnsignedInt uniformBlockIndex(Containers::StringView name);
    void setUniformBlockBinding(UnsignedInt index, UnsignedInt binding);

    // Values stay in the program until they are set again. Only after linking; the program need not be in use.
    // Location -1 is ignored.
    void setUniform(Int location, Float value) { setUniform(location, {&value, 1}); }
    void setUniform(Int location, Int value) { setUniform(location, {&value, 1}); }
    void setUniform(Int location, UnsignedInt value) { setUniform(location, {&value, 1}); }
    template<std::size_t size, class T> void setUniform(Int location, const Math::Vector<size, T>& value) {
        setUniform(location, Containers::ArrayView<const Math::Vector<size, T>>{&value, 1});
    }
    template<std::size_t size> void setUniform(Int location, const Math::RectangularMatrix<size, size, Float>& value) {
        setUniform(location, Containers::ArrayView<const Math::RectangularMatrix<size, size, Float>>{&value, 1});
    }
    // Elements of an array from this location on.
    void setUniform(Int location, Containers::ArrayView<const Float> values);
    void setUniform(Int location, Containers::ArrayView<const Int> values);
    void setUniform(Int location, Containers::ArrayView<const UnsignedInt> values);
    void setUniform(Int location, Containers::ArrayView<const Math::Vector<2, Float>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::Vector<3, Float>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::Vector<4, Float>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::Vector<2, Int>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::Vector<3, Int>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::Vector<4, Int>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::Vector<2, UnsignedInt>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::Vector<3, UnsignedInt>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::Vector<4, UnsignedInt>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::RectangularMatrix<2, 2, Float>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::RectangularMatrix<3, 3, Float>> values);
    void setUniform(Int location, Containers::ArrayView<const Math::RectangularMatrix<4, 4, Float>> values);

private:
    Implementation::ObjectName _id;
};

}

// Declares the draw functions of a subclass again, so that they return the subclass.
#define MAGNUM_GL_ABSTRACTSHADERPROGRAM_SUBCLASS_DRAW_IMPLEMENTATION(Class)                                            \
    Class& draw(Magnum::GL::Mesh& mesh) { return static_cast<Class&>(Magnum::GL::AbstractShaderProgram::draw(mesh)); } \
    Class& draw(Magnum::GL::Mesh&& mesh) {                                                                             \
        return static_cast<Class&>(Magnum::GL::AbstractShaderProgram::draw(mesh));                                     \
    }                                                                                                                  \
    Class& draw(Magnum::GL::MeshView& view) {                                                                          \
        return static_cast<Class&>(Magnum::GL::AbstractShaderProgram::draw(view));                                     \
    }                                                                                                                  \
    Class& draw(Magnum::GL::MeshView&& view) {                                                                         \
        return static_cast<Class&>(Magnum::GL::AbstractShaderProgram::draw(view));                                     \
    }                                                                                                                  \
    Class& draw(const Corrade::Containers::Iterable<Magnum::GL::MeshView>& views) {                                    \
        return static_cast<Class&>(Magnum::GL::AbstractShaderProgram::draw(views));                                    \
    }
