#include "Views/SceneView/ObjectIdReadback.h"

#include <algorithm>
#include <random>
#include <set>

#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/GL/Framebuffer.h>
#include <Magnum/GL/Renderer.h>
#include <Magnum/GL/Texture.h>
#include <Magnum/GL/TextureFormat.h>
#include <Magnum/Image.h>
#include <Magnum/Math/Color.h>
#include <Magnum/PixelFormat.h>
#include <Vantrel/EngineData/DynamicSceneGraph.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "Support/OffscreenContext.h"
#include "Views/SceneView/ViewFrame.h"

namespace {

using namespace Corrade;
using namespace Magnum;
using namespace VantrelEngine;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::KilledBySignal;

constexpr char Blue = 7;
constexpr char Opaque = '\xff';

struct Pixels {
    Pixels& operator<<(Id id) {
        for(const char byte: {char(id & 0xff), char(id >> 8), Blue, Opaque}) bytes.push_back(byte);
        return *this;
    }
    Containers::ArrayView<const char> view() const { return {bytes.data(), bytes.size()}; }
    std::vector<char> bytes;
};

// A scene with objects 1 to count.
struct Objects: DynamicSceneGraph {
    explicit Objects(std::size_t count): DynamicSceneGraph{count + 1, 0, 0} {
        for(std::size_t i = 0; i != count; ++i) addObject(RootObject);
    }
};

TEST(ObjectsNamedByTest, eachOnceInTheOrderOfThePixels) {
    const Objects scene{300};
    const Pixels pixels = Pixels{} << 3 << 3 << 300 << 3 << 1 << 44 << 1 << 300;
    EXPECT_THAT(objectsNamedBy(pixels.view(), scene), ElementsAre(3, 300, 1, 44));
}

TEST(ObjectsNamedByTest, nobodyIsLeftOutAndTheRootIsNot) {
    Objects scene{5};
    scene.deleteObjects(4);
    const Pixels pixels = Pixels{} << 4 << NoObject << 5 << 6 << 0 << 4 << 2;
    EXPECT_THAT(objectsNamedBy(pixels.view(), scene), ElementsAre(5, 0, 2));
    EXPECT_THAT(objectsNamedBy({}, scene), IsEmpty());
}

// As a search through a list that grows finds them.
TEST(ObjectsNamedByTest, manyInTheOrderOfASearch) {
    const Objects scene{5000};
    std::mt19937 random{5};
    std::uniform_int_distribution<int> ids{0, 6000};
    Pixels pixels;
    std::vector<Id> expected;
    for(int i = 0; i != 20000; ++i) {
        const Id id = Id(ids(random));
        pixels << id;
        if(id <= 5000 && std::find(expected.begin(), expected.end(), id) == expected.end()) expected.push_back(id);
    }
    EXPECT_EQ(objectsNamedBy(pixels.view(), scene), expected);
}

TEST(ObjectsNamedByDeathTest, bytesThatAreNoWholePixels) {
    const Objects scene{1};
    const char bytes[7]{};
    EXPECT_EXIT(objectsNamedBy(Containers::arrayView(bytes), scene), KilledBySignal(SIGABRT),
        "^Containers::arrayCast\\(\\): can't reinterpret 7 1-byte items into a 4-byte type\n");
}

TEST(PixelBelowTest, windowDownwardsFramebufferUpwards) {
    const ViewFrame frame{{10, 20}, {100, 50}, {100, 50}, Vector2{1.0f}};
    const struct {
        Vector2i point, pixel;
    } cases[]{
        {{10, 20}, {0, 49}}, {{109, 69}, {99, 0}}, {{60, 45}, {50, 24}}, {{9, 70}, {-1, -1}}, {{10, 71}, {0, -2}}};
    for(const auto& each: cases)
        EXPECT_EQ(pixelBelow(each.point, frame), Range2Di::fromSize(each.pixel, Vector2i{1})) << each.point.x();
}

TEST(PixelBelowTest, manyOrFewPixelsAPoint) {
    const ViewFrame twice{{10, 20}, {100, 50}, {200, 100}, Vector2{2.0f}};
    EXPECT_EQ(pixelBelow({60, 45}, twice).min(), (Vector2i{100, 49}));
    const ViewFrame wide{{0, 0}, {100, 50}, {150, 25}, {1.5f, 0.5f}};
    EXPECT_EQ(pixelBelow({3, 0}, wide).min(), (Vector2i{4, 24}));
    EXPECT_EQ(pixelBelow({3, 3}, wide).min(), (Vector2i{4, 22}));
}

// Where the UI says that there is no mouse.
TEST(PixelBelowTest, nowhere) {
    const ViewFrame frame{{10, 20}, {100, 50}, {200, 100}, Vector2{2.0f}};
    for(const Int far: {-2147483647, 2147483647}) {
        const Range2Di pixel = pixelBelow(Vector2i{far}, frame);
        EXPECT_FALSE(Math::intersects(pixel, {{}, frame.framebufferSize}));
        EXPECT_EQ(pixel.size(), Vector2i{1});
    }
}

// Ids 1 to 12 in four columns and three rows, from below.
class ReadObjectIdsTest: public VantrelTest::GlTest {
protected:
    ReadObjectIdsTest() {
        texture.setStorage(1, GL::TextureFormat::RGB8, Size);
        framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{ObjectIdAttachment}, texture, 0)
            .mapForDraw(GL::Framebuffer::ColorAttachment{ObjectIdAttachment});
        GL::Renderer::enable(GL::Renderer::Feature::ScissorTest);
        for(Int y = 0; y != Size.y(); ++y)
            for(Int x = 0; x != Size.x(); ++x) {
                GL::Renderer::setScissor(Range2Di::fromSize({x, y}, Vector2i{1}));
                GL::Renderer::setClearColor(Color4{Float(1 + x + y * Size.x()) / 255.0f, 0.0f, 0.0f, 1.0f});
                framebuffer.clear(GL::FramebufferClear::Color);
            }
        GL::Renderer::disable(GL::Renderer::Feature::ScissorTest);
    }
    std::vector<Id> read(const Range2Di& rectangle) { return readObjectIds(framebuffer, rectangle, scene); }

    static constexpr Vector2i Size{4, 3};
    GL::Texture2D texture;
    GL::Framebuffer framebuffer{{{}, Size}};
    Objects scene{20};
};

TEST_F(ReadObjectIdsTest, rowsFromBelow) {
    EXPECT_THAT(read({{}, Size}), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12));
    EXPECT_THAT(read({{1, 1}, {3, 3}}), ElementsAre(6, 7, 10, 11));
    EXPECT_THAT(read({{2, 1}, {3, 2}}), ElementsAre(7));
}

TEST_F(ReadObjectIdsTest, whatIsOutsideNamesNobody) {
    EXPECT_THAT(read({{-5, -5}, {1, 1}}), ElementsAre(1));
    EXPECT_THAT(read({{3, 2}, {300, 200}}), ElementsAre(12));
    for(const Range2Di& outside: {Range2Di{{-1, 0}, {0, 1}}, {{0, 3}, {1, 4}}, {{4, 0}, {5, 1}}, {{0, -9}, {1, 0}}})
        EXPECT_THAT(read(outside), IsEmpty()) << outside.left() << ' ' << outside.bottom();
}

TEST_F(ReadObjectIdsTest, noPixelsNameNobody) {
    EXPECT_THAT(read({{1, 1}, {1, 3}}), IsEmpty());
    EXPECT_THAT(read({{1, 1}, {3, 1}}), IsEmpty());
}

TEST_F(ReadObjectIdsTest, thePictureIsWhatIsReadNext) {
    GL::Texture2D picture;
    picture.setStorage(1, GL::TextureFormat::RGBA8, Size);
    framebuffer.attachTexture(GL::Framebuffer::ColorAttachment{PictureAttachment}, picture, 0)
        .mapForDraw(GL::Framebuffer::ColorAttachment{PictureAttachment});
    GL::Renderer::setClearColor(Color4{1.0f, 1.0f});
    framebuffer.clear(GL::FramebufferClear::Color);
    read({{}, Size});
    const Image2D image = framebuffer.read({{}, Vector2i{1}}, Image2D{PixelFormat::RGBA8Unorm});
    EXPECT_EQ(image.pixels<Color4ub>()[0][0], (Color4ub{255, 255, 255, 255}));
}

} // namespace
