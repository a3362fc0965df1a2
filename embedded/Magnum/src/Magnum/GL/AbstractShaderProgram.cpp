#include "Magnum/GL/AbstractShaderProgram.h"

#include "Corrade/Containers/Iterable.h"
#include "Corrade/Containers/String.h"
#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/Debug.h"
#include "Magnum/GL/Implementation/InfoLog.h"
#include "Magnum/GL/Implementation/State.h"
#include "Magnum/GL/Mesh.h"
#include "Magnum/GL/MeshView.h"
#include "Magnum/GL/Shader.h"

namespace Magnum::GL {

using Implementation::state;

AbstractShaderProgram::AbstractShaderProgram(): _id{glCreateProgram()} {}

AbstractShaderProgram::~AbstractShaderProgram() {
    if(!_id) return;
    // The name may be given to the next program.
    Implementation::State& state = Implementation::state();
    if(state.program == _id) state.program = Implementation::State::Unknown;
    glDeleteProgram(_id);
}

Containers::String AbstractShaderProgram::label() const { return Implementation::objectLabel(GL_PROGRAM, _id); }

AbstractShaderProgram& AbstractShaderProgram::setLabel(Containers::StringView label) {
    Implementation::setObjectLabel(GL_PROGRAM, _id, label);
    return *this;
}

Containers::Pair<bool, Containers::String> AbstractShaderProgram::validate() {
    glValidateProgram(_id);
    GLint valid = GL_FALSE;
    glGetProgramiv(_id, GL_VALIDATE_STATUS, &valid);
    return {bool(valid), Implementation::infoLog(_id, glGetProgramiv, glGetProgramInfoLog)};
}

AbstractShaderProgram& AbstractShaderProgram::draw(Mesh& mesh) {
    CORRADE_ASSERT(mesh._range.count >= 0,
        "GL::AbstractShaderProgram::draw(): Mesh::setCount() was never called, probably a mistake?", *this);
    if(mesh._range.isEmpty()) return *this;
    state().useProgram(_id);
    mesh.draw(mesh._range);
    return *this;
}

AbstractShaderProgram& AbstractShaderProgram::draw(MeshView& view) {
    CORRADE_ASSERT(view._range.count >= 0,
        "GL::AbstractShaderProgram::draw(): MeshView::setCount() was never called, probably a mistake?", *this);
    if(view._range.isEmpty()) return *this;
    state().useProgram(_id);
    view._original->draw(view._range);
    return *this;
}

AbstractShaderProgram& AbstractShaderProgram::draw(const Containers::Iterable<MeshView>& views) {
    if(views.isEmpty()) return *this;
    Mesh* const mesh = views[0]._original;
    for(std::size_t i = 0; i != views.size(); ++i) {
        const MeshView& view = views[i];
        CORRADE_ASSERT(view._original == mesh,
            "GL::AbstractShaderProgram::draw(): all meshes must be views of the same original mesh, expected"
                << static_cast<const void*>(mesh) << "but got" << static_cast<const void*>(view._original) << "at index"
                << i,
            *this);
        CORRADE_ASSERT(view._range.instanceCount == 1,
            "GL::AbstractShaderProgram::draw(): cannot multi-draw instanced meshes", *this);
    }
    state().useProgram(_id);
    for(const MeshView& view: views)
        if(view._range.count > 0) mesh->draw(view._range);
    return *this;
}

AbstractShaderProgram& AbstractShaderProgram::draw(Mesh& mesh,
    const Containers::StridedArrayView1D<const UnsignedInt>& counts,
    const Containers::StridedArrayView1D<const UnsignedInt>& vertexOffsets,
    const Containers::StridedArrayView1D<const UnsignedLong>& indexOffsets) {
    const auto hasNoGaps = [](const auto& view) { return !view.size() || view.isContiguous(); };
    CORRADE_ASSERT(hasNoGaps(counts) && hasNoGaps(vertexOffsets) && hasNoGaps(indexOffsets),
        "GL::AbstractShaderProgram::draw(): the views have to be contiguous", *this);
    if(!counts.size()) return *this;
    CORRADE_ASSERT(!mesh.isIndexed() || indexOffsets.size() == counts.size(),
        "GL::AbstractShaderProgram::draw(): expected" << counts.size() << "index offset items but got"
                                                      << indexOffsets.size(),
        *this);
    CORRADE_ASSERT((mesh.isIndexed() && !vertexOffsets.size()) || vertexOffsets.size() == counts.size(),
        "GL::AbstractShaderProgram::draw(): expected" << counts.size() << "vertex offset items but got"
                                                      << vertexOffsets.size(),
        *this);
    state().useProgram(_id);
    mesh.drawSeveral(counts.size(), static_cast<const UnsignedInt*>(counts.data()),
        vertexOffsets.size() ? static_cast<const UnsignedInt*>(vertexOffsets.data()) : nullptr,
        static_cast<const UnsignedLong*>(indexOffsets.data()));
    return *this;
}

AbstractShaderProgram& AbstractShaderProgram::draw(Mesh& mesh,
    const Containers::StridedArrayView1D<const UnsignedInt>& counts,
    const Containers::StridedArrayView1D<const UnsignedInt>& vertexOffsets, std::nullptr_t) {
    return draw(mesh, counts, vertexOffsets, Containers::StridedArrayView1D<const UnsignedLong>{});
}

void AbstractShaderProgram::attachShader(Shader& shader) { glAttachShader(_id, shader.id()); }

void AbstractShaderProgram::attachShaders(const Containers::Iterable<Shader>& shaders) {
    for(Shader& shader: shaders) attachShader(shader);
}

void AbstractShaderProgram::bindAttributeLocation(UnsignedInt location, Containers::StringView name) {
    glBindAttribLocation(_id, location, Containers::String::nullTerminatedView(name).data());
}

void AbstractShaderProgram::bindFragmentDataLocation(UnsignedInt location, Containers::StringView name) {
    glBindFragDataLocation(_id, location, Containers::String::nullTerminatedView(name).data());
}

void AbstractShaderProgram::submitLink() { glLinkProgram(_id); }

bool AbstractShaderProgram::checkLink(const Containers::Iterable<Shader>& shaders) {
    for(Shader& shader: shaders)
        if(!shader.checkCompile()) return false;
    GLint success = GL_FALSE;
    glGetProgramiv(_id, GL_LINK_STATUS, &success);
    const Containers::String log = Implementation::infoLog(_id, glGetProgramiv, glGetProgramInfoLog);
    if(!success)
        Error{} << "GL::AbstractShaderProgram::link(): linking failed with the following message:" << Debug::newline
                << log;
    else if(!log.isEmpty())
        Warning{} << "GL::AbstractShaderProgram::link(): linking succeeded with the following message:"
                  << Debug::newline << log;
    return success;
}

bool AbstractShaderProgram::link() {
    submitLink();
    return checkLink({});
}

Int AbstractShaderProgram::uniformLocation(Containers::StringView name) {
    const GLint location = glGetUniformLocation(_id, Containers::String::nullTerminatedView(name).data());
    if(location == -1)
        Warning{} << "GL::AbstractShaderProgram: location of uniform '" << Debug::nospace << name << Debug::nospace
                  << "' cannot be retrieved";
    return location;
}

UnsignedInt AbstractShaderProgram::uniformBlockIndex(Containers::StringView name) {
    const GLuint index = glGetUniformBlockIndex(_id, Containers::String::nullTerminatedView(name).data());
    if(index == GL_INVALID_INDEX)
        Warning{} << "GL::AbstractShaderProgram: index of uniform block '" << Debug::nospace << name << Debug::nospace
                  << "' cannot be retrieved";
    return index;
}

void AbstractShaderProgram::setUniformBlockBinding(UnsignedInt index, UnsignedInt binding) {
    glUniformBlockBinding(_id, index, binding);
}

namespace {

// Without binding the program where GL is able to. The arguments are those of glUniform...v() after the location.
template<class ProgramUniform, class Uniform, class... Args>
void setUniformOf(GLuint id, Int location, ProgramUniform programUniform, Uniform uniform, Args... args) {
    Implementation::State& state = Implementation::state();
    if(state.separateShaderObjects) {
        programUniform(id, location, args...);
        return;
    }
    state.useProgram(id);
    uniform(location, args...);
}

const Float* scalars(Containers::ArrayView<const Float> values) { return values.data(); }
const Int* scalars(Containers::ArrayView<const Int> values) { return values.data(); }
const UnsignedInt* scalars(Containers::ArrayView<const UnsignedInt> values) { return values.data(); }

// Vectors and matrices are their scalars one after the other.
template<std::size_t size, class T> const T* scalars(Containers::ArrayView<const Math::Vector<size, T>> values) {
    return reinterpret_cast<const T*>(values.data());
}

template<std::size_t size>
const Float* scalars(Containers::ArrayView<const Math::RectangularMatrix<size, size, Float>> values) {
    return reinterpret_cast<const Float*>(values.data());
}

}

// The functions of GL differ in their suffix, and those for matrices have one argument more. The type comes last
// because it may have commas.
#define SET_UNIFORM(suffix, ...)                                                                                       \
    void AbstractShaderProgram::setUniform(Int location, Containers::ArrayView<const __VA_ARGS__> values) {            \
        setUniformOf(                                                                                                  \
            _id, location, glProgramUniform##suffix, glUniform##suffix, GLsizei(values.size()), scalars(values));      \
    }
#define SET_MATRIX_UNIFORM(suffix, ...)                                                                                \
    void AbstractShaderProgram::setUniform(Int location, Containers::ArrayView<const __VA_ARGS__> values) {            \
        setUniformOf(_id, location, glProgramUniformMatrix##suffix, glUniformMatrix##suffix, GLsizei(values.size()),   \
            GLboolean(GL_FALSE), scalars(values));                                                                     \
    }
SET_UNIFORM(1fv, Float)
SET_UNIFORM(1iv, Int)
SET_UNIFORM(1uiv, UnsignedInt)
SET_UNIFORM(2fv, Math::Vector<2, Float>)
SET_UNIFORM(3fv, Math::Vector<3, Float>)
SET_UNIFORM(4fv, Math::Vector<4, Float>)
SET_UNIFORM(2iv, Math::Vector<2, Int>)
SET_UNIFORM(3iv, Math::Vector<3, Int>)
SET_UNIFORM(4iv, Math::Vector<4, Int>)
SET_UNIFORM(2uiv, Math::Vector<2, UnsignedInt>)
SET_UNIFORM(3uiv, Math::Vector<3, UnsignedInt>)
SET_UNIFORM(4uiv, Math::Vector<4, UnsignedInt>)
SET_MATRIX_UNIFORM(2fv, Math::RectangularMatrix<2, 2, Float>)
SET_MATRIX_UNIFORM(3fv, Math::RectangularMatrix<3, 3, Float>)
SET_MATRIX_UNIFORM(4fv, Math::RectangularMatrix<4, 4, Float>)
#undef SET_UNIFORM
#undef SET_MATRIX_UNIFORM

}
