#pragma once

#include <type_traits>

#include "Corrade/Containers/Array.h"
#include "Corrade/Containers/StringIterable.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/Implementation/ObjectName.h"
#include "Magnum/GL/OpenGL.h"
#include "Magnum/Tags.h"

namespace Magnum::GL {

// One stage of a program in GLSL.
class CORRADE_VISIBILITY_EXPORT Shader {
public:
    enum class Type : GLenum {
        Vertex = GL_VERTEX_SHADER,
        Geometry = GL_GEOMETRY_SHADER,
        Fragment = GL_FRAGMENT_SHADER
    };

    // The source starts with the #version directive; with Version::None the first source added is to have it. Asserts
    // that the version is known and at least 3.3.
    explicit Shader(Version version, Type type);
    explicit Shader(NoCreateT) noexcept: _type{} {}
    Shader(Shader&&) noexcept = default;
    Shader& operator=(Shader&&) noexcept = default;
    ~Shader();

    UnsignedInt id() const { return _id; }
    Type type() const { return _type; }
    Containers::String label() const;
    Shader& setLabel(Containers::StringView label);

    // Appends source text, as it is: a line that goes on in the next source, or a preprocessor directive there, needs
    // the newline. Each starts with a #line directive, so messages name the first one added 1, the next 2 and so on.
    // Empty text is left out. The view is copied unless it is global.
    Shader& addSource(Containers::StringView source);
    template<class T, class = std::enable_if_t<std::is_same_v<T, Containers::String>>> Shader& addSource(T&& source) {
        return addOwnedSource(Utility::move(source));
    }
    // Asserts that the file can be read.
    Shader& addFile(Containers::StringView filename);
    // Everything that is compiled, the directives included.
    Containers::StringIterable sources() const { return _sources; }

    // Compiles without waiting: submit several shaders before checking the first. Asserts that there is a source.
    void submitCompile();
    // False while checkCompile() would have to wait, where GL is able to tell.
    bool isCompileFinished();
    // Waits. Prints what the compiler says: an error on failure, else a warning.
    bool checkCompile();
    // Both.
    bool compile();

private:
    Shader& addOwnedSource(Containers::String&& source);

    Implementation::ObjectName _id;
    Type _type;
    Containers::Array<Containers::String> _sources;
};

CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, Shader::Type value);

}
