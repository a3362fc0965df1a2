#include <atomic>
#include <chrono>
#include <string>
#include <thread>
#include <vector>

#include <Magnum/GL/Context.h>
#include <Magnum/GL/OpenGL.h>
#include <Magnum/Math/Color.h>
#include <gtest/gtest.h>

#include "Support/OffscreenContext.h"
#include "Support/TestFolder.h"
#include "VantrelHost/FilePictures.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;

// A picture of one colour, 4 by 4 pixels; blue, green, red.
std::string tga(const std::string& color) {
    std::string file{"\0\0\2\0\0\0\0\0\0\0\0\0\4\0\4\0\x18\0", 18};
    for(int i = 0; i != 16; ++i) file += color;
    return file;
}

class FilePicturesTest: public VantrelTest::GlTest {
protected:
    // Asks in each frame, as a panel does.
    std::optional<Thumbnail> wait(FilePictures& pictures, const std::string& path) {
        for(int i = 0; i != 10 && !pictures.ask(path); ++i) pictures.update(true);
        return pictures.ask(path);
    }
    // In the middle of it.
    static Color4ub colorOf(const Thumbnail& thumbnail) {
        Int size = 0;
        glBindTexture(GL_TEXTURE_2D, thumbnail.texture);
        glGetTexLevelParameteriv(GL_TEXTURE_2D, 0, GL_TEXTURE_WIDTH, &size);
        std::vector<Color4ub> pixels(std::size_t(size * size));
        glGetTexImage(GL_TEXTURE_2D, 0, GL_RGBA, GL_UNSIGNED_BYTE, pixels.data());
        GL::Context::current().resetState();
        const Vector2i middle{thumbnail.part.center() * Float(size)};
        return pixels[std::size_t(middle.y() * size + middle.x())];
    }

    VantrelTest::TestFolder folder;
};

TEST_F(FilePicturesTest, showTheFile) {
    folder.write("red.tga", tga({"\0\0\xff", 3}));
    folder.write("green.tga", tga({"\0\xff\0", 3}));
    FilePictures pictures{16, 4};
    EXPECT_FALSE(pictures.ask(folder.path("red.tga")));
    EXPECT_TRUE(pictures.isBusy());
    EXPECT_TRUE(pictures.update(true));
    ASSERT_TRUE(pictures.ask(folder.path("red.tga")));
    EXPECT_FALSE(pictures.isBusy());
    EXPECT_EQ(colorOf(*pictures.ask(folder.path("red.tga"))), (Color4ub{255, 0, 0, 255}));
    ASSERT_TRUE(wait(pictures, folder.path("green.tga")));
    EXPECT_EQ(colorOf(*pictures.ask(folder.path("green.tga"))), (Color4ub{0, 255, 0, 255}));
    EXPECT_EQ(colorOf(*pictures.ask(folder.path("red.tga"))), (Color4ub{255, 0, 0, 255}));
}

TEST_F(FilePicturesTest, areReadBesideTheFrames) {
    folder.write("red.tga", tga({"\0\0\xff", 3}));
    FilePictures pictures{16, 4};
    bool isThere = false;
    for(int i = 0; i != 2000 && !isThere; ++i) {
        isThere = bool(pictures.ask(folder.path("red.tga")));
        pictures.update(false);
        std::this_thread::sleep_for(std::chrono::milliseconds{1});
    }
    EXPECT_TRUE(isThere);
}

TEST_F(FilePicturesTest, whatHasNoneIsTriedOnce) {
    folder.write("broken.png", "no picture");
    folder.write("empty.png", "");
    FilePictures pictures{16, 4};
    for(const char* const name: {"broken.png", "empty.png", "missing.png"}) {
        EXPECT_FALSE(wait(pictures, folder.path(name))) << name;
        EXPECT_FALSE(pictures.isBusy()) << name;
    }
}

TEST_F(FilePicturesTest, thoseThatWereAskedForLongestAgoGo) {
    FilePictures pictures{16, 4};
    for(int i = 0; i != 9; ++i) {
        folder.write(std::to_string(i) + ".tga", tga({char(i), char(20 * i), char(255 - i)}));
        ASSERT_TRUE(wait(pictures, folder.path(std::to_string(i) + ".tga"))) << i;
        // The first one is seen all the time.
        ASSERT_TRUE(pictures.ask(folder.path("0.tga"))) << i;
        EXPECT_EQ(colorOf(*pictures.ask(folder.path("0.tga"))), (Color4ub{255, 0, 0, 255})) << i;
    }
    EXPECT_EQ(colorOf(*pictures.ask(folder.path("8.tga"))), (Color4ub{247, 160, 8, 255}));
    EXPECT_FALSE(pictures.ask(folder.path("2.tga")));
}

TEST_F(FilePicturesTest, ofMoreThanThereIsRoomForTheFirstStay) {
    FilePictures pictures{16, 2};
    for(int i = 0; i != 3; ++i) folder.write(std::to_string(i) + ".tga", tga({"\0\0\xff", 3}));
    const auto count = [&] {
        int there = 0;
        for(int i = 0; i != 3; ++i) there += bool(pictures.ask(folder.path(std::to_string(i) + ".tga")));
        return there;
    };
    for(int frame = 0; frame != 10; ++frame) {
        count();
        pictures.update(true);
    }
    EXPECT_EQ(count(), 2);
    EXPECT_FALSE(pictures.isBusy());
}

TEST_F(FilePicturesTest, areShownAsTheyWereUntilTheyAreReadAgain) {
    folder.write("a.tga", tga({"\0\0\xff", 3}));
    const std::string path = folder.path("a.tga");
    FilePictures pictures{16, 4};
    ASSERT_TRUE(wait(pictures, path));
    folder.write("a.tga", tga({"\xff\0\0", 3}));
    pictures.update(true);
    EXPECT_EQ(colorOf(*pictures.ask(path)), (Color4ub{255, 0, 0, 255}));
    pictures.forget();
    ASSERT_TRUE(pictures.ask(path));
    EXPECT_EQ(colorOf(*pictures.ask(path)).r(), 255);
    EXPECT_TRUE(pictures.isBusy());
    EXPECT_TRUE(pictures.update(true));
    EXPECT_EQ(colorOf(*pictures.ask(path)).b(), 255);
    // One that is no picture any more has none.
    folder.write("a.tga", "damaged");
    pictures.forget();
    ASSERT_TRUE(pictures.ask(path));
    EXPECT_TRUE(pictures.update(true));
    EXPECT_FALSE(pictures.ask(path));
    EXPECT_FALSE(pictures.isBusy());
}

TEST_F(FilePicturesTest, aReaderOfOthersIsGivenUpWithThem) {
    const auto begin = std::chrono::steady_clock::now();
    std::atomic<int> count{0};
    {
        FilePictures pictures{4, 4, [&](const std::string& path, Int edge, const std::atomic<bool>& isGivenUp) {
                                  EXPECT_EQ(path, "model");
                                  EXPECT_EQ(edge, 4);
                                  ++count;
                                  while(
                                      !isGivenUp && std::chrono::steady_clock::now() - begin < std::chrono::seconds{20})
                                      std::this_thread::sleep_for(std::chrono::milliseconds{1});
                                  return std::vector<Color4ub>{};
                              }};
        pictures.ask("model");
        EXPECT_FALSE(pictures.update(false));
        while(!count) std::this_thread::sleep_for(std::chrono::milliseconds{1});
    }
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds{10});
}

}
