#include <Magnum/Mesh.h>
#include <Magnum/PixelFormat.h>
#include <Magnum/Sampler.h>
#include <Magnum/VertexFormat.h>

#include "Expect.h"

using namespace Magnum;
using SceneTest::printed;

namespace {

TEST(MeshPrimitiveTest, valuesAndNames) {
    const char* const names[]{"Points", "Lines", "LineLoop", "LineStrip", "Triangles", "TriangleStrip", "TriangleFan",
        "Instances", "Faces", "Edges", "Meshlets"};
    for(UnsignedInt i = 0; i != std::size(names); ++i)
        EXPECT_EQ(printed(MeshPrimitive(i + 1)), std::string{"MeshPrimitive::"} + names[i]);
    EXPECT_EQ(printed(MeshPrimitive(0xfe)), "MeshPrimitive(0xfe)");
    static_assert(UnsignedInt(MeshPrimitive::Points) == 1);
    static_assert(UnsignedInt(MeshPrimitive::Lines) == 2);
    static_assert(UnsignedInt(MeshPrimitive::LineLoop) == 3);
    static_assert(UnsignedInt(MeshPrimitive::LineStrip) == 4);
    static_assert(UnsignedInt(MeshPrimitive::Triangles) == 5);
    static_assert(UnsignedInt(MeshPrimitive::TriangleStrip) == 6);
    static_assert(UnsignedInt(MeshPrimitive::TriangleFan) == 7);
}

TEST(MeshIndexTypeTest, valuesNamesAndSizes) {
    static_assert(UnsignedInt(MeshIndexType::UnsignedByte) == 1);
    static_assert(UnsignedInt(MeshIndexType::UnsignedShort) == 2);
    static_assert(UnsignedInt(MeshIndexType::UnsignedInt) == 3);
    EXPECT_EQ(printed(MeshIndexType::UnsignedByte), "MeshIndexType::UnsignedByte");
    EXPECT_EQ(printed(MeshIndexType::UnsignedShort), "MeshIndexType::UnsignedShort");
    EXPECT_EQ(printed(MeshIndexType::UnsignedInt), "MeshIndexType::UnsignedInt");
    EXPECT_EQ(meshIndexTypeSize(MeshIndexType::UnsignedByte), 1u);
    EXPECT_EQ(meshIndexTypeSize(MeshIndexType::UnsignedShort), 2u);
    EXPECT_EQ(meshIndexTypeSize(MeshIndexType::UnsignedInt), 4u);
    EXPECT_ABORT(meshIndexTypeSize(MeshIndexType{}), "meshIndexTypeSize(): invalid type MeshIndexType(0x0)");
}

struct ComponentType {
    const char* scalarName;
    const char* vectorSuffix;
    VertexFormat componentFormat;
    UnsignedInt size;
    bool normalized;
};

const ComponentType ComponentTypes[]{
    {"Float", "", VertexFormat::Float, 4, false},
    {"Half", "h", VertexFormat::Half, 2, false},
    {"Double", "d", VertexFormat::Double, 8, false},
    {"UnsignedByte", "ub", VertexFormat::UnsignedByte, 1, false},
    {"UnsignedByteNormalized", "ubNormalized", VertexFormat::UnsignedByte, 1, true},
    {"Byte", "b", VertexFormat::Byte, 1, false},
    {"ByteNormalized", "bNormalized", VertexFormat::Byte, 1, true},
    {"UnsignedShort", "us", VertexFormat::UnsignedShort, 2, false},
    {"UnsignedShortNormalized", "usNormalized", VertexFormat::UnsignedShort, 2, true},
    {"Short", "s", VertexFormat::Short, 2, false},
    {"ShortNormalized", "sNormalized", VertexFormat::Short, 2, true},
    {"UnsignedInt", "ui", VertexFormat::UnsignedInt, 4, false},
    {"Int", "i", VertexFormat::Int, 4, false},
};

TEST(VertexFormatTest, wholeTable) {
    UnsignedInt value = 1;
    for(UnsignedInt components = 1; components != 5; ++components) {
        for(const ComponentType& type: ComponentTypes) {
            const auto format = VertexFormat(value++);
            const std::string name = components == 1 ? std::string{type.scalarName}
                                                     : "Vector" + std::to_string(components) + type.vectorSuffix;
            SCOPED_TRACE(name);
            EXPECT_EQ(printed(format), "VertexFormat::" + name);
            EXPECT_EQ(vertexFormatSize(format), type.size * components);
            EXPECT_EQ(vertexFormatComponentCount(format), components);
            EXPECT_EQ(vertexFormatComponentFormat(format), type.componentFormat);
            EXPECT_EQ(isVertexFormatNormalized(format), type.normalized);
        }
    }
}

// The names again, so that one that is spelled or placed wrongly does not compile.
TEST(VertexFormatTest, values) {
    static_assert(UnsignedInt(VertexFormat::Float) == 1);
    static_assert(UnsignedInt(VertexFormat::UnsignedByteNormalized) == 5);
    static_assert(UnsignedInt(VertexFormat::Int) == 13);
    static_assert(UnsignedInt(VertexFormat::Vector2) == 14);
    static_assert(UnsignedInt(VertexFormat::Vector2usNormalized) == 22);
    static_assert(UnsignedInt(VertexFormat::Vector2i) == 26);
    static_assert(UnsignedInt(VertexFormat::Vector3) == 27);
    static_assert(UnsignedInt(VertexFormat::Vector3h) == 28);
    static_assert(UnsignedInt(VertexFormat::Vector3sNormalized) == 37);
    static_assert(UnsignedInt(VertexFormat::Vector3ui) == 38);
    static_assert(UnsignedInt(VertexFormat::Vector4) == 40);
    static_assert(UnsignedInt(VertexFormat::Vector4bNormalized) == 46);
    EXPECT_EQ(UnsignedInt(VertexFormat::Vector4i), 52u);
}

TEST(VertexFormatTest, invalid) {
    EXPECT_EQ(printed(VertexFormat(0xdead)), "VertexFormat(0xdead)");
    EXPECT_ABORT(vertexFormatSize(VertexFormat{}), "vertexFormatSize(): invalid format VertexFormat(0x0)");
    EXPECT_ABORT(
        vertexFormatComponentCount(VertexFormat{}), "vertexFormatComponentCount(): invalid format VertexFormat(0x0)");
    EXPECT_ABORT(
        vertexFormatComponentFormat(VertexFormat{}), "vertexFormatComponentType(): invalid format VertexFormat(0x0)");
    EXPECT_ABORT(
        isVertexFormatNormalized(VertexFormat{}), "isVertexFormatNormalized(): invalid format VertexFormat(0x0)");
}

struct ChannelType {
    const char* suffix;
    UnsignedInt size;
};

const ChannelType ChannelTypes[]{{"8Unorm", 1}, {"8Snorm", 1}, {"8Srgb", 1}, {"8UI", 1}, {"8I", 1}, {"16Unorm", 2},
    {"16Snorm", 2}, {"16UI", 2}, {"16I", 2}, {"32UI", 4}, {"32I", 4}, {"16F", 2}, {"32F", 4}};

TEST(PixelFormatTest, wholeTableOfColors) {
    UnsignedInt value = 1;
    for(const ChannelType& type: ChannelTypes) {
        for(UnsignedInt channels = 1; channels != 5; ++channels) {
            const auto format = PixelFormat(value++);
            const std::string name = std::string{"RGBA"}.substr(0, channels) + type.suffix;
            SCOPED_TRACE(name);
            EXPECT_EQ(printed(format), "PixelFormat::" + name);
            EXPECT_EQ(pixelFormatSize(format), type.size * channels);
            EXPECT_EQ(pixelFormatChannelCount(format), channels);
        }
    }
}

TEST(PixelFormatTest, wholeTableOfDepthAndStencil) {
    const ChannelType formats[]{{"Depth16Unorm", 2}, {"Depth24Unorm", 4}, {"Depth32F", 4}, {"Stencil8UI", 1},
        {"Depth16UnormStencil8UI", 4}, {"Depth24UnormStencil8UI", 4}, {"Depth32FStencil8UI", 8}};
    UnsignedInt value = 53;
    for(const ChannelType& expected: formats) {
        const auto format = PixelFormat(value++);
        EXPECT_EQ(printed(format), std::string{"PixelFormat::"} + expected.suffix);
        EXPECT_EQ(pixelFormatSize(format), expected.size);
        EXPECT_ABORT(pixelFormatChannelCount(format),
            std::string{"pixelFormatChannelCount(): can't determine channel count of PixelFormat::"} + expected.suffix);
    }
}

TEST(PixelFormatTest, values) {
    static_assert(UnsignedInt(PixelFormat::R8Unorm) == 1);
    static_assert(UnsignedInt(PixelFormat::RGBA8Unorm) == 4);
    static_assert(UnsignedInt(PixelFormat::R8Snorm) == 5);
    static_assert(UnsignedInt(PixelFormat::RGBA8Srgb) == 12);
    static_assert(UnsignedInt(PixelFormat::R8UI) == 13);
    static_assert(UnsignedInt(PixelFormat::R8I) == 17);
    static_assert(UnsignedInt(PixelFormat::RG16Unorm) == 22);
    static_assert(UnsignedInt(PixelFormat::RGBA32UI) == 40);
    static_assert(UnsignedInt(PixelFormat::R16F) == 45);
    static_assert(UnsignedInt(PixelFormat::R32F) == 49);
    static_assert(UnsignedInt(PixelFormat::RGBA32F) == 52);
    static_assert(UnsignedInt(PixelFormat::Depth16Unorm) == 53);
    EXPECT_EQ(UnsignedInt(PixelFormat::Depth24UnormStencil8UI), 58u);
}

TEST(PixelFormatTest, invalid) {
    EXPECT_EQ(printed(PixelFormat(0xbeef)), "PixelFormat(0xbeef)");
    EXPECT_ABORT(pixelFormatSize(PixelFormat{}), "pixelFormatSize(): invalid format PixelFormat(0x0)");
    EXPECT_ABORT(pixelFormatChannelCount(PixelFormat{}), "pixelFormatChannelCount(): invalid format PixelFormat(0x0)");
}

TEST(CompressedPixelFormatTest, values) {
    static_assert(UnsignedInt(CompressedPixelFormat::Bc1RGBUnorm) == 1);
    static_assert(UnsignedInt(CompressedPixelFormat::Bc1RGBSrgb) == 2);
    static_assert(UnsignedInt(CompressedPixelFormat::Bc1RGBAUnorm) == 3);
    static_assert(UnsignedInt(CompressedPixelFormat::Bc1RGBASrgb) == 4);
    static_assert(UnsignedInt(CompressedPixelFormat::Bc2RGBAUnorm) == 5);
    static_assert(UnsignedInt(CompressedPixelFormat::Bc2RGBASrgb) == 6);
    static_assert(UnsignedInt(CompressedPixelFormat::Bc3RGBAUnorm) == 7);
    EXPECT_EQ(UnsignedInt(CompressedPixelFormat::Bc3RGBASrgb), 8u);
}

TEST(SamplerTest, values) {
    EXPECT_EQ(UnsignedInt(SamplerFilter::Nearest), 0u);
    EXPECT_EQ(UnsignedInt(SamplerFilter::Linear), 1u);
    EXPECT_EQ(UnsignedInt(SamplerMipmap::Base), 0u);
    EXPECT_EQ(UnsignedInt(SamplerMipmap::Nearest), 1u);
    EXPECT_EQ(UnsignedInt(SamplerMipmap::Linear), 2u);
    EXPECT_EQ(UnsignedInt(SamplerWrapping::Repeat), 0u);
    EXPECT_EQ(UnsignedInt(SamplerWrapping::MirroredRepeat), 1u);
    EXPECT_EQ(UnsignedInt(SamplerWrapping::ClampToEdge), 2u);
    EXPECT_EQ(UnsignedInt(SamplerWrapping::ClampToBorder), 3u);
    EXPECT_EQ(UnsignedInt(SamplerWrapping::MirrorClampToEdge), 4u);
}

}
