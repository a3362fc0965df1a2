#include <string>

#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/GL/Attribute.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/Mesh.h>
#include <gmock/gmock.h>

#include "Canvas.h"
#include "Support/OffscreenContext.h"

using namespace Conformance;

namespace {

using testing::KilledBySignal;

// Points of a mesh in the columns that the vertices name: each a letter, 'a' for the first range and so on where GL
// counts the ranges, else 'a' for all.
struct MultiDrawTest: VantrelTest::GlTest {
    static bool countsRanges() {
        return GL::Context::current().isExtensionSupported<GL::Extensions::ARB::shader_draw_parameters>();
    }

    MultiDrawTest():
        program{std::string{countsRanges() ? "#extension GL_ARB_shader_draw_parameters: require\n"
                                             "#define RANGE gl_DrawIDARB\n"
                                           : "#define RANGE 0\n"} +
                "layout(location = 0) in float column;\n"
                "flat out int range;\n"
                "void main() {\n"
                "    gl_Position = vec4((column + 0.5)/4.0 - 1.0, 0.0, 0.0, 1.0);\n"
                "    range = RANGE;\n"
                "}\n",
            "flat in int range;\n"
            "out vec4 color;\n"
            "void main() { color = vec4(float(range + 1)/255.0, 0.0, 0.0, 0.0); }\n"} {
        vertices.setData({0.0f, 1.0f, 2.0f, 3.0f, 4.0f, 5.0f, 6.0f, 7.0f});
        mesh.addVertexBuffer(vertices, 0, GL::Attribute<0, Float>{});
    }

    void addIndices() {
        indices.setData({UnsignedShort(2), UnsignedShort(1), UnsignedShort(0)});
        mesh.setIndexBuffer(indices, 0, MeshIndexType::UnsignedShort);
    }

    std::string picture() {
        std::string result;
        for(const std::uint32_t pixel: canvas.pixels()) result += pixel ? char('a' - 1 + (pixel >> 24)) : '.';
        return result;
    }
    // The letters of all ranges, and for a GL that does not count them.
    static std::string expected(std::string letters) {
        if(!countsRanges())
            for(char& letter: letters)
                if(letter != '.') letter = 'a';
        return letters;
    }

    Canvas canvas{{8, 1}};
    Program program;
    GL::Buffer vertices, indices;
    GL::Mesh mesh{GL::MeshPrimitive::Points};
};

TEST_F(MultiDrawTest, drawsRangesOfVertices) {
    const UnsignedInt counts[]{1, 0, 2}, first[]{1, 3, 5};
    program.draw(mesh, counts, first, nullptr);
    EXPECT_EQ(picture(), expected(".a...cc."));
}

TEST_F(MultiDrawTest, drawsRangesOfIndices) {
    addIndices();
    const UnsignedInt counts[]{1, 2, 0};
    const UnsignedLong offsets[]{4, 0, 2};
    program.draw(mesh, counts, Containers::StridedArrayView1D<const UnsignedInt>{}, offsets);
    EXPECT_EQ(picture(), expected("abb....."));
}

TEST_F(MultiDrawTest, addsToIndices) {
    addIndices();
    const UnsignedInt counts[]{1, 2}, first[]{5, 2};
    const UnsignedLong offsets[]{0, 2};
    program.draw(mesh, counts, first, offsets);
    EXPECT_EQ(picture(), expected("..bb...a"));
}

TEST_F(MultiDrawTest, ofNothingDrawsNothing) {
    program.draw(mesh, Containers::StridedArrayView1D<const UnsignedInt>{},
        Containers::StridedArrayView1D<const UnsignedInt>{}, nullptr);
    EXPECT_EQ(picture(), "........");
}

TEST_F(MultiDrawTest, listsHaveToBeOfOneLength) {
    const UnsignedInt one[]{1}, two[]{1, 1};
    EXPECT_EXIT(program.draw(mesh, two, one, nullptr), KilledBySignal(SIGABRT),
        "GL::AbstractShaderProgram::draw\\(\\): expected 2 vertex offset items but got 1");
    EXPECT_EXIT(program.draw(mesh, two, Containers::StridedArrayView1D<const UnsignedInt>{}, nullptr),
        KilledBySignal(SIGABRT), "GL::AbstractShaderProgram::draw\\(\\): expected 2 vertex offset items but got 0");
    addIndices();
    const UnsignedLong offset[]{0}, offsets[]{0, 0};
    EXPECT_EXIT(program.draw(mesh, two, one, offsets), KilledBySignal(SIGABRT),
        "GL::AbstractShaderProgram::draw\\(\\): expected 2 vertex offset items but got 1");
    EXPECT_EXIT(program.draw(mesh, two, two, offset), KilledBySignal(SIGABRT),
        "GL::AbstractShaderProgram::draw\\(\\): expected 2 index offset items but got 1");
}

}
