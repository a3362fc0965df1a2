#include "Renderer/DefaultAssets/DefaultAssets.h"

#include <string>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using namespace Corrade;
using namespace VantrelEngine;
using testing::HasSubstr;

TEST(DefaultAssetsTest, areFoundThroughTheResourceManager) {
    ResourceManager resources;
    resources.addAsset("default", std::make_unique<DefaultAssets>());
    std::string reason;
    for(const char* const file: {"Dynamic.vert", "Lit.frag", "Flat.frag", "MeshVisualizer.frag", "Text.vert",
            "Text.frag", "TileFeedback.frag", "FullScreenTriangle.vert"}) {
        const auto contents = resources.read({"default", file}, 1 << 20, reason);
        ASSERT_TRUE(contents) << file << ": " << reason;
        EXPECT_THAT((std::string{contents->data(), contents->size()}), HasSubstr("void main()")) << file;
    }
}

TEST(DefaultAssetsTest, textsAreThoseOfTheFiles) {
    std::string reason;
    const auto contents = DefaultAssets{}.get("Textures.glsl", 1 << 20, reason);
    ASSERT_TRUE(contents) << reason;
    EXPECT_TRUE(defaultAsset("Textures.glsl") == (Containers::StringView{contents->data(), contents->size()}));
}

TEST(DefaultAssetsTest, whatCannotBeHadSaysWhy) {
    const DefaultAssets files;
    std::string reason;
    EXPECT_FALSE(files.get("missing.frag", 1 << 20, reason));
    EXPECT_EQ(reason, "the engine has no such file");
    const std::size_t size = defaultAsset("Flat.frag").size();
    EXPECT_TRUE(files.get("Flat.frag", size, reason));
    EXPECT_FALSE(files.get("Flat.frag", size - 1, reason));
    EXPECT_EQ(reason, "the file has " + std::to_string(size) + " bytes, more than " + std::to_string(size - 1));
}

} // namespace
