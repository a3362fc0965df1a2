#include "Style/IconFont.h"

#include <algorithm>

#include <gtest/gtest.h>
#include <imgui.h>

#include "Style/Fonts.h"
#include "Style/IconShapes.h"

namespace VantrelEngine {

namespace {

// The code points of the scene view's toolbar.
constexpr ImWchar Icons[]{0xf03d, 0xf0b2, 0xf1b2, 0xf2f1, 0xf31e, 0xf436, 0xf568, 0xf7a2, 0xf84c, 0xf853};

class IconFontTest: public testing::Test {
protected:
    IconFontTest(): context{ImGui::CreateContext()} {}
    ~IconFontTest() override { ImGui::DestroyContext(context); }

    ImGuiContext* context;
};

TEST_F(IconFontTest, ShapesAreInOrderAndInsideTheEm) {
    ASSERT_EQ(iconShapes().size(), std::size(Icons));
    for(std::size_t i = 0; i != std::size(Icons); ++i) {
        EXPECT_EQ(iconShapes()[i].codePoint, char32_t(Icons[i]));
        for(const IconOutline& outline: iconShapes()[i].outlines)
            for(const Magnum::Vector2& point: outline) {
                EXPECT_TRUE(point.x() >= 0.0f && point.x() <= float(IconEm)) << std::hex << Icons[i];
                EXPECT_TRUE(point.y() >= -124.0f && point.y() <= 900.0f) << std::hex << Icons[i];
            }
    }
}

#if IMGUI_VERSION_NUM < 19200

TEST_F(IconFontTest, EveryIconHasPixelsOfItsOwn) {
    loadFonts(1.0f, 2.0f, {});
    ImFontAtlas& atlas = *ImGui::GetIO().Fonts;
    unsigned char* pixels = nullptr;
    int width = 0, height = 0;
    atlas.GetTexDataAsAlpha8(&pixels, &width, &height);
    ASSERT_EQ(atlas.Fonts.Size, 1);
    for(const ImWchar icon: Icons) {
        const ImFontGlyph* const glyph = atlas.Fonts[0]->FindGlyphNoFallback(icon);
        ASSERT_TRUE(glyph) << std::hex << icon;
        EXPECT_GT(glyph->X1 - glyph->X0, 15.0f) << std::hex << icon;
        EXPECT_GE(glyph->AdvanceX, glyph->X1) << "the next letter stands beside " << std::hex << icon;
        int filled = 0, empty = 0;
        for(int y = int(glyph->V0 * float(height)); y != int(glyph->V1 * float(height)); ++y)
            for(int x = int(glyph->U0 * float(width)); x != int(glyph->U1 * float(width)); ++x) {
                filled += pixels[y * width + x] > 200;
                empty += pixels[y * width + x] < 50;
            }
        EXPECT_GT(filled, 50) << std::hex << icon;
        EXPECT_GT(empty, 50) << std::hex << icon;
    }
    EXPECT_FALSE(atlas.Fonts[0]->FindGlyphNoFallback(0xf000)) << "no other icon, and none of the text font";
    EXPECT_TRUE(atlas.Fonts[0]->FindGlyphNoFallback('A'));
}

TEST_F(IconFontTest, PixelsFollowTheScalesAndPlacesTheFontScale) {
    const auto advance = [] {
        ImFontAtlas& atlas = *ImGui::GetIO().Fonts;
        atlas.Build();
        return atlas.Fonts[0]->FindGlyph('m')->AdvanceX * ImGui::GetIO().FontGlobalScale;
    };
    loadFonts(1.0f, 1.0f, {});
    const float plain = advance();
    loadFonts(1.0f, 2.0f, {});
    EXPECT_NEAR(advance(), plain, plain * 0.1f);
    loadFonts(2.0f, 1.0f, {});
    EXPECT_NEAR(advance(), 2.0f * plain, plain * 0.1f);
}

#endif

} // namespace

} // namespace VantrelEngine
