#include "Data/Resources/ImageFile.h"

#include <algorithm>
#include <random>

#include <Corrade/Containers/StridedArrayView.h>
#include <Magnum/Math/Color.h>
#include <Magnum/PixelFormat.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "GlbBuilder.h"
#include "ImageBuilder.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using namespace VantrelEngine::Test;
using testing::HasSubstr;

// Two rows of three, from the top.
const std::vector<unsigned char> Pixels{
    255, 0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 10, 20, 30, 40, 50, 60, 70, 80, 90, 100, 110, 120};

void appendBigWord(std::string& bytes, std::uint32_t word) {
    for(int i = 4; i-- != 0;) bytes += char(word >> 8 * i & 255);
}

// The begin of a PNG file that claims a size.
std::string pngHeader(std::uint32_t width, std::uint32_t height) {
    std::string bytes = "\x89PNG\r\n\x1a\n";
    appendBigWord(bytes, 13);
    bytes += "IHDR";
    appendBigWord(bytes, width);
    appendBigWord(bytes, height);
    bytes += std::string{"\x08\x06\0\0\0", 5};
    appendBigWord(bytes, 0);
    return bytes;
}

std::string reasonOf(const std::string& bytes) {
    std::string reason;
    EXPECT_FALSE(readImage(view(bytes), reason));
    return reason;
}

TEST(ImageFileTest, rowsGoUpwards) {
    for(const std::string& bytes: {pngFile(3, 2, Pixels), tgaFile(3, 2, Pixels), bmpFile(3, 2, Pixels)}) {
        std::string reason;
        const auto image = readImage(view(bytes), reason);
        ASSERT_TRUE(image) << reason;
        EXPECT_EQ(image->format(), PixelFormat::RGBA8Unorm);
        ASSERT_EQ(image->size(), (Vector2i{3, 2}));
        const auto pixels = image->pixels<Color4ub>();
        EXPECT_EQ(pixels[0][0], (Color4ub{10, 20, 30, 40}));
        EXPECT_EQ(pixels[0][2], (Color4ub{90, 100, 110, 120}));
        EXPECT_EQ(pixels[1][0], (Color4ub{255, 0, 0, 255}));
        EXPECT_EQ(pixels[1][2], (Color4ub{0, 0, 255, 255}));
    }
}

TEST(ImageFileTest, jpegIsOpaqueAndClose) {
    std::vector<unsigned char> pixels;
    for(int i = 0; i != 16 * 16; ++i) pixels.insert(pixels.end(), {200, 100, 50, 7});
    const std::string bytes = jpegFile(16, 16, pixels);
    std::string reason;
    const auto image = readImage(view(bytes), reason);
    ASSERT_TRUE(image) << reason;
    const Color4ub pixel = image->pixels<Color4ub>()[5][5];
    EXPECT_NEAR(pixel.r(), 200, 4);
    EXPECT_NEAR(pixel.g(), 100, 4);
    EXPECT_NEAR(pixel.b(), 50, 4);
    EXPECT_EQ(pixel.a(), 255);
}

TEST(ImageFileTest, highDynamicRange) {
    const std::string bytes = hdrFile(1, 2, {8, 4, 2, 1, 0.5f, 0.25f, 0, 1});
    std::string reason;
    const auto image = readImage(view(bytes), reason);
    ASSERT_TRUE(image) << reason;
    EXPECT_EQ(image->format(), PixelFormat::RGBA32F);
    EXPECT_EQ(image->pixels<Color4>()[1][0], (Color4{8, 4, 2, 1}));
    EXPECT_EQ(image->pixels<Color4>()[0][0], (Color4{0.5f, 0.25f, 0, 1}));
}

TEST(ImageFileTest, imagesThatAreNone) {
    EXPECT_THAT(reasonOf(""), HasSubstr("not a PNG"));
    EXPECT_THAT(reasonOf("GIF89a and more"), HasSubstr("not a PNG"));
    EXPECT_THAT(reasonOf(pngFile(3, 2, Pixels).substr(0, 20)), HasSubstr("not a PNG"));
    EXPECT_THAT(reasonOf(pngFile(3, 2, Pixels).substr(0, 40)), HasSubstr("damaged"));
    for(std::size_t size = 0; size != pngFile(3, 2, Pixels).size() - 12; ++size)
        EXPECT_FALSE(reasonOf(pngFile(3, 2, Pixels).substr(0, size)).empty()) << size;
}

// Nothing of that size can have been decoded: there is no data.
TEST(ImageFileTest, tooLargeOnes) {
    EXPECT_THAT(reasonOf(pngHeader(60000, 60000)), HasSubstr("larger than 8192 x 8192"));
    EXPECT_THAT(reasonOf(pngHeader(8193, 1)), HasSubstr("larger than 8192 x 8192"));
    EXPECT_THAT(reasonOf(pngHeader(0x7fffffff, 0x7fffffff)), HasSubstr("larger than 8192 x 8192"));
    EXPECT_THAT(reasonOf(pngHeader(8192, 8192)), HasSubstr("damaged"));
    // 8192 x 2049 of 16 bytes are more than 256 MB, 8192 x 2048 are not.
    const std::string hdr = "#?RADIANCE\nFORMAT=32-bit_rle_rgbe\n\n";
    EXPECT_EQ(reasonOf(hdr + "-Y 2049 +X 8192\n"), "the image has 8192 x 2049 pixels, too many");
}

// What the decoder would overflow its memory with.
TEST(ImageFileTest, jpegTables) {
    const std::string good = jpegFile(3, 2, Pixels);
    const std::size_t table = good.find("\xff\xc4"), scan = good.find("\xff\xda");
    ASSERT_NE(table, good.npos);
    ASSERT_NE(scan, good.npos);
    // 300 symbols, which all are there.
    const std::string tooMany =
        std::string{"\xff\xc4\x01\x3f\0", 5} + std::string(14, '\0') + "\x96\x96" + std::string(300, 'x');
    EXPECT_EQ(reasonOf(good.substr(0, 2) + tooMany + good.substr(2)), "a Huffman table of the JPEG file is damaged");
    std::string wrongTable = good;
    wrongTable[table + 4] = '\x04';
    EXPECT_EQ(reasonOf(wrongTable), "a Huffman table of the JPEG file is damaged");
    std::string longTable = good;
    longTable[table + 2] = '\x7f';
    EXPECT_EQ(reasonOf(longTable), "a segment of the JPEG file is damaged");
    // Another table than those that are there, and none of them at all.
    for(const char tables: {'\x30', '\x03', '\x33'}) {
        std::string otherTable = good;
        otherTable[scan + 6] = tables;
        EXPECT_EQ(reasonOf(otherTable), "a Huffman table of the JPEG file is missing");
    }
    std::string noTables = good;
    noTables[table + 1] = '\xfe';
    EXPECT_EQ(reasonOf(noTables), "a Huffman table of the JPEG file is missing");
    // A table behind the first scan counts as well.
    const std::string second = good.substr(0, good.size() - 2) + tooMany + good.substr(good.size() - 2);
    EXPECT_EQ(reasonOf(second), "a Huffman table of the JPEG file is damaged");
    // Elsewhere the same bytes are no table.
    std::string comment = good;
    comment.insert(2, std::string{"\xff\xfe\0\x08\xff\xc4\0\x13\xff\xff", 10});
    std::string reason;
    EXPECT_TRUE(readImage(view(comment), reason)) << reason;
}

TEST(ImageFileTest, truncatedTga) {
    std::vector<unsigned char> header(18);
    header[2] = 2;
    header[12] = header[14] = 4;
    header[16] = 32;
    const std::string good = std::string(header.begin(), header.end()) + std::string(64, 'x');
    std::string reason;
    EXPECT_TRUE(readImage(view(good), reason)) << reason;
    EXPECT_EQ(reasonOf(good.substr(0, good.size() - 1)), "the TGA file is truncated");
}

// What is not there would be made up by the decoder.
TEST(ImageFileTest, truncatedPackedTgaAndBmp) {
    std::vector<unsigned char> runs(9 * 4 * 4, 7);
    std::copy(Pixels.begin(), Pixels.end(), runs.begin());
    const std::string tga = tgaFile(9, 4, runs), bmp = bmpFile(3, 2, Pixels);
    ASSERT_LT(tga.size(), 18 + runs.size()) << "not packed";
    std::string reason;
    EXPECT_TRUE(readImage(view(tga), reason)) << reason;
    for(std::size_t size = 18; size != tga.size(); ++size)
        EXPECT_EQ(reasonOf(tga.substr(0, size)), "the TGA file is truncated") << size;
    EXPECT_TRUE(readImage(view(bmp), reason)) << reason;
    for(std::size_t size = 2; size != bmp.size(); ++size)
        EXPECT_EQ(reasonOf(bmp.substr(0, size)), "the BMP file is truncated") << size;
}

// Two pixels of palettes: 24 bits an entry there, four bits a pixel and rows that go downwards here.
TEST(ImageFileTest, truncatedPalettes) {
    const std::string tga =
        std::string{"\0\1\1\0\0\2\0\x18\0\0\0\0\2\0\1\0\x08\0", 18} + "abcdef" + std::string{"\0\1", 2};
    std::string bmp{"BM\0\0\0\0\0\0\0\0\x3e\0\0\0\x28\0\0\0\2\0\0\0\xff\xff\xff\xff\1\0\4\0", 30};
    bmp += std::string(16, '\0') + std::string{"\2\0\0\0\0\0\0\0", 8} + std::string{"abc\0def\0", 8} + '\x01';
    std::string reason;
    EXPECT_TRUE(readImage(view(bmp), reason)) << reason;
    EXPECT_EQ(reasonOf(bmp.substr(0, bmp.size() - 1)), "the BMP file is truncated");
    EXPECT_TRUE(readImage(view(tga), reason)) << reason;
    EXPECT_EQ(reasonOf(tga.substr(0, tga.size() - 1)), "the TGA file is truncated");
}

// What the decoder would read for ever: rows of 8 pixels and more are packed.
TEST(ImageFileTest, truncatedHdr) {
    for(const int width: {3, 16}) {
        std::vector<float> pixels;
        for(int i = 0; i != width * 2 * 4; ++i) pixels.push_back(float(i / 4 % 5 + 1));
        const std::string good = hdrFile(width, 2, pixels);
        std::string reason;
        EXPECT_TRUE(readImage(view(good), reason)) << reason;
        const std::size_t data = good.find('\n', good.find("-Y")) + 1;
        for(std::size_t size = data; size != good.size(); ++size)
            EXPECT_EQ(reasonOf(good.substr(0, size)), "the HDR file is truncated") << width << ' ' << size;
    }
}

TEST(ImageFileTest, damagedAtRandom) {
    const std::string files[]{pngFile(3, 2, Pixels), jpegFile(3, 2, Pixels), tgaFile(3, 2, Pixels),
        bmpFile(3, 2, Pixels), hdrFile(9, 2, std::vector<float>(72, 0.5f))};
    std::mt19937 random{3};
    int readable = 0, refused = 0;
    for(int i = 0; i != 20000; ++i) {
        std::string bytes = files[i % 5];
        // What makes an image of a few bytes huge costs time, not safety: the begin stays mostly.
        for(unsigned flips = 1 + random() % 3; flips != 0; --flips)
            bytes[(random() % 4 ? bytes.size() / 2 : 0) + random() % (bytes.size() / 2)] ^= char(1 << random() % 8);
        if(random() % 4 == 0) bytes.resize(random() % bytes.size());
        std::string reason;
        const auto image = readImage(view(bytes), reason);
        ASSERT_NE(bool(image), !reason.empty());
        ++(image ? readable : refused);
        if(image) {
            EXPECT_LE(image->data().size(), MaximumImageSize);
            EXPECT_EQ(image->data().size(), std::size_t(image->size().product()) * image->pixelSize());
        }
    }
    EXPECT_GT(readable, 500);
    EXPECT_GT(refused, 500);
}

}
