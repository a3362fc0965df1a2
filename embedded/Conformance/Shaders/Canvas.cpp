#include "Canvas.h"

#include <Corrade/Containers/ArrayView.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/RenderbufferFormat.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/GL/Sampler.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Image.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Range.h>
#include <Magnum/Mesh.h>
#include <Magnum/PixelFormat.h>
#include <Magnum/Shaders/GenericGL.h>

namespace ConformanceShaders {

using namespace Corrade;
using namespace Magnum;

Canvas::Canvas(): _framebuffer{Range2Di{{}, Vector2i{Size}}} {
    _color.setStorage(1, GL::TextureFormat::RGBA32F, Vector2i{Size});
    _id.setStorage(1, GL::TextureFormat::R32UI, Vector2i{Size});
    _depth.setStorage(GL::RenderbufferFormat::DepthComponent24, Vector2i{Size});
    _framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{0}, _color, 0)
        .attachTexture(GL::Framebuffer::ColorAttachment{1}, _id, 0)
        .attachRenderbuffer(GL::Framebuffer::BufferAttachment::Depth, _depth)
        .mapForDraw({{0, GL::Framebuffer::ColorAttachment{0}}, {1, GL::Framebuffer::ColorAttachment{1}}});
    GL::Renderer::enable(GL::Renderer::Feature::DepthTest);
    clear();
}

void Canvas::clear() {
    _framebuffer.clearColor(0, background()).clearColor(1, Vector4ui{NoId}).clearDepth(1.0f).bind();
}

Color4 Canvas::at(const Int x, const Int y) {
    Image2D pixel = _framebuffer.mapForRead(GL::Framebuffer::ColorAttachment{0})
                        .read(Range2Di::fromSize({x, y}, {1, 1}), Image2D{PixelFormat::RGBA32F});
    return Containers::arrayCast<const Color4>(pixel.data())[0];
}

UnsignedInt Canvas::idAt(const Int x, const Int y) {
    Image2D pixel = _framebuffer.mapForRead(GL::Framebuffer::ColorAttachment{1})
                        .read(Range2Di::fromSize({x, y}, {1, 1}), Image2D{PixelFormat::R32UI});
    return Containers::arrayCast<const UnsignedInt>(pixel.data())[0];
}

Vector2 Canvas::deviceAt(const Int x, const Int y) {
    return (Vector2{Float(x), Float(y)} + Vector2{0.5f}) * (2.0f / Float(Size)) - Vector2{1.0f};
}

Vector2 Canvas::pixelOf(const Vector2& device) { return (device + Vector2{1.0f}) * (Float(Size) / 2.0f); }

GL::Mesh mesh(const std::initializer_list<Vertex> vertices, const MeshPrimitive primitive) {
    typedef Shaders::GenericGL3D Generic;
    GL::Buffer buffer{GL::Buffer::TargetHint::Array, Containers::arrayView(vertices)};
    GL::Mesh mesh{primitive};
    mesh.setCount(Int(vertices.size()))
        .addVertexBuffer(std::move(buffer), 0, Generic::Position{}, Generic::TextureCoordinates{}, Generic::Normal{},
            Generic::Tangent4{}, Generic::Color4{});
    return mesh;
}

GL::Mesh square(const Vector3& normal, const Float z, const Vector4& tangent) {
    return mesh(
        {{{-1.0f, -1.0f, z}, {0.0f, 0.0f}, normal, tangent}, {{1.0f, -1.0f, z}, {1.0f, 0.0f}, normal, tangent},
            {{-1.0f, 1.0f, z}, {0.0f, 1.0f}, normal, tangent}, {{1.0f, 1.0f, z}, {1.0f, 1.0f}, normal, tangent}},
        MeshPrimitive::TriangleStrip);
}

GL::Texture2D texture(const std::initializer_list<Color4> texels) {
    const Vector2i size{Int(texels.size()), 1};
    GL::Texture2D texture;
    texture.setMinificationFilter(SamplerFilter::Nearest)
        .setMagnificationFilter(SamplerFilter::Nearest)
        .setWrapping(SamplerWrapping::ClampToEdge)
        .setStorage(1, GL::TextureFormat::RGBA32F, size)
        .setSubImage(0, {}, ImageView2D{PixelFormat::RGBA32F, size, Containers::arrayView(texels)});
    return texture;
}

testing::AssertionResult isNear(const Color4& actual, const Color4& expected, const Float tolerance) {
    for(std::size_t i = 0; i != 4; ++i)
        // Also not near where it is not a number.
        if(!(Math::abs(actual[i] - expected[i]) <= tolerance))
            return testing::AssertionFailure()
                << "(" << actual[0] << ", " << actual[1] << ", " << actual[2] << ", " << actual[3] << ") instead of ("
                << expected[0] << ", " << expected[1] << ", " << expected[2] << ", " << expected[3] << ")";
    return testing::AssertionSuccess();
}

}
