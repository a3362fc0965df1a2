#include <cstring>
#include <filesystem>
#include <string>

#include <Vantrel/EditorData/VantrelEditor.h>
#include <VantrelHost/FilePictures.h>
#include <imgui.h>
#include <imgui_internal.h>

#include "Data/StepLog.h"
#include "Data/Test/SessionFixture.h"
#include "Panels/Assets/AssetBrowser.h"
#include "Panels/HistoryPanel.h"
#include "Panels/Panes.h"
#include "Panels/ProblemsPanel.h"
#include "Panels/StatisticsPanel.h"
#include "Support/TestFolder.h"

namespace VantrelEngine {

namespace {

// Draws panels as the editor does, without a window: at the upper left of a pane of 820 x 170.
class PanelDrawTest: public VantrelTest::SessionFixture {
protected:
    PanelDrawTest() {
        ImGuiIO& io = ImGui::GetIO();
        io.IniFilename = nullptr;
        io.DisplaySize = {1600.0f, 900.0f};
        io.DeltaTime = 1.0f / 60.0f;
        unsigned char* pixels;
        int width, height;
        io.Fonts->GetTexDataAsRGBA32(&pixels, &width, &height);
    }
    ~PanelDrawTest() { ImGui::DestroyContext(_context); }

    template<class Draw> void drawFrame(const Draw& draw) {
        session.update();
        ImGui::NewFrame();
        ImGui::SetNextWindowPos({0.0f, 0.0f});
        ImGui::SetNextWindowSize(size);
        ImGui::Begin("Pane", nullptr, ImGuiWindowFlags_NoTitleBar);
        draw();
        ImGui::End();
        ImGui::Render();
    }
    template<class Draw> void drawFrames(int count, const Draw& draw) {
        for(int i = 0; i != count; ++i) drawFrame(draw);
    }
    // A child of the pane whose name has the text.
    const ImGuiWindow& child(const char* name) const {
        for(const ImGuiWindow* window: _context->Windows)
            if(std::strstr(window->Name, name)) return *window;
        ADD_FAILURE() << "there is no " << name;
        return *_context->Windows[0];
    }
    template<class Draw> void clickAt(float x, float y, const Draw& draw) {
        ImGuiIO& io = ImGui::GetIO();
        io.MousePos = {x, y};
        drawFrame(draw);
        io.MouseDown[0] = true;
        drawFrame(draw);
        io.MouseDown[0] = false;
        drawFrame(draw);
    }

private:
    ImGuiContext* const _context = ImGui::CreateContext();

protected:
    ImVec2 size{820.0f, 170.0f};
};

TEST_F(PanelDrawTest, StatisticsFitIntoTheirPaneFromTheFirstFramesOn) {
    FrameStatistics frame;
    const std::string reload =
        "materials: " + std::string(20, 'm') + " and the images that it shows, of which there are many";
    const auto draw = [&] { drawStatisticsPanel({frame, 0.0, reload}); };
    drawFrames(3, draw);
    const ImVec2 early = child("##statistics").ContentSize;
    EXPECT_LE(early.x, child("##statistics").WorkRect.GetWidth());
    drawFrames(20, draw);
    const ImVec2 late = child("##statistics").ContentSize;
    EXPECT_EQ(late.x, early.x);
    EXPECT_EQ(late.y, early.y);
    // Below each other where there is no room beside.
    size.x = 300.0f;
    drawFrames(3, draw);
    EXPECT_LE(child("##statistics").ContentSize.x, child("##statistics").WorkRect.GetWidth());
    EXPECT_GT(child("##statistics").ContentSize.y, late.y * 2.0f);
}

TEST_F(PanelDrawTest, AProblemIsALineAndAClickOnAnyOfItSelectsTheObject) {
    for(const char* const id: {"a", "b", "c"})
        record(std::string{"/objects/"} + id, object("", ",'components': [{'type': 'light', 'light': {'type': 'x'}}]"));
    session.update();
    ProblemsPanel panel;
    panel.update(session);
    ASSERT_EQ(panel.badge(), "(3)");
    InspectedResource resource;
    const auto draw = [&] {
        panel.update(session);
        panel.draw(session, resource);
    };
    drawFrames(3, draw);
    const ImGuiWindow& rows = child("##problems");
    const float row = ImGui::GetTextLineHeight() + ImGui::GetStyle().CellPadding.y * 2.0f;
    EXPECT_NEAR(rows.ContentSize.y, row * 4.0f, row * 0.25f) << "the header, and a line each";
    clickAt(700.0f, rows.Pos.y + row * 2.5f, draw);
    EXPECT_TRUE(session.data().isSelected(objectOf("b")));
    EXPECT_FALSE(session.data().isSelected(objectOf("a")));
    EXPECT_EQ(resource.kind, "");
    record("/images/i", "{'name': 'I', 'file': 'missing.png'}");
    drawFrames(2, draw);
    ASSERT_EQ(panel.badge(), "(4)");
    clickAt(700.0f, rows.Pos.y + row * 4.5f, draw);
    EXPECT_EQ(resource.kind + "/" + resource.id, "images/i") << "a resource is shown";
}

TEST_F(PanelDrawTest, TheHistoryKeepsTheStepInSightWhenTheTextGrowsOrThePaneShrinks) {
    changes().beginGroup();
    record("/objects/a", object());
    changes().commit();
    for(int i = 0; i != 30; ++i) {
        changes().beginGroup();
        record("/objects/a/translation", "[" + std::to_string(i) + ", 0, 0]");
        changes().commit();
    }
    session.steps().update();
    ASSERT_EQ(session.steps().steps().size(), 31u);
    HistoryPanel panel;
    const auto draw = [&] { panel.draw(session.steps()); };
    // The last row, below the others.
    const auto isLastSeen = [&] {
        const ImGuiWindow& rows = child("##steps");
        return rows.Scroll.y >= rows.ScrollMax.y - 2.0f && rows.ScrollMax.y > 0.0f;
    };
    drawFrames(4, draw);
    ASSERT_TRUE(isLastSeen());
    ImGui::GetIO().FontGlobalScale = 2.0f;
    drawFrames(4, draw);
    EXPECT_TRUE(isLastSeen());
    ImGui::GetIO().FontGlobalScale = 1.0f;
    size.y = 90.0f;
    drawFrames(4, draw);
    EXPECT_TRUE(isLastSeen());
}

TEST_F(PanelDrawTest, TheAssetThatIsSelectedStaysSoWhenOthersComeAndGo) {
    const VantrelTest::TestFolder folder;
    for(int i = 10; i != 90; ++i) folder.write("f" + std::to_string(i) + ".png", "none");
    ASSERT_EQ(session.save(folder.path("project.json")), "");
    FilePictures images, models;
    AssetBrowser browser;
    const auto draw = [&] { browser.draw(session, {images, models}, true); };
    const auto drawChanged = [&] {
        // It looks once a second.
        ImGui::GetIO().DeltaTime = 2.0f;
        drawFrames(3, draw);
        ImGui::GetIO().DeltaTime = 1.0f / 60.0f;
    };
    drawFrames(3, draw);
    ImGui::GetIO().MousePos = {100.0f, 120.0f};
    ImGui::GetIO().MouseWheel = -3.0f;
    drawFrame(draw);
    ImGui::GetIO().MouseWheel = 0.0f;
    drawFrames(10, draw);
    const float scroll = child("##assets").Scroll.y;
    ASSERT_GT(scroll, 0.0f);
    clickAt(100.0f, 120.0f, draw);
    const std::string name = browser.selectedName();
    ASSERT_NE(name, "");
    folder.write("a.png", "none");
    drawChanged();
    EXPECT_EQ(browser.selectedName(), name);
    EXPECT_EQ(child("##assets").Scroll.y, scroll);
    std::filesystem::remove(folder.path("a.png"));
    std::filesystem::remove(folder.path("f10.png"));
    drawChanged();
    EXPECT_EQ(browser.selectedName(), name);
    std::filesystem::remove(folder.path(name.data()));
    drawChanged();
    EXPECT_EQ(browser.selectedName(), "");
    folder.write(name.data(), "none");
    drawChanged();
    EXPECT_EQ(browser.selectedName(), name) << "as when a program writes it anew";
}

#ifndef IMGUI_HAS_DOCK

void drawAllPanes(Panes& panes, PaneSizes& sizes) {
    panes.layOut(sizes, ImGui::GetIO().FontGlobalScale);
    for(const PanelInfo& info: Panels) {
        panes.begin(info.panel, sizes);
        panes.end(info.panel);
    }
}

TEST_F(PanelDrawTest, TheTabThatIsShownStaysInSightWhenThePaneBecomesNarrow) {
    Panes panes;
    PaneSizes sizes;
    const auto draw = [&] { drawAllPanes(panes, sizes); };
    panes.bringToFront(Panel::Statistics);
    drawFrames(4, draw);
    ImGui::GetIO().DisplaySize.x = 1000.0f;
    drawFrames(4, draw);
    int seen = 0;
    ImPool<ImGuiTabBar>& bars = ImGui::GetCurrentContext()->TabBars;
    for(int i = 0; i != bars.GetMapSize(); ++i) {
        ImGuiTabBar* const bar = bars.TryGetMapData(i);
        if(!bar || bar->Tabs.Size != 6) continue;
        const ImGuiTabItem* const shown = ImGui::TabBarFindTabByID(bar, bar->SelectedTabId);
        ASSERT_TRUE(shown);
        EXPECT_EQ(shown, &bar->Tabs.back());
        EXPECT_GT(bar->WidthAllTabs, bar->BarRect.GetWidth()) << "there is room for all";
        EXPECT_LE(shown->Offset + shown->Width - bar->ScrollingTarget, bar->BarRect.GetWidth());
        ++seen;
    }
    EXPECT_EQ(seen, 1);
}

TEST_F(PanelDrawTest, TabsThatHaveNoRoomAreReachedByAList) {
    Panes panes;
    PaneSizes sizes;
    const auto draw = [&] { drawAllPanes(panes, sizes); };
    const auto barOf = [](int tabs) -> const ImGuiTabBar& {
        ImPool<ImGuiTabBar>& bars = ImGui::GetCurrentContext()->TabBars;
        for(int i = 0; i != bars.GetMapSize(); ++i) {
            const ImGuiTabBar* const bar = bars.TryGetMapData(i);
            if(bar && bar->Tabs.Size == tabs) return *bar;
        }
        ADD_FAILURE() << "no bar has " << tabs << " tabs";
        return *bars.GetByIndex(0);
    };
    const auto hasList = [&](int tabs) { return bool(barOf(tabs).Flags & ImGuiTabBarFlags_TabListPopupButton); };
    drawFrames(4, draw);
    EXPECT_FALSE(hasList(6));
    EXPECT_FALSE(hasList(2));
    ImGui::GetIO().FontGlobalScale = 3.0f;
    ImGui::GetIO().DisplaySize = {1000.0f, 700.0f};
    drawFrames(4, draw);
    EXPECT_TRUE(hasList(6));
    EXPECT_TRUE(hasList(2));
    ImGui::GetIO().FontGlobalScale = 1.0f;
    ImGui::GetIO().DisplaySize = {1600.0f, 900.0f};
    drawFrames(4, draw);
    EXPECT_FALSE(hasList(6));
    // The list stands in front of the tabs.
    ImGui::GetIO().DisplaySize = {1000.0f, 700.0f};
    drawFrames(4, draw);
    EXPECT_TRUE(hasList(6));
    const ImRect bar = barOf(6).BarRect;
    clickAt(bar.Min.x - ImGui::GetFontSize() * 0.5f, (bar.Min.y + bar.Max.y) * 0.5f, draw);
    drawFrame(draw);
    EXPECT_EQ(ImGui::GetCurrentContext()->OpenPopupStack.Size, 1);
}

#endif

} // namespace

} // namespace VantrelEngine
