#include "Views/SceneView/Overlays/Legend.h"

#include <gmock/gmock.h>

#include "Views/Test/WindowFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using testing::Contains;
using testing::ElementsAre;

class LegendTest: public VantrelTest::WindowTest {
protected:
    void draw() override { drawLegend(view, showsOverdraw, name.c_str()); }

    // What a character of the font is drawn with: the left edge of its picture.
    static Float pictureOf(char letter) { return ImGui::GetFont()->FindGlyph(ImWchar(letter))->U0; }
    struct Line {
        std::string text;
        Float middle;
    };
    // Characters one beside the other, with the middle of the line.
    std::vector<Line> labels(const ImGuiWindow& window) {
        std::vector<Line> out;
        Float top = -1.0f;
        const auto& vertices = window.DrawList->VtxBuffer;
        for(int i = 0; i < vertices.Size; i += 4)
            for(const char letter: {'0', '1', '5', '+'}) {
                if(vertices[i].uv.x != pictureOf(letter)) continue;
                const Float line = vertices[i].pos.y - ImGui::GetFont()->FindGlyph(ImWchar(letter))->Y0;
                if(line != top) out.push_back({"", line + 0.5f * ImGui::GetFontSize()});
                top = line;
                out.back().text += letter;
            }
        return out;
    }

    Range2D view{{20.0f, 60.0f}, {620.0f, 560.0f}};
    bool showsOverdraw = false;
    std::string name;
};

TEST_F(LegendTest, nothingWhereThereIsNothingToSay) {
    frame();
    frame();
    EXPECT_FALSE(window("##legend"));
    EXPECT_FALSE(window("##legend_overdraw_gradient"));
}

TEST_F(LegendTest, aName) {
    name = "50% of \"it\"";
    EXPECT_THAT(written(), ElementsAre("50% of \"it\""));
    frame();
    const ImGuiWindow* const legend = window("##legend");
    ASSERT_TRUE(legend);
    EXPECT_EQ(legend->Pos.x, 20.0f);
    EXPECT_EQ(legend->Pos.y + legend->Size.y, 560.0f);
    EXPECT_FALSE(window("##legend_overdraw_gradient"));
}

TEST_F(LegendTest, overdrawGoesBeforeAName) {
    name = "it";
    showsOverdraw = true;
    EXPECT_THAT(written(), ElementsAre("Color indicates amount of overdraw"));
}

// Half of what is behind is seen through it.
TEST_F(LegendTest, theWindowsAreHalfTransparentAndPlain) {
    showsOverdraw = true;
    frame();
    frame();
    for(const char* each: {"##legend", "##legend_overdraw_gradient"}) {
        const ImGuiWindow* const legend = window(each);
        ASSERT_TRUE(legend) << each;
        // Neither a title, nor to be resized, moved or scrolled; as large as it has to be, and never focused.
        EXPECT_EQ(legend->Flags & 4175, 4175) << each;
        EXPECT_EQ(legend->WindowRounding, 0.0f) << each;
        EXPECT_EQ(legend->WindowBorderSize, 0.0f) << each;
        ImVec4 background = ImGui::GetStyle().Colors[ImGuiCol_WindowBg];
        background.w = 0.5f;
        EXPECT_EQ(vertexCount(*legend, ImGui::ColorConvertFloat4ToU32(background)), 4u) << each;
    }
}

TEST_F(LegendTest, theGradientHasThreeLabels) {
    showsOverdraw = true;
    frame();
    frame();
    const ImGuiWindow* const gradient = window("##legend_overdraw_gradient");
    ASSERT_TRUE(gradient);
    struct Rectangle {
        Float top = 1.0e6f, bottom = 0.0f;
        void add(Float y) {
            top = std::min(top, y);
            bottom = std::max(bottom, y);
        }
    } red, yellow, green;
    for(const ImDrawVert& vertex: gradient->DrawList->VtxBuffer) {
        if(vertex.col == IM_COL32(255, 0, 0, 255)) red.add(vertex.pos.y);
        if(vertex.col == IM_COL32(255, 255, 0, 255)) yellow.add(vertex.pos.y);
        if(vertex.col == IM_COL32(39, 174, 96, 255)) green.add(vertex.pos.y);
    }
    // Each colour on one height.
    EXPECT_EQ(red.top, red.bottom);
    EXPECT_EQ(yellow.top, yellow.bottom);
    EXPECT_EQ(green.top, green.bottom);
    EXPECT_NEAR(yellow.top, 0.5f * (red.top + green.top), 0.5f);
    EXPECT_GT(green.top, red.top + 50.0f);
    const std::vector<Line> found = labels(*gradient);
    ASSERT_EQ(found.size(), 3u);
    EXPECT_EQ(found[0].text, "10+");
    EXPECT_NEAR(found[0].middle, red.top, 1.0f);
    EXPECT_EQ(found[1].text, "5");
    EXPECT_NEAR(found[1].middle, yellow.top, 1.0f);
    EXPECT_EQ(found[2].text, "0");
    EXPECT_NEAR(found[2].middle, green.top, 1.0f);
}

}
