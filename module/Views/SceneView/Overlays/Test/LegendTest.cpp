#include "Views/SceneView/Overlays/Legend.h"

#include <gmock/gmock.h>

#include "Views/Test/WindowFixture.h"

namespace {

using namespace Magnum;
using namespace VantrelEngine;
using testing::ElementsAre;
using testing::FloatNear;
using testing::StartsWith;

class LegendTest: public VantrelTest::WindowTest {
protected:
    void draw() override {
        drawLegend(view, showsOverdraw, name.c_str());
        for(Label& label: labels) label.letters = lettersOf(label.text);
    }

    using Letters = std::vector<ImDrawVert>;
    struct Label {
        const char* text;
        // As they are drawn in the upper left corner, four vertices each.
        Letters letters;
    };
    static Letters lettersOf(const char* text) {
        ImDrawList& list = *ImGui::GetBackgroundDrawList();
        const int before = list.VtxBuffer.Size;
        list.AddText({0.0f, 0.0f}, IM_COL32_WHITE, text);
        return {list.VtxBuffer.begin() + before, list.VtxBuffer.end()};
    }
    // The middles of the lines where a window has a label.
    static std::vector<Float> middlesOf(const ImGuiWindow& window, const Letters& letters) {
        const auto isSame = [](const ImDrawVert& a, const ImDrawVert& b) {
            return a.uv.x == b.uv.x && a.uv.y == b.uv.y;
        };
        const auto& vertices = window.DrawList->VtxBuffer;
        std::vector<Float> out;
        const ImDrawVert* found = vertices.begin();
        while((found = std::search(found, vertices.end(), letters.begin(), letters.end(), isSame)) != vertices.end()) {
            out.push_back(found->pos.y - letters.front().pos.y + 0.5f * ImGui::GetTextLineHeight());
            ++found;
        }
        return out;
    }

    Label labels[3]{{"10+", {}}, {"5", {}}, {"0", {}}};
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
    EXPECT_THAT(written().front(), StartsWith("Color indicates amount of overdraw"));
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
    ASSERT_EQ(labels[0].letters.size(), 12u);
    EXPECT_THAT(middlesOf(*gradient, labels[0].letters), ElementsAre(FloatNear(red.top, 1.0f)));
    EXPECT_THAT(middlesOf(*gradient, labels[1].letters), ElementsAre(FloatNear(yellow.top, 1.0f)));
    // That of the first one, too.
    EXPECT_THAT(
        middlesOf(*gradient, labels[2].letters), ElementsAre(FloatNear(red.top, 1.0f), FloatNear(green.top, 1.0f)));
}

}
