#pragma once

#include "Corrade/Utility/VisibilityMacros.h"
#include "Magnum/GL/GL.h"
#include "Magnum/GL/OpenGL.h"

namespace Magnum::GL {

// The state of GL that is no object's. Set at once and not cached.
class CORRADE_VISIBILITY_EXPORT Renderer {
public:
    enum class Feature : GLenum {
        Blending = GL_BLEND,
        DebugOutput = GL_DEBUG_OUTPUT,
        DepthClamp = GL_DEPTH_CLAMP,
        DepthTest = GL_DEPTH_TEST,
        FaceCulling = GL_CULL_FACE,
        FramebufferSrgb = GL_FRAMEBUFFER_SRGB,
        Multisampling = GL_MULTISAMPLE,
        PolygonOffsetFill = GL_POLYGON_OFFSET_FILL,
        PolygonOffsetLine = GL_POLYGON_OFFSET_LINE,
        ProgramPointSize = GL_PROGRAM_POINT_SIZE,
        ScissorTest = GL_SCISSOR_TEST,
        SeamlessCubeMapTexture = GL_TEXTURE_CUBE_MAP_SEAMLESS,
        StencilTest = GL_STENCIL_TEST
    };

    enum class BlendFunction : GLenum {
        Zero = GL_ZERO,
        One = GL_ONE,
        ConstantColor = GL_CONSTANT_COLOR,
        OneMinusConstantColor = GL_ONE_MINUS_CONSTANT_COLOR,
        SourceColor = GL_SRC_COLOR,
        OneMinusSourceColor = GL_ONE_MINUS_SRC_COLOR,
        SourceAlpha = GL_SRC_ALPHA,
        OneMinusSourceAlpha = GL_ONE_MINUS_SRC_ALPHA,
        DestinationColor = GL_DST_COLOR,
        OneMinusDestinationColor = GL_ONE_MINUS_DST_COLOR,
        DestinationAlpha = GL_DST_ALPHA,
        OneMinusDestinationAlpha = GL_ONE_MINUS_DST_ALPHA
    };

    enum class BlendEquation : GLenum {
        Add = GL_FUNC_ADD,
        Subtract = GL_FUNC_SUBTRACT,
        ReverseSubtract = GL_FUNC_REVERSE_SUBTRACT,
        Min = GL_MIN,
        Max = GL_MAX
    };

    enum class PolygonFacing : GLenum { Front = GL_FRONT, Back = GL_BACK, FrontAndBack = GL_FRONT_AND_BACK };

    enum class FrontFace : GLenum { CounterClockWise = GL_CCW, ClockWise = GL_CW };

    enum class StencilFunction : GLenum {
        Never = GL_NEVER,
        Always = GL_ALWAYS,
        Less = GL_LESS,
        LessOrEqual = GL_LEQUAL,
        Equal = GL_EQUAL,
        NotEqual = GL_NOTEQUAL,
        GreaterOrEqual = GL_GEQUAL,
        Greater = GL_GREATER
    };
    typedef StencilFunction DepthFunction;

    enum class StencilOperation : GLenum {
        Keep = GL_KEEP,
        Zero = GL_ZERO,
        Replace = GL_REPLACE,
        Invert = GL_INVERT,
        Increment = GL_INCR,
        IncrementWrap = GL_INCR_WRAP,
        Decrement = GL_DECR,
        DecrementWrap = GL_DECR_WRAP
    };

    enum class Error : GLenum {
        NoError = GL_NO_ERROR,
        InvalidEnum = GL_INVALID_ENUM,
        InvalidValue = GL_INVALID_VALUE,
        InvalidOperation = GL_INVALID_OPERATION,
        InvalidFramebufferOperation = GL_INVALID_FRAMEBUFFER_OPERATION,
        OutOfMemory = GL_OUT_OF_MEMORY,
        StackUnderflow = GL_STACK_UNDERFLOW,
        StackOverflow = GL_STACK_OVERFLOW
    };

    Renderer() = delete;

    static void enable(Feature feature);
    static void disable(Feature feature);
    static void setFeature(Feature feature, bool enabled);

    // What clear() fills with. A new context has a dark grey (31/255, opaque), 1 and 0.
    static void setClearColor(const Color4& color);
    static void setClearDepth(Float depth);
    static void setClearStencil(Int stencil);

    static void setBlendFunction(BlendFunction source, BlendFunction destination);
    static void setBlendFunction(BlendFunction sourceRgb, BlendFunction destinationRgb, BlendFunction sourceAlpha,
        BlendFunction destinationAlpha);
    static void setBlendEquation(BlendEquation equation);
    static void setBlendEquation(BlendEquation rgb, BlendEquation alpha);

    // Which faces are culled, and what the front is.
    static void setFaceCullingMode(PolygonFacing mode);
    static void setFrontFace(FrontFace mode);

    static void setDepthFunction(DepthFunction function);
    static void setDepthMask(bool allow);
    static void setColorMask(bool red, bool green, bool blue, bool alpha);
    static void setPolygonOffset(Float factor, Float units);
    // In pixels, half open.
    static void setScissor(const Range2Di& rectangle);
    // In pixels. What exceeds 1 may be an error.
    static void setLineWidth(Float width);

    // The reference is on the left side of the comparison.
    static void setStencilFunction(StencilFunction function, Int reference, UnsignedInt mask);
    static void setStencilOperation(
        StencilOperation stencilFail, StencilOperation depthFail, StencilOperation depthPass);
    static void setStencilMask(UnsignedInt allowedBits);

    // Starts, or waits for, what was submitted.
    static void flush();
    static void finish();

    // The oldest error since the last call. Waits for the driver.
    static Error error();
};

CORRADE_VISIBILITY_EXPORT Debug& operator<<(Debug& debug, Renderer::Error value);

}
