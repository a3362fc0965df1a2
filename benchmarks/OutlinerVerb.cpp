#include <map>
#include <string>

#include <Magnum/Math/Vector3.h>
#include <imgui.h>

#include "BenchProject.h"
#include "Panels/Outliner/OutlinerPanel.h"
#include "Report.h"
#include "Verbs.h"

namespace VantrelBench {

using namespace VantrelEngine;

namespace {

constexpr double Limit = 0.2;
constexpr double SearchLimit = 10.0;
constexpr int Frames = 20;

// The panel in a window of its own, without anything that is drawn to.
class Outliner {
public:
    explicit Outliner(std::size_t size):
        _project{projectOptions(size)}, _session{_project.open()}, _paths{spreadPaths(*_session, 64)},
        _context{ImGui::CreateContext()} {
        use();
        ImGuiIO& io = ImGui::GetIO();
        io.IniFilename = nullptr;
        io.DisplaySize = {300.0f, 800.0f};
        io.DeltaTime = 1.0f / 60.0f;
        unsigned char* pixels = nullptr;
        int width = 0, height = 0;
        io.Fonts->GetTexDataAsRGBA32(&pixels, &width, &height);
        for(int i = 0; i != 3; ++i) frame();
        // In the middle of the rows.
        _session->data().selectObject(_session->data().scene().main().toId(size / 2), false);
        for(int i = 0; i != 3; ++i) frame();
    }
    ~Outliner() { ImGui::DestroyContext(_context); }
    Outliner(const Outliner&) = delete;
    Outliner& operator=(const Outliner&) = delete;

    void frame() {
        use();
        ImGui::NewFrame();
        ImGui::SetNextWindowPos({0.0f, 0.0f});
        ImGui::SetNextWindowSize({300.0f, 800.0f});
        ImGui::Begin("Objects", nullptr, ImGuiWindowFlags_NoDecoration | ImGuiWindowFlags_NoSavedSettings);
        _panel.draw(*_session);
        ImGui::End();
        ImGui::Render();
    }

    double steadySeconds() {
        return secondsOf([&] {
            for(int i = 0; i != Frames; ++i) frame();
        }) / Frames;
    }

    // Of the frames that follow an edit of one object each; the edit itself and its compilation are not the panel's.
    template<class Edit> double secondsAfter(Edit&& edit) {
        double seconds = 0.0;
        for(int i = 0; i != Frames; ++i) {
            ++_edits;
            edit(*_session, _paths[std::size_t(_edits) % _paths.size()], _edits);
            _session->update();
            seconds += secondsOf([&] { frame(); });
        }
        return seconds / Frames;
    }

private:
    void use() { ImGui::SetCurrentContext(_context); }

    BenchProject _project;
    std::unique_ptr<ProjectSession> _session;
    std::vector<std::string> _paths;
    OutlinerPanel _panel;
    ImGuiContext* _context;
    int _edits = 0;
};

void rename(ProjectSession& session, const std::string& path, int number) {
    const std::string pointer = path + "/name", name = "Renamed " + std::to_string(number);
    session.changes().recordString({pointer.data(), pointer.size()}, {name.data(), name.size()}, false);
}

// To the root, or below the first object.
void move(ProjectSession& session, const std::string& path, int number) {
    const std::string pointer = path + "/parent";
    const Scene& scene = session.data().scene().main();
    const bool isToRoot = number % 2 || path == "/objects/" + std::string{scene.objectIds.nameOf(scene.toId(1)).data()};
    session.changes().recordString(
        {pointer.data(), pointer.size()}, isToRoot ? "" : scene.objectIds.nameOf(scene.toId(1)), false);
}

double searchSeconds(std::size_t count, const Budget& budget) {
    const BenchProject project{projectOptions(count)};
    const std::unique_ptr<ProjectSession> session = project.open();
    Scene& scene = session->data().scene().main();
    OutlinerRows rows;
    rows.update(scene, {});
    int number = 0;
    return medianSeconds(
        [&] {
            // Each time another text.
            const std::string text = std::to_string(++number % 1000);
            return secondsOf([&] { rows.update(scene, text); });
        },
        budget);
}

}

void outliner(std::size_t count, const Budget& budget) {
    const std::vector<std::size_t> sizes = sizesUpTo(count);
    std::map<std::size_t, Outliner> outliners;
    for(const std::size_t size: sizes) outliners.try_emplace(size, size);
    const auto grow = [&](const char* name, auto&& run) {
        printGrowth("outliner", name, measureGrowth(sizes, run, budget), Limit);
    };
    grow("steady_frame", [&](std::size_t size) { return outliners.at(size).steadySeconds(); });
    grow("frame_after_rename", [&](std::size_t size) { return outliners.at(size).secondsAfter(rename); });
    grow("frame_after_move", [&](std::size_t size) { return outliners.at(size).secondsAfter(move); });
    printLine(limitLine("outliner", "search", "milliseconds", searchSeconds(count, budget) * 1000.0, SearchLimit));
}

}
