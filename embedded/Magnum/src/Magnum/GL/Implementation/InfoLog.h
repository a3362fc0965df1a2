#pragma once

#include "Corrade/Containers/String.h"
#include "Corrade/Containers/StringView.h"
#include "Magnum/GL/OpenGL.h"

namespace Magnum::GL::Implementation {

// Message of a shader or a program, without blanks and newlines around it. `getParameter` and `getLog` are
// glGet{Shader,Program}iv and glGet{Shader,Program}InfoLog.
template<class GetParameter, class GetLog>
Containers::String infoLog(GLuint id, GetParameter getParameter, GetLog getLog) {
    GLint size = 0;
    getParameter(id, GL_INFO_LOG_LENGTH, &size);
    // The length counts the terminator.
    if(size < 2) return {};
    Containers::String log{NoInit, std::size_t(size) - 1};
    getLog(id, size, nullptr, log.data());
    return Containers::StringView{log}.trimmed();
}

}
