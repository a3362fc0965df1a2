#include "Views/SceneView/Overlays/Legend.h"

#include <cfloat>

#include "Views/UserInterface.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

constexpr ImGuiWindowFlags Flags = ImGuiWindowFlags_NoTitleBar | ImGuiWindowFlags_NoResize | ImGuiWindowFlags_NoMove |
    ImGuiWindowFlags_NoScrollbar | ImGuiWindowFlags_AlwaysAutoResize | ImGuiWindowFlags_NoFocusOnAppearing |
    ImGuiWindowFlags_NoInputs | ImGuiWindowFlags_NoSavedSettings;

constexpr Float BackgroundAlpha = 0.5f;

constexpr ImU32 Red = IM_COL32(255, 0, 0, 255);
constexpr ImU32 Yellow = IM_COL32(255, 255, 0, 255);
constexpr ImU32 Green = IM_COL32(39, 174, 96, 255);

// Lines of text. A bar that is too low for its labels is not drawn.
constexpr Float BarHeight = 10.0f;
constexpr Float LeastBarHeight = 1.6f;
constexpr Float BarWidth = 1.25f;

// Its lower left corner there. With its size known before, it is right in its first frame, too.
void beginWindow(const char* name, const Vector2& corner, const Vector2& contents, Float maximumWidth) {
    const Vector2 padding = UserInterface::vector(ImGui::GetStyle().WindowPadding);
    const Vector2 size = contents + 2.0f * padding;
    ImGui::SetNextWindowPos(UserInterface::vector(corner), ImGuiCond_Always, {0.0f, 1.0f});
    ImGui::SetNextWindowSize({Math::min(size.x(), maximumWidth), size.y()});
    ImGui::SetNextWindowBgAlpha(BackgroundAlpha);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowRounding, 0.0f);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowBorderSize, 0.0f);
    ImGui::PushStyleVar(ImGuiStyleVar_WindowMinSize, {1.0f, 1.0f});
    ImGui::Begin(name, nullptr, Flags);
    ImGui::PopStyleVar(3);
}

void drawLabel(const char* text, const Vector2& place) {
    ImGui::SetCursorScreenPos({place.x(), place.y() - 0.5f * ImGui::GetTextLineHeight()});
    ImGui::TextUnformatted(text);
}

void drawGradient(const Vector2& corner, const Vector2& maximumSize) {
    const Float line = ImGui::GetTextLineHeight();
    const Float gap = ImGui::GetStyle().ItemSpacing.x;
    // The outermost labels stand out by half a line.
    const Float room = maximumSize.y() - 2.0f * ImGui::GetStyle().WindowPadding.y - line;
    const Vector2 bar{BarWidth * line, Math::min(BarHeight * line, room)};
    if(bar.y() < LeastBarHeight * line) return;
    const Vector2 contents{bar.x() + gap + ImGui::CalcTextSize("10+").x, bar.y() + line};
    beginWindow("##legend_overdraw_gradient", corner, contents, maximumSize.x());
    const Vector2 top = UserInterface::vector(ImGui::GetCursorScreenPos()) + Vector2{0.0f, 0.5f * line};
    const Vector2 middle = top + Vector2{0.0f, 0.5f * bar.y()}, bottom = top + Vector2{0.0f, bar.y()};
    const Vector2 width = Vector2{bar.x(), 0.0f};
    ImDrawList& list = *ImGui::GetWindowDrawList();
    const auto draw = [&](const Vector2& from, const Vector2& to, ImU32 above, ImU32 below) {
        list.AddRectFilledMultiColor(
            UserInterface::vector(from), UserInterface::vector(to + width), above, above, below, below);
    };
    draw(top, middle, Red, Yellow);
    draw(middle, bottom, Yellow, Green);
    const Vector2 beside = width + Vector2{gap, 0.0f};
    drawLabel("10+", top + beside);
    drawLabel("5", middle + beside);
    drawLabel("0", bottom + beside);
    ImGui::End();
}

// Returns how high it is.
Float drawText(const Vector2& corner, Containers::StringView text, Float maximumWidth) {
    const Vector2 size = UserInterface::vector(ImGui::CalcTextSize(text.begin(), text.end()));
    beginWindow("##legend", corner, size, maximumWidth);
    ImGui::TextUnformatted(text.begin(), text.end());
    const Float height = ImGui::GetWindowHeight();
    ImGui::End();
    return height;
}

}

void drawLegend(const Range2D& view, bool showsOverdraw, Containers::StringView name) {
    if(!showsOverdraw && name.isEmpty()) return;
    const Vector2 corner{view.min().x(), view.max().y()};
    if(!showsOverdraw) {
        drawText(corner, name, view.sizeX());
        return;
    }
    const Float height = drawText(corner, "Color indicates amount of overdraw", view.sizeX());
    // The upper half is left to the toolbar.
    drawGradient(corner - Vector2{0.0f, height}, {view.sizeX(), 0.5f * view.sizeY() - height});
}

} // namespace VantrelEngine
