#include "Panels/StatisticsPanel.h"

#include <algorithm>
#include <cstdio>
#include <string>

#include <Vantrel/EditorData/VantrelEditor.h>
#include <imgui.h>

namespace VantrelEngine {

namespace {

struct PassText {
    FramePass pass;
    const char* name;
    const char* explanation;
    // Whether its draw calls are counted.
    bool isCounted;
};

constexpr PassText Passes[]{{FramePass::Reload, "Reload", "Brings meshes, images, materials, ... up to date", false},
    {FramePass::Update, "Update", "Places what moved, finds what is visible", false},
    {FramePass::ObjectIds, "Object ids", "What is picked is read from these", true},
    {FramePass::Shadows, "Lights, shadows", "Shadow maps are drawn where something in them changed", true},
    {FramePass::Scene, "Scene", "The picture itself", true},
    {FramePass::Outline, "Outline", "Around what is selected", true},
    {FramePass::Overlays, "Overlays", "Markers, and the picture brought to the screen", false}};

constexpr ImGuiTableFlags GridFlags =
    ImGuiTableFlags_SizingFixedFit | ImGuiTableFlags_NoHostExtendX | ImGuiTableFlags_RowBg;

std::string withUnit(double bytes) {
    char text[32];
    const bool isLarge = bytes >= 1024.0 * 1024.0;
    std::snprintf(
        text, sizeof text, isLarge ? "%.1f MiB" : "%.1f KiB", isLarge ? bytes / (1024.0 * 1024.0) : bytes / 1024.0);
    return text;
}

std::string milliseconds(double time) {
    char text[32];
    std::snprintf(text, sizeof text, "%.2f ms", time);
    return text;
}

void drawRight(const std::string& text) {
    const float room = ImGui::GetContentRegionAvail().x - ImGui::CalcTextSize(text.data()).x;
    if(room > 0.0f) ImGui::SetCursorPosX(ImGui::GetCursorPosX() + room);
    ImGui::TextUnformatted(text.data());
}

float labelWidth() { return ImGui::CalcTextSize("Pictures of the view").x; }

float valueWidth() { return ImGui::CalcTextSize("1000.0 MiB").x; }

// With a label and so many values.
float groupWidth(int values) {
    return labelWidth() + valueWidth() * float(values) + ImGui::GetStyle().CellPadding.x * 2.0f * float(values + 1);
}

// Columns keep their width while figures change.
bool beginGrid(const char* id, int columns) {
    if(!ImGui::BeginTable(id, columns, GridFlags)) return false;
    ImGui::TableSetupColumn("", ImGuiTableColumnFlags_WidthFixed, labelWidth());
    for(int i = 1; i != columns; ++i) ImGui::TableSetupColumn("", ImGuiTableColumnFlags_WidthFixed, valueWidth());
    return true;
}

void drawRow(const char* label, const std::string& value) {
    ImGui::TableNextRow();
    ImGui::TableNextColumn();
    ImGui::TextUnformatted(label);
    ImGui::TableNextColumn();
    drawRight(value);
}

// Of the editor alone: the scene without anybody who works on it has none of them.
std::uint32_t editorCalls(const FrameStatistics& frame) {
    return frame.pass(FramePass::ObjectIds).drawCalls + frame.pass(FramePass::Outline).drawCalls;
}

void drawScene(const FrameStatistics& frame) {
    ImGui::TextDisabled("Scene");
    if(!beginGrid("##scene", 2)) return;
    drawRow("Draw calls", std::to_string(frame.drawCalls));
    drawRow("Triangles", std::to_string(frame.triangles));
    drawRow("Visible meshes", std::to_string(frame.visibleMeshes));
    drawRow("Shadow maps", std::to_string(frame.shadowMaps));
    drawRow("Meshes in them", std::to_string(frame.shadowCasters));
    drawRow("Editor's draw calls", std::to_string(editorCalls(frame)));
    ImGui::EndTable();
}

void drawPass(const PassText& text, const PassStatistics& pass) {
    ImGui::TableNextRow();
    ImGui::TableNextColumn();
    ImGui::TextUnformatted(text.name);
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("%s", text.explanation);
    ImGui::TableNextColumn();
    drawRight(milliseconds(double(pass.milliseconds)));
    ImGui::TableNextColumn();
    if(text.isCounted) drawRight(std::to_string(pass.drawCalls) + (pass.drawCalls == 1 ? " draw" : " draws"));
}

void drawPasses(const ShownStatistics& statistics) {
    ImGui::TextDisabled("Passes of the view (processor)");
    if(!beginGrid("##passes", 3)) return;
    for(const PassText& pass: Passes) drawPass(pass, statistics.frame.pass(pass.pass));
    drawRow("Whole frame", milliseconds(statistics.frameTime));
    ImGui::EndTable();
}

void drawMemory(const FrameStatistics& frame) {
    drawRow("Pictures of the view", withUnit(double(frame.pictureBytes)));
    drawRow("Sent to the GPU", withUnit(double(frame.uploadedBytes)));
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("Vertices, objects, materials and lights, since the view is there");
}

void drawWork(const ShownStatistics& statistics) {
    ImGui::TextDisabled("Memory and work");
    if(beginGrid("##work", 2)) {
        drawMemory(statistics.frame);
        drawRow("Imports under way", std::to_string(statistics.imports));
        drawRow("Thumbnails", statistics.areThumbnailsWaiting ? "being made" : "all there");
        drawRow("Drawn, read",
            std::to_string(statistics.thumbnailsDrawn) + ", " + std::to_string(statistics.thumbnailsLoaded));
        ImGui::EndTable();
    }
    ImGui::TextDisabled("Last reload of the view");
    const float room = std::max(groupWidth(1), ImGui::GetContentRegionAvail().x);
    ImGui::PushTextWrapPos(ImGui::GetCursorPosX() + room);
    if(statistics.lastReload.empty())
        ImGui::TextUnformatted("places only");
    else
        ImGui::TextUnformatted(
            statistics.lastReload.data(), statistics.lastReload.data() + statistics.lastReload.size());
    ImGui::PopTextWrapPos();
}

constexpr int Groups = 3;

// As wide as the group that is drawn, whatever is in it: a column of a table would follow its contents, which are as wide as
// the column.
float widthOf(int group) { return groupWidth(group == 1 ? 2 : 1) + ImGui::GetFontSize(); }

// As many as there is room for.
int groupsInLine() {
    const float room = ImGui::GetContentRegionAvail().x;
    float width = 0.0f;
    for(int i = 0; i != Groups; ++i)
        if((width += widthOf(i)) > room + ImGui::GetFontSize()) return std::max(i, 1);
    return Groups;
}

// Beside the group before, or at the begin of a line.
void beginGroup(int group, int inLine, float& x) {
    if(group % inLine == 0)
        x = 0.0f;
    else {
        x += widthOf(group - 1);
        ImGui::SameLine(x);
    }
    ImGui::BeginGroup();
}

} // namespace

void drawStatisticsPanel(const ShownStatistics& statistics) {
    ImGui::BeginChild("##statistics", {0.0f, 0.0f}, false, ImGuiWindowFlags_HorizontalScrollbar);
    const int inLine = groupsInLine();
    float x = 0.0f;
    for(int group = 0; group != Groups; ++group) {
        beginGroup(group, inLine, x);
        if(group == 0) drawScene(statistics.frame);
        if(group == 1) drawPasses(statistics);
        if(group == 2) drawWork(statistics);
        ImGui::EndGroup();
    }
    ImGui::EndChild();
}

} // namespace VantrelEngine
