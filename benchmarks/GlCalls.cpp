#include "GlCalls.h"

#ifdef VANTREL_GL_CALLS_ARE_COUNTED
#include <algorithm>
#include <type_traits>

#include <epoxy/gl.h>

#include "Allocations.h"
#include "GlMemory.h"
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

// The name of the object that is bound; asking is no call of the program's own.
GLuint boundTo(GLenum binding) {
    const GlCalls before = calls;
    GLint object = 0;
    glGetIntegerv(binding, &object);
    calls = before;
    return GLuint(object);
}

GLenum bindingOf(GLenum target) {
    switch(target) {
    case GL_ARRAY_BUFFER: return GL_ARRAY_BUFFER_BINDING;
    case GL_ELEMENT_ARRAY_BUFFER: return GL_ELEMENT_ARRAY_BUFFER_BINDING;
    case GL_UNIFORM_BUFFER: return GL_UNIFORM_BUFFER_BINDING;
    case GL_PIXEL_PACK_BUFFER: return GL_PIXEL_PACK_BUFFER_BINDING;
    case GL_PIXEL_UNPACK_BUFFER: return GL_PIXEL_UNPACK_BUFFER_BINDING;
    case GL_TEXTURE_2D: return GL_TEXTURE_BINDING_2D;
    case GL_TEXTURE_3D: return GL_TEXTURE_BINDING_3D;
    case GL_TEXTURE_2D_ARRAY: return GL_TEXTURE_BINDING_2D_ARRAY;
    case GL_TEXTURE_RECTANGLE: return GL_TEXTURE_BINDING_RECTANGLE;
    default: break;
    }
    // A cube map's sides. What is left names its own binding.
    return target == GL_TEXTURE_CUBE_MAP ||
            (target >= GL_TEXTURE_CUBE_MAP_POSITIVE_X && target <= GL_TEXTURE_CUBE_MAP_NEGATIVE_Z)
        ? GL_TEXTURE_BINDING_CUBE_MAP
        : target;
}

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
        noteMemory(arguments...);
    }
    static void noteData(GLenum, GLsizeiptr size, const void* data, GLenum) {
        if(data) calls.uploadedBytes += std::uint64_t(size);
    }
    static void noteMemory(Arguments... arguments) {
        const NotOurs ledger;
        using Kind = GlMemory::Kind;
        if constexpr(is<slot, &epoxy_glBufferData>) noteBuffer(arguments...);
        if constexpr(is<slot, &epoxy_glTexStorage2D> || is<slot, &epoxy_glTexStorage3D>) noteStorage(arguments...);
        if constexpr(is<slot, &epoxy_glTexImage2D> || is<slot, &epoxy_glTexImage3D>) noteLevel(arguments...);
        if constexpr(is<slot, &epoxy_glRenderbufferStorage>) noteRenderbuffer(arguments...);
        if constexpr(is<slot, &epoxy_glRenderbufferStorageMultisample>) noteMultisampled(arguments...);
        if constexpr(is<slot, &epoxy_glDeleteBuffers>) GlMemory::forget(Kind::Buffer, arguments...);
        if constexpr(is<slot, &epoxy_glDeleteTextures>) GlMemory::forget(Kind::Texture, arguments...);
        if constexpr(is<slot, &epoxy_glDeleteRenderbuffers>) GlMemory::forget(Kind::Renderbuffer, arguments...);
    }
    static void noteBuffer(GLenum target, GLsizeiptr size, const void*, GLenum) {
        GlMemory::set(GlMemory::Kind::Buffer, boundTo(bindingOf(target)), std::uint64_t(size));
    }
    static void noteStorage(GLenum target, GLsizei levels, GLenum format, GLsizei width, GLsizei height) {
        noteLevels(target, levels, format, width, height, target == GL_TEXTURE_CUBE_MAP ? 6 : 1);
    }
    // Layers of an array do not get fewer from level to level.
    static void noteStorage(
        GLenum target, GLsizei levels, GLenum format, GLsizei width, GLsizei height, GLsizei layers) {
        noteLevels(target, levels, format, width, height, layers);
    }
    static void noteLevels(
        GLenum target, GLsizei levels, GLenum format, GLsizei width, GLsizei height, GLsizei layers) {
        std::uint64_t texels = 0;
        for(GLsizei i = 0; i != levels; ++i) texels += texelsOf(width >> i, height >> i) * std::uint64_t(layers);
        GlMemory::set(GlMemory::Kind::Texture, boundTo(bindingOf(target)), texels * bytesOfTexel(GLenum(format)));
    }
    static void noteLevel(
        GLenum target, GLint level, GLint format, GLsizei width, GLsizei height, GLint, GLenum, GLenum, const void*) {
        GlMemory::addLevel(boundTo(bindingOf(target)), level, texelsOf(width, height) * bytesOfTexel(GLenum(format)));
    }
    static void noteLevel(GLenum target, GLint level, GLint format, GLsizei width, GLsizei height, GLsizei layers,
        GLint, GLenum, GLenum, const void*) {
        GlMemory::addLevel(boundTo(bindingOf(target)), level,
            texelsOf(width, height) * std::uint64_t(layers) * bytesOfTexel(GLenum(format)));
    }
    static void noteRenderbuffer(GLenum target, GLenum format, GLsizei width, GLsizei height) {
        noteMultisampled(target, 1, format, width, height);
    }
    static void noteMultisampled(GLenum, GLsizei samples, GLenum format, GLsizei width, GLsizei height) {
        GlMemory::set(GlMemory::Kind::Renderbuffer, boundTo(GL_RENDERBUFFER_BINDING),
            texelsOf(width, height) * std::uint64_t(std::max(samples, 1)) * bytesOfTexel(format));
    }
    static std::uint64_t texelsOf(GLsizei width, GLsizei height) {
        return std::uint64_t(std::max(width, 1)) * std::uint64_t(std::max(height, 1));
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
