#pragma once

// Forward declarations of everything in Magnum::GL.

#include "Magnum/Magnum.h"

namespace Magnum::GL {

class AbstractFramebuffer;
class AbstractShaderProgram;
class AbstractTexture;
template<UnsignedInt location, class T> class Attribute;
class Buffer;
class BufferTexture;
class Context;
class CubeMapTexture;
class DefaultFramebuffer;
class DynamicAttribute;
class Framebuffer;
class Mesh;
class MeshView;
class Renderbuffer;
class Renderer;
class Shader;
template<UnsignedInt dimensions> class Texture;
template<UnsignedInt dimensions> class TextureArray;

typedef Texture<2> Texture2D;
typedef TextureArray<2> Texture2DArray;

enum class BufferTextureFormat : UnsignedInt;
enum class BufferUsage : UnsignedInt;
enum class CubeMapCoordinate : UnsignedInt;
enum class FramebufferBlit : UnsignedInt;
enum class FramebufferBlitFilter : UnsignedInt;
enum class FramebufferClear : UnsignedInt;
enum class FramebufferTarget : UnsignedInt;
enum class MeshIndexType : UnsignedInt;
enum class MeshPrimitive : UnsignedInt;
enum class RenderbufferFormat : UnsignedInt;
enum class SamplerCompareFunction : UnsignedInt;
enum class SamplerCompareMode : UnsignedInt;
enum class SamplerFilter : UnsignedInt;
enum class SamplerMipmap : UnsignedInt;
enum class SamplerWrapping : UnsignedInt;
enum class TextureFormat : UnsignedInt;
enum class Version : Int;

}
