#include "Style/IconFile.h"

#include <sstream>

#include <Corrade/Utility/Debug.h>
#include <gtest/gtest.h>
#include <imgui.h>

#include "Style/Fonts.h"
#include "Style/IconFont.h"
#include "Style/IconShapes.h"
#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

using namespace Corrade;

constexpr ImWchar Move = 0xf0b2, Camera = 0xf03d;

// A font of one icon, a narrow bar instead of what the editor would draw.
std::vector<unsigned char> barFont() {
    return makeIconFont({{Move, {{{400.0f, 0.0f}, {400.0f, 700.0f}, {500.0f, 700.0f}, {500.0f, 0.0f}}}}});
}

class IconFileTest: public testing::Test {
protected:
    std::string write(const std::vector<unsigned char>& font) {
        folder.write("icons.ttf", {font.begin(), font.end()});
        return folder.path("icons.ttf");
    }

    // With what was said.
    std::vector<unsigned char> read(const std::string& file) {
        std::ostringstream out;
        Utility::Warning redirected{&out};
        std::vector<unsigned char> font = readIconFont(file);
        said = out.str();
        return font;
    }

    VantrelTest::TestFolder folder;
    std::string said;
};

TEST_F(IconFileTest, AWholeFontIsRead) {
    EXPECT_EQ(read(write(barFont())), barFont());
    EXPECT_EQ(said, "");
}

TEST_F(IconFileTest, NoFileIsNoFontAndNoLine) {
    EXPECT_TRUE(read(folder.path("none.ttf")).empty());
    EXPECT_EQ(said, "");
}

TEST_F(IconFileTest, ADamagedFontIsNoneAndIsSaid) {
    std::vector<unsigned char> changed = barFont(), cut = barFont(), odd = barFont();
    changed[changed.size() / 2] ^= 4;
    cut.resize(cut.size() / 8 * 4);
    odd.push_back(0);
    for(const std::vector<unsigned char>& font: {changed, cut, odd, {'<', 'h', 't', 'm'}, {}}) {
        EXPECT_TRUE(read(write(font)).empty());
        EXPECT_EQ(said, "Fonts: " + folder.path("icons.ttf") + " is damaged - drawing the icons by other means\n");
    }
}

#if IMGUI_VERSION_NUM < 19200

class IconSourceTest: public testing::Test {
protected:
    IconSourceTest(): context{ImGui::CreateContext()} {}
    ~IconSourceTest() override { ImGui::DestroyContext(context); }

    // Pixels.
    float width(ImWchar icon) {
        ImFontAtlas& atlas = *ImGui::GetIO().Fonts;
        atlas.Build();
        const ImFontGlyph* const glyph = atlas.Fonts[0]->FindGlyphNoFallback(icon);
        return glyph ? glyph->X1 - glyph->X0 : 0.0f;
    }

    ImGuiContext* context;
};

TEST_F(IconSourceTest, TheFontsIconIsTakenAndTheOthersAreTheEditorsOwn) {
    const std::vector<unsigned char> bar = barFont();
    loadFonts(1.0f, 2.0f, {});
    const float move = width(Move), camera = width(Camera);
    EXPECT_GT(move, 15.0f);
    loadFonts(1.0f, 2.0f, bar);
    EXPECT_GT(width(Move), 0.0f);
    EXPECT_LT(width(Move), 8.0f);
    EXPECT_EQ(width(Camera), camera);
}

TEST_F(IconSourceTest, TheTextFontHasNothingOfThePrivateRange) {
    const std::vector<unsigned char> bar = barFont();
    loadFonts(1.0f, 1.0f, bar);
    ImFontAtlas& atlas = *ImGui::GetIO().Fonts;
    atlas.Build();
    std::vector<ImWchar> found;
    for(unsigned code = 0xe000; code <= 0xf8ff; ++code)
        if(atlas.Fonts[0]->FindGlyphNoFallback(ImWchar(code))) found.push_back(ImWchar(code));
    std::vector<ImWchar> icons;
    for(const IconShape& shape: iconShapes()) icons.push_back(ImWchar(shape.codePoint));
    EXPECT_EQ(found, icons);
}

#endif

} // namespace

} // namespace VantrelEngine
