#include "Import/ModelPictureReader.h"

#include <atomic>
#include <chrono>
#include <filesystem>
#include <thread>
#include <vector>

#include <VantrelHost/ModelPicture.h>
#include <gtest/gtest.h>

#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

using namespace Magnum;

constexpr Int Edge = 8;

class ModelPictureReaderTest: public testing::Test {
protected:
    ModelPictureReaderTest() { setenv("XDG_DATA_HOME", folder.path("data").data(), 1); }

    std::vector<Color4ub> read(const char* source) {
        folder.write("model.glb", source);
        return ModelPictureReader{FAKE_CONVERTER, folder.path("kept")}(folder.path("model.glb"), Edge, isGivenUp);
    }

    const VantrelTest::TestFolder folder;
    std::atomic<bool> isGivenUp{false};
};

TEST_F(ModelPictureReaderTest, AFileThatWasDrawnBeforeIsNotConvertedAgain) {
    EXPECT_TRUE(read("crash").empty());
    const std::vector<Color4ub> kept(std::size_t(Edge * Edge), Color4ub{9, 8, 7, 255});
    keepPicture(folder.path("kept"), modelContent(folder.path("model.glb")), Edge, kept);
    EXPECT_EQ(read("crash"), kept);
    EXPECT_TRUE(read("crash ").empty()) << "this is another file";
}

TEST_F(ModelPictureReaderTest, WhatTheConverterCannotReadHasNoPicture) {
    for(const char* const source: {"status 3", "say error no", "say done", "document {}", "document [", ""})
        EXPECT_TRUE(read(source).empty()) << source;
    EXPECT_TRUE((ModelPictureReader{"/missing", ""}(folder.path("model.glb"), Edge, isGivenUp).empty()));
    EXPECT_TRUE((ModelPictureReader{FAKE_CONVERTER, ""}(folder.path("missing.glb"), Edge, isGivenUp).empty()));
}

// There is nothing to be imported in it.
TEST_F(ModelPictureReaderTest, AMeshOfAProjectIsDrawnAsItIs) {
    std::filesystem::copy_file(PROJECTS "/Showcase/basin.glb", folder.path("basin.glb"));
    const auto picture = [&](const char* name) {
        return ModelPictureReader{CONVERTER, ""}(folder.path(name), Edge, isGivenUp);
    };
    const std::vector<Color4ub> basin = picture("basin.glb");
    ASSERT_EQ(basin.size(), std::size_t(Edge * Edge));
    EXPECT_GT(basin[Edge * Edge / 2 + Edge / 2].a(), 0);
    std::filesystem::resize_file(folder.path("basin.glb"), 200);
    EXPECT_TRUE(picture("basin.glb").empty());
}

TEST_F(ModelPictureReaderTest, OneThatHangsIsGivenUp) {
    const auto begin = std::chrono::steady_clock::now();
    std::thread other{[this] {
        std::this_thread::sleep_for(std::chrono::milliseconds{200});
        isGivenUp = true;
    }};
    EXPECT_TRUE(read("hang").empty());
    other.join();
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds{10});
}

} // namespace

} // namespace VantrelEngine
