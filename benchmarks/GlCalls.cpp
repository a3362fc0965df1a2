#include "GlCalls.h"

#ifdef VANTREL_GL_CALLS_ARE_COUNTED
#include <type_traits>

#include <epoxy/gl.h>

#include "Allocations.h"
#endif

namespace VantrelBench {

namespace {

GlCalls calls;

}

GlCalls GlCalls::soFar() { return calls; }

GlCalls operator-(const GlCalls& a, const GlCalls& b) {
    return {
        a.all - b.all, a.clears - b.clears, a.blits - b.blits, a.builds - b.builds, a.uploadedBytes - b.uploadedBytes};
}

#ifdef VANTREL_GL_CALLS_ARE_COUNTED

namespace {

// Each function of the GL is called through a pointer of its own, which everyone shares. It is made to point at a
// function that counts and then calls what it pointed to before, with the pointer as it was: the first of these loads the
// function when it is called, writes it into the pointer and calls it through that.
template<auto* slot> struct Counted;

template<auto* slot, auto* other> constexpr bool is = std::is_same_v<Counted<slot>, Counted<other>>;

template<class Result, class... Arguments, Result (**slot)(Arguments...)> struct Counted<slot> {
    static inline Result (*next)(Arguments...) = nullptr;

    static void begin() {
        if(*slot == call) return;
        next = *slot;
        *slot = call;
    }
    static Result call(Arguments... arguments) {
        note(arguments...);
        *slot = next;
        const NotOurs driver;
        struct Again {
            ~Again() { begin(); }
        } again;
        return next(arguments...);
    }
    static void note(Arguments... arguments) {
        ++calls.all;
        if constexpr(is<slot, &epoxy_glClear>) ++calls.clears;
        if constexpr(is<slot, &epoxy_glBlitFramebuffer>) ++calls.blits;
        if constexpr(is<slot, &epoxy_glCompileShader> || is<slot, &epoxy_glLinkProgram>) ++calls.builds;
        if constexpr(is<slot, &epoxy_glBufferData>) noteData(arguments...);
        if constexpr(is<slot, &epoxy_glBufferSubData>) noteSubData(arguments...);
    }
    static void noteData(GLenum, GLsizeiptr size, const void* data, GLenum) {
        if(data) calls.uploadedBytes += std::uint64_t(size);
    }
    static void noteSubData(GLenum, GLintptr, GLsizeiptr size, const void*) {
        calls.uploadedBytes += std::uint64_t(size);
    }
};

template<auto*... slots> void countAll() { (Counted<slots>::begin(), ...); }

}

bool countGlCalls() {
    // What the libraries and the module import.
    countAll<&epoxy_glActiveTexture, &epoxy_glAttachShader, &epoxy_glBindAttribLocation, &epoxy_glBindBuffer,
        &epoxy_glBindFragDataLocation, &epoxy_glBindFramebuffer, &epoxy_glBindRenderbuffer, &epoxy_glBindTexture,
        &epoxy_glBindVertexArray, &epoxy_glBlendEquation, &epoxy_glBlendEquationSeparate, &epoxy_glBlendFunc,
        &epoxy_glBlendFuncSeparate, &epoxy_glBlitFramebuffer, &epoxy_glBufferData, &epoxy_glBufferSubData,
        &epoxy_glCheckFramebufferStatus, &epoxy_glClear, &epoxy_glClearBufferfi, &epoxy_glClearBufferfv,
        &epoxy_glClearBufferiv, &epoxy_glClearBufferuiv, &epoxy_glClearColor, &epoxy_glClearDepth,
        &epoxy_glClearStencil, &epoxy_glColorMask, &epoxy_glCompileShader, &epoxy_glCreateProgram,
        &epoxy_glCreateShader, &epoxy_glCullFace, &epoxy_glDeleteBuffers, &epoxy_glDeleteFramebuffers,
        &epoxy_glDeleteProgram, &epoxy_glDeleteRenderbuffers, &epoxy_glDeleteShader, &epoxy_glDeleteTextures,
        &epoxy_glDeleteVertexArrays, &epoxy_glDepthFunc, &epoxy_glDepthMask, &epoxy_glDisable, &epoxy_glDrawArrays,
        &epoxy_glDrawArraysInstanced, &epoxy_glDrawArraysInstancedBaseInstance, &epoxy_glDrawBuffers,
        &epoxy_glDrawElementsBaseVertex, &epoxy_glDrawElementsInstancedBaseVertex,
        &epoxy_glDrawElementsInstancedBaseVertexBaseInstance, &epoxy_glEnable, &epoxy_glEnableVertexAttribArray,
        &epoxy_glFinish, &epoxy_glFlush, &epoxy_glFramebufferRenderbuffer, &epoxy_glFramebufferTexture2D,
        &epoxy_glFramebufferTextureLayer, &epoxy_glFrontFace, &epoxy_glGenBuffers, &epoxy_glGenFramebuffers,
        &epoxy_glGenRenderbuffers, &epoxy_glGenTextures, &epoxy_glGenVertexArrays, &epoxy_glGenerateMipmap,
        &epoxy_glGetBufferParameteriv, &epoxy_glGetBufferSubData, &epoxy_glGetError, &epoxy_glGetIntegerv,
        &epoxy_glGetObjectLabel, &epoxy_glGetProgramInfoLog, &epoxy_glGetProgramiv, &epoxy_glGetShaderInfoLog,
        &epoxy_glGetShaderiv, &epoxy_glGetString, &epoxy_glGetStringi, &epoxy_glGetTexImage,
        &epoxy_glGetTexLevelParameteriv, &epoxy_glGetUniformBlockIndex, &epoxy_glGetUniformLocation, &epoxy_glLineWidth,
        &epoxy_glLinkProgram, &epoxy_glMultiDrawArrays, &epoxy_glMultiDrawElements,
        &epoxy_glMultiDrawElementsBaseVertex, &epoxy_glObjectLabel, &epoxy_glPixelStorei, &epoxy_glPolygonOffset,
        &epoxy_glProgramUniform1fv, &epoxy_glProgramUniform1iv, &epoxy_glProgramUniform1uiv, &epoxy_glProgramUniform2fv,
        &epoxy_glProgramUniform2iv, &epoxy_glProgramUniform2uiv, &epoxy_glProgramUniform3fv, &epoxy_glProgramUniform3iv,
        &epoxy_glProgramUniform3uiv, &epoxy_glProgramUniform4fv, &epoxy_glProgramUniform4iv,
        &epoxy_glProgramUniform4uiv, &epoxy_glProgramUniformMatrix2fv, &epoxy_glProgramUniformMatrix3fv,
        &epoxy_glProgramUniformMatrix4fv, &epoxy_glReadBuffer, &epoxy_glReadPixels, &epoxy_glRenderbufferStorage,
        &epoxy_glRenderbufferStorageMultisample, &epoxy_glScissor, &epoxy_glShaderSource, &epoxy_glStencilFunc,
        &epoxy_glStencilMask, &epoxy_glStencilOp, &epoxy_glTexBuffer, &epoxy_glTexImage2D, &epoxy_glTexImage3D,
        &epoxy_glTexParameterf, &epoxy_glTexParameterfv, &epoxy_glTexParameteri, &epoxy_glTexParameteriv,
        &epoxy_glTexStorage2D, &epoxy_glTexStorage3D, &epoxy_glTexSubImage2D, &epoxy_glTexSubImage3D,
        &epoxy_glUniform1fv, &epoxy_glUniform1iv, &epoxy_glUniform1uiv, &epoxy_glUniform2fv, &epoxy_glUniform2iv,
        &epoxy_glUniform2uiv, &epoxy_glUniform3fv, &epoxy_glUniform3iv, &epoxy_glUniform3uiv, &epoxy_glUniform4fv,
        &epoxy_glUniform4iv, &epoxy_glUniform4uiv, &epoxy_glUniformBlockBinding, &epoxy_glUniformMatrix2fv,
        &epoxy_glUniformMatrix3fv, &epoxy_glUniformMatrix4fv, &epoxy_glUseProgram, &epoxy_glValidateProgram,
        &epoxy_glVertexAttribDivisor, &epoxy_glVertexAttribIPointer, &epoxy_glVertexAttribPointer, &epoxy_glViewport>();
    return true;
}

#else

bool countGlCalls() { return false; }

#endif

}
