#include <Corrade/Containers/Array.h>
#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/Image.h>
#include <Magnum/ImageView.h>
#include <Magnum/Math/Color.h>
#include <Magnum/PixelFormat.h>
#include <Magnum/PixelStorage.h>

#include "Expect.h"

using namespace Corrade;
using namespace Magnum;

namespace {

typedef Containers::Array<char> Bytes;

TEST(PixelStorageTest, defaultsAndSetters) {
    PixelStorage storage;
    EXPECT_EQ(storage.alignment(), 4);
    EXPECT_EQ(storage.rowLength(), 0);
    EXPECT_EQ(storage.skip(), Vector3i{});
    EXPECT_EQ(storage, PixelStorage{}.setAlignment(4));
    EXPECT_NE(storage, PixelStorage{}.setAlignment(1));
    EXPECT_NE(storage, PixelStorage{}.setRowLength(7));
    EXPECT_NE(storage, PixelStorage{}.setSkip({0, 1, 0}));
    storage.setAlignment(8).setRowLength(5).setSkip({1, 2, 3});
    EXPECT_EQ(storage.alignment(), 8);
    EXPECT_EQ(storage.rowLength(), 5);
    EXPECT_EQ(storage.skip(), (Vector3i{1, 2, 3}));
}

TEST(ImageTest, placeholder) {
    Image2D image{PixelFormat::RGB8Unorm};
    EXPECT_EQ(image.format(), PixelFormat::RGB8Unorm);
    EXPECT_EQ(image.size(), Vector2i{});
    EXPECT_EQ(image.pixelSize(), 3u);
    EXPECT_EQ(image.data().size(), 0u);
    EXPECT_EQ(image.storage(), PixelStorage{});
}

TEST(ImageTest, rowsArePaddedToFourBytes) {
    Image2D image{PixelFormat::RGB8Unorm, {3, 2}, Bytes{ValueInit, 24}};
    EXPECT_EQ(image.size(), (Vector2i{3, 2}));
    EXPECT_EQ(image.data().size(), 24u);
    const auto pixels = image.pixels();
    EXPECT_EQ(pixels.size()[0], 2u);
    EXPECT_EQ(pixels.size()[1], 3u);
    EXPECT_EQ(pixels.size()[2], 3u);
    EXPECT_EQ(pixels.stride()[0], 12);
    EXPECT_EQ(pixels.stride()[1], 3);
    EXPECT_EQ(pixels.stride()[2], 1);
    image.pixels<Color3ub>()[1][2] = Color3ub{7, 8, 9};
    EXPECT_EQ(image.data()[12 + 6], 7);
    EXPECT_EQ(image.data()[12 + 8], 9);
    const Image2D& constant = image;
    EXPECT_EQ(constant.pixels<Color3ub>()[1][2], (Color3ub{7, 8, 9}));
    EXPECT_EQ(constant.pixels()[1][2][1], 8);
}

TEST(ImageTest, dataTooSmall) {
    EXPECT_ABORT(Image2D(PixelFormat::RGB8Unorm, {3, 2}, Bytes(ValueInit, 23)),
        "Image: data too small, got 23 but expected at least 24 bytes");
    EXPECT_ABORT(Image2D(PixelStorage{}.setAlignment(1), PixelFormat::RGB8Unorm, {3, 2}, Bytes(ValueInit, 17)),
        "Image: data too small, got 17 but expected at least 18 bytes");
    EXPECT_ABORT(
        Image2D(PixelFormat::R8Unorm, {3, 1}, Bytes()), "Image: data too small, got 0 but expected at least 4 bytes");
    EXPECT_EQ(Image2D(PixelFormat::R8Unorm, {3, 0}, Bytes()).data().size(), 0u);
    EXPECT_EQ(Image2D(PixelFormat::R8Unorm, {0, 3}, Bytes()).data().size(), 0u);
}

TEST(ImageTest, pixelTypeOfAnotherSize) {
    Image2D image{PixelFormat::RGB8Unorm, {3, 2}, Bytes{ValueInit, 24}};
    EXPECT_ABORT(image.pixels<Color4ub>(), "Containers::arrayCast(): can't fit a 4-byte type into a stride of 3");
    EXPECT_ABORT(image.pixels<UnsignedByte>(),
        "Containers::arrayCast(): last dimension needs to have byte size equal to new type size in order to be "
        "flattened, expected 1 but got 3");
}

TEST(ImageTest, release) {
    Image2D image{PixelFormat::R8Unorm, {3, 2}, Bytes{ValueInit, 10}};
    const char* const data = image.data().data();
    const Bytes released = image.release();
    EXPECT_EQ(released.data(), data);
    EXPECT_EQ(released.size(), 10u);
    EXPECT_EQ(image.size(), Vector2i{});
    EXPECT_EQ(image.data().size(), 0u);
    EXPECT_EQ(image.format(), PixelFormat::R8Unorm);
}

TEST(ImageTest, move) {
    Image2D a{PixelFormat::R8Unorm, {3, 2}, Bytes{ValueInit, 8}};
    const char* const data = a.data().data();
    Image2D b{Utility::move(a)};
    EXPECT_EQ(b.data().data(), data);
    EXPECT_EQ(b.size(), (Vector2i{3, 2}));
    EXPECT_EQ(a.size(), Vector2i{});
    EXPECT_EQ(a.data().size(), 0u);
    Image2D c{PixelStorage{}.setAlignment(1), PixelFormat::RGBA8Unorm};
    c = Utility::move(b);
    EXPECT_EQ(c.data().data(), data);
    EXPECT_EQ(c.format(), PixelFormat::R8Unorm);
    EXPECT_EQ(c.pixelSize(), 1u);
    EXPECT_EQ(c.storage().alignment(), 4);
    EXPECT_FALSE(std::is_copy_constructible<Image2D>::value);
}

TEST(ImageViewTest, conversions) {
    Image2D image{PixelStorage{}.setAlignment(1), PixelFormat::RGB8Unorm, {3, 2}, Bytes{ValueInit, 20}};
    const MutableImageView2D writable = image;
    const ImageView2D view = image;
    const ImageView2D viewOfView = writable;
    for(const ImageView2D& i: {view, viewOfView}) {
        EXPECT_EQ(i.data().data(), image.data().data());
        EXPECT_EQ(i.data().size(), 20u);
        EXPECT_EQ(i.format(), PixelFormat::RGB8Unorm);
        EXPECT_EQ(i.pixelSize(), 3u);
        EXPECT_EQ(i.size(), (Vector2i{3, 2}));
        EXPECT_EQ(i.storage().alignment(), 1);
    }
    writable.pixels<Color3ub>()[1][0] = Color3ub{1, 2, 3};
    EXPECT_EQ(view.pixels<Color3ub>()[1][0], (Color3ub{1, 2, 3}));
    EXPECT_EQ(image.data()[9], 1);
    EXPECT_FALSE((std::is_convertible<ImageView2D, MutableImageView2D>::value));
}

struct Layout {
    Vector2i size;
    Int alignment, rowLength;
    Vector3i skip;
    std::size_t offset, rowStride, dataSize;
};

// RGB8, so that alignment matters.
const Layout Layouts[]{
    {{3, 2}, 1, 0, {0, 0, 0}, 0, 9, 18},
    {{3, 2}, 4, 0, {0, 0, 0}, 0, 12, 24},
    {{3, 2}, 8, 0, {0, 0, 0}, 0, 16, 32},
    {{3, 2}, 4, 7, {0, 0, 0}, 0, 24, 48},
    {{3, 2}, 4, 0, {1, 0, 0}, 3, 12, 27},
    {{3, 2}, 4, 0, {0, 2, 0}, 24, 12, 48},
    {{3, 2}, 4, 0, {2, 1, 0}, 18, 12, 36},
    {{3, 2}, 1, 7, {2, 1, 0}, 27, 21, 63},
    {{3, 2}, 4, 7, {1, 0, 0}, 3, 24, 48},
    {{5, 3}, 4, 0, {0, 0, 1}, 0, 16, 96},
    {{5, 3}, 4, 0, {2, 1, 1}, 22, 16, 96},
};

TEST(ImageViewTest, pixelStorage) {
    const char data[200]{};
    for(const Layout& layout: Layouts) {
        SCOPED_TRACE(SceneTest::printed(layout.size) + " rows of " + std::to_string(layout.rowStride));
        const PixelStorage storage =
            PixelStorage{}.setAlignment(layout.alignment).setRowLength(layout.rowLength).setSkip(layout.skip);
        const ImageView2D view{
            storage, PixelFormat::RGB8Unorm, layout.size, Containers::arrayView(data).prefix(layout.dataSize)};
        EXPECT_EQ(std::size_t(static_cast<const char*>(view.pixels().data()) - data), layout.offset);
        EXPECT_EQ(std::size_t(view.pixels().stride()[0]), layout.rowStride);
        EXPECT_ABORT(ImageView2D(storage, PixelFormat::RGB8Unorm, layout.size,
                         Containers::arrayView(data).prefix(layout.dataSize - 1)),
            "ImageView: data too small, got " + std::to_string(layout.dataSize - 1) + " but expected at least " +
                std::to_string(layout.dataSize) + " bytes");
    }
}

}
