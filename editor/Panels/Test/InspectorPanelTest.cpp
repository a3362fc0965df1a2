#include <algorithm>
#include <chrono>
#include <string>

#include <VantrelHost/Thumbnails.h>
#include <imgui.h>

#include "Data/Test/SessionFixture.h"
#include "Panels/InspectorPanel.h"
#include "Panels/SettingsPanel.h"

namespace VantrelEngine {

namespace {

// Draws the panel as the editor does, without a window.
class InspectorPanelTest: public VantrelTest::SessionFixture {
protected:
    InspectorPanelTest() {
        ImGuiIO& io = ImGui::GetIO();
        io.IniFilename = nullptr;
        io.DisplaySize = {400.0f, 900.0f};
        unsigned char* pixels;
        int width, height;
        io.Fonts->GetTexDataAsRGBA32(&pixels, &width, &height);
    }
    ~InspectorPanelTest() { ImGui::DestroyContext(_context); }

    void addObjects(int count) {
        for(int i = 0; i != count; ++i)
            record("/objects/o" + std::to_string(i),
                "{'name': 'N', 'parent': '', 'translation': [" + std::to_string(i) +
                    ", 0, 0], 'rotation': [0, 0, 0, 1], 'scaling': [1, 1, 1], 'components': [{'type': 'light', "
                    "'light': "
                    "{'type': 'spot', 'color': [1, 1, 1], 'intensity': 5, 'outerAngle': 20, 'innerAngle': 10, "
                    "'shadows': "
                    "false, 'shadowRange': 0, 'shadowBias': 0, 'shadowNormalBias': 0, 'shadowTexelSize': 0}}, {'type': "
                    "'mesh', 'mesh': {'mesh': 'm', 'material': 'm'}}]}");
        session.update();
        for(int i = 0; i != count; ++i) session.data().selectObject(objectOf(("o" + std::to_string(i)).data()), true);
    }
    // Milliseconds.
    double drawFrame() {
        session.update();
        ImGui::GetIO().DeltaTime = 1.0f / 60.0f;
        ImGui::NewFrame();
        ImGui::SetNextWindowPos({0.0f, 0.0f});
        ImGui::SetNextWindowSize({400.0f, 900.0f});
        ImGui::Begin("Inspector");
        const auto begin = std::chrono::steady_clock::now();
        panel.draw(session.data(), changes(), thumbnails, resource);
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - begin;
        ImGui::End();
        ImGui::Render();
        panel.fields().endFrame(changes());
        return took.count();
    }

private:
    ImGuiContext* const _context = ImGui::CreateContext();

protected:
    InspectorPanel panel;
    InspectedResource resource;
    Thumbnails thumbnails{session.data().scene(), session.data().resources(), {}};
};

TEST_F(InspectorPanelTest, GathersWhatManyObjectsHaveInCommonOnceAChange) {
    addObjects(1000);
    drawFrame();
    const std::size_t gathered = panel.gatherings();
    double least = 1.0e9;
    for(int i = 0; i != 20; ++i) least = std::min(least, drawFrame());
    EXPECT_EQ(panel.gatherings(), gathered);
    RecordProperty("milliseconds", std::to_string(least));
    double anew = 1.0e9;
    for(int i = 0; i != 5; ++i) {
        record("/objects/o5/translation", "[7, 7, " + std::to_string(i) + "]");
        anew = std::min(anew, drawFrame());
    }
    RecordProperty("millisecondsAfterAChange", std::to_string(anew));
    EXPECT_GT(panel.gatherings(), gathered);
}

// Of a key that is compiled to nothing: no revision tells of it.
TEST_F(InspectorPanelTest, SeesAnEditThatTookThePlaceOfAnother) {
    record("/materials/m", "{'name': 'M', 'own': 1}");
    resource = {"materials", "m"};
    changes().beginGroup();
    record("/materials/m/own", "2");
    changes().commit();
    drawFrame();
    const std::size_t gathered = panel.gatherings();
    changes().beginGroup(0, true);
    record("/materials/m/own", "3", true);
    changes().commit();
    drawFrame();
    EXPECT_GT(panel.gatherings(), gathered);
}

TEST_F(InspectorPanelTest, AResourceGivesWayToWhatIsSelectedAndToItsEnd) {
    record("/materials/m", "{'name': 'M'}");
    addObjects(2);
    resource = {"materials", "m"};
    drawFrame();
    drawFrame();
    EXPECT_EQ(resource.id, "m") << "the selection was there before";
    session.data().selectObject(objectOf("o1"), false);
    drawFrame();
    EXPECT_EQ(resource.kind, "");
    resource = {"materials", "m"};
    drawFrame();
    EXPECT_EQ(resource.id, "m");
    remove("/materials/m");
    drawFrame();
    EXPECT_EQ(resource.kind, "");
    resource = {"banana", "m"};
    drawFrame();
    EXPECT_EQ(resource.kind, "");
}

TEST_F(InspectorPanelTest, ShowsEveryKindOfResource) {
    for(const char* const section:
        {"images", "textures", "shaders", "pipelines", "materials", "meshes", "skins", "animations", "fonts"}) {
        record(std::string{"/"} + section + "/r", "{'name': 'R', 'file': 'missing', 'own': [1]}");
        resource = {section, "r"};
        drawFrame();
        EXPECT_EQ(resource.id, "r") << section;
        record(std::string{"/"} + section + "/r", "5");
        drawFrame();
        EXPECT_EQ(resource.id, "r") << section;
    }
}

} // namespace

} // namespace VantrelEngine
