#include "Picture.h"

#include <fstream>

#include <gmock/gmock.h>

#include "Command.h"

using namespace VantrelProof;

namespace {

Picture gray() { return {4, 2, std::vector<std::uint8_t>(4 * 2 * 4, 100)}; }

struct PictureTest: FolderTest {};

TEST_F(PictureTest, equalPicturesDoNotDiffer) {
    const Difference difference = compare(gray(), gray(), 0);
    EXPECT_EQ(difference.fraction, 0.0);
    EXPECT_EQ(difference.largest, 0);
}

TEST_F(PictureTest, pixelsBeyondTheStepCount) {
    Picture other = gray();
    other.pixels[0] += 5;
    other.pixels[6] -= 6;
    other.pixels[31] = 255;
    const Difference difference = compare(gray(), other, 5);
    EXPECT_EQ(difference.fraction, 2.0 / 8);
    EXPECT_EQ(difference.largest, 155);
    EXPECT_EQ(compare(other, gray(), 4).fraction, 3.0 / 8);
    EXPECT_EQ(compare(other, gray(), 155).fraction, 0.0);
}

TEST_F(PictureTest, fileKeepsEveryPixel) {
    Picture picture = gray();
    for(std::size_t i = 0; i != picture.pixels.size(); ++i) picture.pixels[i] = std::uint8_t(i * 7);
    ASSERT_TRUE(writePng(path("picture.png"), picture));
    const std::optional<Picture> read = readPng(path("picture.png"));
    ASSERT_TRUE(read);
    EXPECT_EQ(read->width, 4);
    EXPECT_EQ(read->height, 2);
    EXPECT_EQ(read->pixels, picture.pixels);
}

TEST_F(PictureTest, badFiles) {
    EXPECT_FALSE(readPng(path("missing.png")));
    std::ofstream{path("text.png")} << "text";
    EXPECT_FALSE(readPng(path("text.png")));
    EXPECT_FALSE(writePng(path("no/such/folder.png"), gray()));
}

}
