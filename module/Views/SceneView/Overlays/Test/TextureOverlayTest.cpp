#include "Views/SceneView/Overlays/TextureOverlay.h"

#include <Vantrel/Renderer/RendererDebug.h>
#include <gmock/gmock.h>

#include "Views/Test/HoldControl.h"
#include "Views/Test/WindowFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using testing::ElementsAre;

class TextureOverlayTest: public VantrelTest::WindowTest {
protected:
    TextureOverlayTest() { debug.textureOverlay = true; }
    void draw() override { drawTextureOverlay(debug, statistics); }

    const ImGuiWindow& overlay() { return *window("Texture Overlay"); }
    // From the top, that of the level first.
    Vector2 row(int which) {
        const ImGuiStyle& style = ImGui::GetStyle();
        return Vector2{overlay().Pos.x, overlay().Pos.y} + Vector2{style.WindowPadding.x, style.WindowPadding.y} +
            Vector2{8.0f, ImGui::GetFrameHeight() * 1.5f + ImGui::GetFrameHeightWithSpacing() * Float(which)};
    }

    RendererDebug debug;
    TileStackTextureAtlas::Statistics statistics{1, 22, 333, 4, 5, 6, 1234567890123};
};

TEST_F(TextureOverlayTest, isThereWhereItIsSwitchedOn) {
    frame();
    frame();
    ASSERT_TRUE(window("Texture Overlay"));
    EXPECT_FALSE(overlay().HasCloseButton);
    EXPECT_TRUE(overlay().Flags & ImGuiWindowFlags_AlwaysAutoResize);
    debug.textureOverlay = false;
    frame();
    EXPECT_FALSE(window("Texture Overlay"));
}

TEST_F(TextureOverlayTest, staysInTheDisplay) {
    ImGui::GetIO().DisplaySize.y = 350.0f;
    frame();
    frame();
    EXPECT_EQ(overlay().Pos.y + overlay().Size.y, 350.0f);
}

TEST_F(TextureOverlayTest, leavesTheMenuFree) {
    ImGui::GetIO().DisplaySize.y = 250.0f;
    for(int i = 0; i != 3; ++i) frame();
    EXPECT_EQ(overlay().Pos.y, 2.0f * ImGui::GetFrameHeight());
    EXPECT_EQ(overlay().Pos.y + overlay().Size.y, 250.0f);
    EXPECT_TRUE(overlay().ScrollbarY);
}

TEST_F(TextureOverlayTest, whatItSays) {
    frame();
    debug.mipLevel = 7;
    EXPECT_THAT(written(),
        ElementsAre("Texture Overlay", "7 - + mip", "texture atlas", "virtual atlas", "tile feedback",
            "streaming cache", "shadow atlas", "Statistics", "tiles to add:\t\t\t1", "tiles active:\t\t\t22",
            "tiles locked:\t\t\t333", "tiles to remove:\t\t4", "tiles to upload:\t\t5", "cache capacity:\t\t6",
            "compact list size:\t1234567890123"));
}

TEST_F(TextureOverlayTest, eachToggleIsTheSwitchOfItsName) {
    frame();
    frame();
    bool* const switches[]{
        &debug.textureAtlas, &debug.virtualAtlas, &debug.tileFeedback, &debug.streamingCache, &debug.shadowAtlas};
    for(int which = 0; which != 5; ++which) {
        click(row(which + 1));
        for(int other = 0; other != 5; ++other) EXPECT_EQ(*switches[other], other == which) << which;
        click(row(which + 1));
        EXPECT_FALSE(*switches[which]);
    }
}

// By one, and with Ctrl by a hundred.
TEST_F(TextureOverlayTest, levels) {
    frame();
    frame();
    const ImGuiStyle& style = ImGui::GetStyle();
    const Float side = ImGui::GetFrameHeight();
    // Its label is as wide as that of the other items here.
    const Float more = overlay().Pos.x + style.WindowPadding.x + overlay().DC.ItemWidth - side * 0.5f;
    const Vector2 plus{more, row(0).y()}, minus{more - side - style.ItemInnerSpacing.x, row(0).y()};
    click(plus);
    click(plus);
    EXPECT_EQ(debug.mipLevel, 2);
    VantrelTest::holdControl(true);
    click(plus);
    VantrelTest::holdControl(false);
    EXPECT_EQ(debug.mipLevel, 102);
    click(minus);
    EXPECT_EQ(debug.mipLevel, 101);
}

}
