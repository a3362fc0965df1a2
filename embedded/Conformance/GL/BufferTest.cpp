#include <string>
#include <vector>

#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/String.h>
#include <Magnum/GL/Buffer.h>
#include <Magnum/GL/Context.h>
#include <Magnum/GL/Extensions.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/Magnum.h>
#include <gmock/gmock.h>

#include "Support/OffscreenContext.h"

using namespace Corrade;
using namespace Magnum;

namespace {

using testing::ElementsAre;

std::vector<int> contents(GL::Buffer& buffer) {
    const Containers::Array<char> data = buffer.data();
    return {data.begin(), data.end()};
}

struct BufferTest: VantrelTest::GlTest {};

TEST_F(BufferTest, constructionAndMove) {
    GL::Buffer buffer;
    const UnsignedInt id = buffer.id();
    EXPECT_TRUE(glIsBuffer(id));
    EXPECT_EQ(buffer.size(), 0);
    EXPECT_THAT(contents(buffer), ElementsAre());
    {
        GL::Buffer moved{std::move(buffer)};
        EXPECT_EQ(buffer.id(), 0u);
        EXPECT_EQ(moved.id(), id);
        GL::Buffer assigned{NoCreate};
        assigned = std::move(moved);
        EXPECT_EQ(moved.id(), 0u);
        EXPECT_EQ(assigned.id(), id);
        EXPECT_TRUE(glIsBuffer(id));
    }
    EXPECT_FALSE(glIsBuffer(id));
}

TEST_F(BufferTest, moveAssignmentDeletesTheOldOne) {
    GL::Buffer buffer;
    const UnsignedInt old = buffer.id();
    buffer = GL::Buffer{};
    EXPECT_FALSE(glIsBuffer(old));
    EXPECT_TRUE(glIsBuffer(buffer.id()));
}

TEST_F(BufferTest, data) {
    const Byte three[]{1, 2, 3};
    GL::Buffer buffer{GL::Buffer::TargetHint::Array, three};
    EXPECT_EQ(buffer.size(), 3);
    EXPECT_THAT(contents(buffer), ElementsAre(1, 2, 3));
    const Byte five[]{5, 6, 7, 8, 9};
    EXPECT_EQ(&buffer.setData(five, GL::BufferUsage::DynamicDraw), &buffer);
    EXPECT_THAT(contents(buffer), ElementsAre(5, 6, 7, 8, 9));
    EXPECT_EQ(&buffer.setSubData(1, Containers::arrayView(three).prefix(2)), &buffer);
    EXPECT_THAT(contents(buffer), ElementsAre(5, 1, 2, 8, 9));
    buffer.setData({nullptr, 16});
    EXPECT_EQ(buffer.size(), 16);
    buffer.setData({1.5f, 2.5f});
    EXPECT_EQ(buffer.size(), 8);
    EXPECT_EQ(reinterpret_cast<const Float*>(buffer.data().data())[1], 2.5f);
}

TEST_F(BufferTest, dataInTheConstructor) {
    GL::Buffer indices{GL::Buffer::TargetHint::ElementArray, {UnsignedShort(1), UnsignedShort(2)}};
    EXPECT_EQ(indices.size(), 4);
}

TEST_F(BufferTest, buffersKeepToThemselves) {
    GL::Buffer first{GL::Buffer::TargetHint::Array, {Byte(1), Byte(2)}};
    GL::Buffer second{GL::Buffer::TargetHint::ElementArray, {Byte(3)}};
    EXPECT_THAT(contents(first), ElementsAre(1, 2));
    EXPECT_THAT(contents(second), ElementsAre(3));
}

TEST_F(BufferTest, label) {
    GL::Buffer buffer;
    EXPECT_STREQ(buffer.label().data(), "");
    EXPECT_EQ(&buffer.setLabel("vertices of the grid"), &buffer);
    const bool supported = GL::Context::current().isExtensionSupported<GL::Extensions::KHR::debug>();
    EXPECT_STREQ(buffer.label().data(), supported ? "vertices of the grid" : "");
    // Neither terminated nor the empty one.
    buffer.setLabel(Containers::StringView{"grids"}.exceptSuffix(1));
    EXPECT_STREQ(buffer.label().data(), supported ? "grid" : "");
    buffer.setLabel({});
    EXPECT_STREQ(buffer.label().data(), "");
}

TEST_F(BufferTest, movedFromObjectsCannotBeLabelled) {
    GL::Buffer buffer;
    const GL::Buffer moved{std::move(buffer)};
    buffer.setLabel("nobody");
    const bool supported = GL::Context::current().isExtensionSupported<GL::Extensions::KHR::debug>();
    EXPECT_EQ(GL::Renderer::error(), supported ? GL::Renderer::Error::InvalidValue : GL::Renderer::Error::NoError);
}

}
