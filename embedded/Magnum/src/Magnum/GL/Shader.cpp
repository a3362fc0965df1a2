#include "Magnum/GL/Shader.h"

#include "Corrade/Containers/GrowableArray.h"
#include "Corrade/Containers/Optional.h"
#include "Corrade/Utility/Assert.h"
#include "Corrade/Utility/Debug.h"
#include "Corrade/Utility/Format.h"
#include "Corrade/Utility/Path.h"
#include "Magnum/GL/Implementation/InfoLog.h"
#include "Magnum/GL/Implementation/State.h"
#include "Magnum/GL/Implementation/Versions.h"
#include "Magnum/GL/Version.h"

namespace Magnum::GL {

namespace {

const char* stageName(Shader::Type type) {
    switch(type) {
    case Shader::Type::Vertex: return "vertex";
    case Shader::Type::Geometry: return "geometry";
    case Shader::Type::Fragment: return "fragment";
    }
    CORRADE_INTERNAL_ASSERT_UNREACHABLE();
}

}

Shader::Shader(Version version, Type type): _type{type} {
    CORRADE_ASSERT(version == Version::None || (version >= Version::GL330 && Implementation::isKnownVersion(version)),
        "GL::Shader::Shader(): unsupported version" << version, );
    _id = Implementation::ObjectName{glCreateShader(GLenum(type))};
    if(version != Version::None) arrayAppend(_sources, Utility::format("#version {}\n", Int(version)));
}

Shader::~Shader() {
    if(_id) glDeleteShader(_id);
}

Containers::String Shader::label() const { return Implementation::objectLabel(GL_SHADER, _id); }

Shader& Shader::setLabel(Containers::StringView label) {
    Implementation::setObjectLabel(GL_SHADER, _id, label);
    return *this;
}

Shader& Shader::addSource(Containers::StringView source) {
    return addOwnedSource(Containers::String::nullTerminatedGlobalView(source));
}

Shader& Shader::addOwnedSource(Containers::String&& source) {
    if(source.isEmpty()) return *this;
    // Sources come in pairs: the version or an empty placeholder with the first one, a line directive with the rest.
    if(_sources.isEmpty())
        arrayAppend(_sources, Containers::String{});
    else
        arrayAppend(_sources, Utility::format("#line 1 {}\n", (_sources.size() + 1) / 2));
    arrayAppend(_sources, Utility::move(source));
    return *this;
}

Shader& Shader::addFile(Containers::StringView filename) {
    Containers::Optional<Containers::String> source = Utility::Path::readString(filename);
    CORRADE_ASSERT(source, "GL::Shader::addFile(): can't read" << filename, *this);
    return addOwnedSource(Utility::move(*source));
}

void Shader::submitCompile() {
    CORRADE_ASSERT(_sources.size() > 1, "GL::Shader::compile(): no files added", );
    Containers::Array<const GLchar*> pointers{NoInit, _sources.size()};
    Containers::Array<GLint> sizes{NoInit, _sources.size()};
    for(std::size_t i = 0; i != _sources.size(); ++i) {
        pointers[i] = _sources[i].data();
        sizes[i] = GLint(_sources[i].size());
    }
    glShaderSource(_id, GLsizei(_sources.size()), pointers.data(), sizes.data());
    glCompileShader(_id);
}

bool Shader::isCompileFinished() {
    GLint finished = GL_TRUE;
    if(Implementation::state().parallelShaderCompile) glGetShaderiv(_id, GL_COMPLETION_STATUS_KHR, &finished);
    return finished;
}

bool Shader::checkCompile() {
    GLint success = GL_FALSE;
    glGetShaderiv(_id, GL_COMPILE_STATUS, &success);
    const Containers::String log = Implementation::infoLog(_id, glGetShaderiv, glGetShaderInfoLog);
    if(!success)
        Error{} << "GL::Shader::compile(): compilation of" << stageName(_type)
                << "shader failed with the following message:" << Debug::newline << log;
    else if(!log.isEmpty())
        Warning{} << "GL::Shader::compile(): compilation of" << stageName(_type)
                  << "shader succeeded with the following message:" << Debug::newline << log;
    return success;
}

bool Shader::compile() {
    submitCompile();
    return checkCompile();
}

Debug& operator<<(Debug& debug, Shader::Type value) {
    debug << "GL::Shader::Type" << Debug::nospace;
    switch(value) {
    case Shader::Type::Vertex: return debug << "::Vertex";
    case Shader::Type::Geometry: return debug << "::Geometry";
    case Shader::Type::Fragment: return debug << "::Fragment";
    }
    return debug << "(" << Debug::nospace << Debug::hex << UnsignedInt(value) << Debug::nospace << ")";
}

}
