#include "Views/SceneView/Gizmo/Toolbar.h"

#include <algorithm>

#include <Corrade/Containers/ArrayView.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/Format.h>

#include "Views/UserInterface.h"

namespace VantrelEngine {

using namespace Corrade;
using namespace Magnum;

namespace {

// Of the editor's icon font.
constexpr char TranslateIcon[] = "\uf0b2", RotateIcon[] = "\uf2f1", ScaleIcon[] = "\uf31e", WorldIcon[] = "\uf7a2",
               LocalIcon[] = "\uf1b2", TranslationStepIcon[] = "\uf84c", RotationStepIcon[] = "\uf568",
               ScaleStepIcon[] = "\uf853", PhysicsIcon[] = "\uf436", CameraIcon[] = "\uf03d";

constexpr Float TranslationSteps[]{0.05f, 0.1f, 0.125f, 0.25f, 0.5f, 1.0f, 1.25f, 1.5f, 2.0f, 3.0f, 5.0f, 10.0f, 25.0f};
constexpr Float RotationSteps[]{1.0f, 2.0f, 5.0f, 7.5f, 10.0f, 15.0f, 30.0f, 90.0f, 180.0f};
constexpr Float ScaleSteps[]{0.05f, 0.1f, 0.2f, 0.3f, 0.5f, 1.0f};

// Between the parts of a group, window points.
constexpr Float SegmentGap = 1.0f;
constexpr Float WindowAlpha = 0.5f, OnAlpha = 1.0f, OffAlpha = 0.6f;
// Window points, where the text is as high as the editor's is without being enlarged.
constexpr Float FieldWidth = 64.0f, FieldTextSize = 15.0f;
// Of the view, below the menu bar.
constexpr Float LargestPartOfHeight = 0.5f;
constexpr Float FlySpeedPerPixel = 0.1f;
const ImVec4 SimulatingColor{1.0f, 0.0f, 0.567f, 0.78f}, SimulatingHoveredColor{1.0f, 0.0f, 0.567f, 1.0f};

Float fieldWidth() { return FieldWidth * std::max(ImGui::GetFontSize() / FieldTextSize, 1.0f); }

Float segmentWidth() { return ImGui::GetFrameHeight() + ImGui::GetStyle().FramePadding.x; }

// Of the item before, also where it is disabled.
bool isHovered() { return ImGui::IsItemHovered(ImGuiHoveredFlags_AllowWhenDisabled); }

void tooltip(const char* text) {
    if(!isHovered()) return;
    ImGui::PushStyleVar(ImGuiStyleVar_Alpha, OnAlpha);
    ImGui::SetTooltip("%s", text);
    ImGui::PopStyleVar();
}

// Part of a row of buttons that nearly touch; the corners are those at its ends.
bool segment(const char* icon, ImDrawFlags corners, Float alpha) {
    const ImVec2 text = ImGui::CalcTextSize(icon);
    const ImVec2 size{segmentWidth(), ImGui::GetFrameHeight()};
    const ImVec2 min = ImGui::GetCursorScreenPos();
    ImGui::PushID(icon);
    const bool isClicked = ImGui::InvisibleButton("##segment", size);
    ImGui::PopID();
    const ImGuiCol color = ImGui::IsItemActive() ? ImGuiCol_ButtonActive
        : ImGui::IsItemHovered()                 ? ImGuiCol_ButtonHovered
                                                 : ImGuiCol_Button;
    ImDrawList& list = *ImGui::GetWindowDrawList();
    list.AddRectFilled(min, {min.x + size.x, min.y + size.y}, ImGui::GetColorU32(color, alpha),
        ImGui::GetStyle().FrameRounding, corners);
    list.AddText({min.x + (size.x - text.x) * 0.5f, min.y + (size.y - text.y) * 0.5f},
        ImGui::GetColorU32(ImGuiCol_Text, alpha), icon);
    return isClicked;
}

class ToolbarDrawing {
public:
    // The room is counted from the window's corner, its padding on the other side left out.
    explicit ToolbarDrawing(const ToolbarState& state, const Vector2& room):
        _state{state}, _room{room}, _result{state.gizmo, state.flySpeed} {}

    ToolbarResult draw() {
        _result.isNew = ImGui::IsWindowAppearing();
        GizmoSettings& gizmo = _result.gizmo;
        operations();
        if(place(segmentWidth())) space();
        const Float snapWidth = segmentWidth() + SegmentGap + fieldWidth();
        if(place(snapWidth))
            snap("##snapTrans", TranslationStepIcon, "Snap translation (Hold Ctrl)", gizmo.snapTranslationEnabled,
                TranslationSteps, gizmo.snapTranslation);
        if(place(snapWidth))
            snap("##snapRot", RotationStepIcon, "Snap rotation (Hold Ctrl)", gizmo.snapRotationEnabled, RotationSteps,
                gizmo.snapRotation);
        if(place(snapWidth))
            snap("##snapScale", ScaleStepIcon, "Snap scaling (Hold Ctrl)", gizmo.snapScaleEnabled, ScaleSteps,
                gizmo.snapScale);
        if(_state.hasPhysics && place(segmentWidth())) physics();
        if(place(segmentWidth() + fieldWidth())) flySpeed();
        return _result;
    }

private:
    void operations() {
        operation(TranslateIcon, GizmoOperation::Translate, ImDrawFlags_RoundCornersLeft, "Translation Gizmo (G)");
        ImGui::SameLine(0.0f, SegmentGap);
        operation(RotateIcon, GizmoOperation::Rotate, ImDrawFlags_RoundCornersNone, "Rotation Gizmo (R)");
        ImGui::SameLine(0.0f, SegmentGap);
        operation(
            ScaleIcon, GizmoOperation::Scale, ImDrawFlags_RoundCornersRight, "Scaling Gizmo (S)\n(Only local space)");
    }

    void operation(const char* icon, GizmoOperation which, ImDrawFlags corners, const char* text) {
        if(segment(icon, corners, _state.gizmo.gizmoOperation == which ? OnAlpha : OffAlpha)) {
            _result.gizmo.gizmoOperation = which;
            if(which == GizmoOperation::Scale) _result.gizmo.gizmoSpace = GizmoSpace::Local;
        }
        noteChoice(text);
    }

    void space() {
        const bool isWorld = _state.gizmo.gizmoSpace == GizmoSpace::World;
        ImGui::BeginDisabled(_state.gizmo.gizmoOperation == GizmoOperation::Scale);
        if(segment(isWorld ? WorldIcon : LocalIcon, ImDrawFlags_RoundCornersAll, OnAlpha))
            _result.gizmo.gizmoSpace = isWorld ? GizmoSpace::Local : GizmoSpace::World;
        ImGui::EndDisabled();
        noteChoice("Toggle between World and Local Space\n(G-G or R-R)");
    }

    void noteChoice(const char* text) {
        if(isHovered()) _result.isChoiceHovered = true;
        tooltip(text);
    }

    template<class Step>
    void snap(const char* id, const char* icon, const char* text, bool& isEnabled,
        Containers::ArrayView<const Float> steps, Step& step) {
        ImGui::BeginGroup();
        if(segment(icon, ImDrawFlags_RoundCornersLeft, isEnabled ? OnAlpha : OffAlpha)) isEnabled = !isEnabled;
        ImGui::SameLine(0.0f, SegmentGap);
        chooseStep(id, steps, step);
        ImGui::EndGroup();
        tooltip(text);
    }

    static Float first(Float step) { return step; }
    static Float first(const Vector3& step) { return step.x(); }

    template<class Step> void chooseStep(const char* id, Containers::ArrayView<const Float> steps, Step& step) {
        const Float current = first(step);
        ImGui::SetNextItemWidth(fieldWidth());
        if(!ImGui::BeginCombo(id, textOf(current))) return;
        for(const Float value: steps) {
            if(ImGui::Selectable(textOf(value), value == current)) step = Step{value};
            if(value == current) ImGui::SetItemDefaultFocus();
        }
        ImGui::EndCombo();
    }

    // Until the next call.
    const char* textOf(Float value) {
        const std::size_t length = Utility::formatInto(_text, "{}", value);
        _text[std::min(length, sizeof(_text) - 1)] = '\0';
        return _text;
    }

    void physics() {
        if(_state.isSimulating) {
            ImGui::PushStyleColor(ImGuiCol_Button, SimulatingColor);
            ImGui::PushStyleColor(ImGuiCol_ButtonHovered, SimulatingHoveredColor);
        }
        _result.togglesSimulation = segment(PhysicsIcon, ImDrawFlags_RoundCornersAll, OnAlpha);
        if(_state.isSimulating) ImGui::PopStyleColor(2);
        tooltip("Simulate PhysX (Alt + s)");
    }

    void flySpeed() {
        ImGui::BeginGroup();
        ImGui::AlignTextToFramePadding();
        ImGui::TextUnformatted(CameraIcon);
        ImGui::SameLine();
        ImGui::SetNextItemWidth(fieldWidth());
        ImGui::DragFloat("##cameraSpeed", &_result.flySpeed, FlySpeedPerPixel, _state.flySpeedMin, _state.flySpeedMax,
            "%.3f", ImGuiSliderFlags_AlwaysClamp);
        ImGui::EndGroup();
        tooltip("Camera fly speed");
    }

    // Behind the group before, or below it where there is no room for so much. False where there is none at all, and from
    // then on.
    bool place(Float width) {
        const Float end = ImGui::GetItemRectMax().x - ImGui::GetWindowPos().x + ImGui::GetStyle().ItemSpacing.x + width;
        if(end <= _room.x())
            ImGui::SameLine();
        else if(ImGui::GetCursorPosY() + ImGui::GetFrameHeight() > _room.y())
            _isFull = true;
        return !_isFull;
    }

    const ToolbarState& _state;
    const Vector2 _room;
    bool _isFull = false;
    ToolbarResult _result;
    char _text[32];
};

}

ToolbarResult drawToolbar(const ToolbarState& state, const Range2D& view) {
    const ImGuiStyle& style = ImGui::GetStyle();
    const Float below = 4.0f * style.FramePadding.y + 2.0f * ImGui::GetTextLineHeight();
    const Vector2 room = Vector2{view.sizeX(), (view.sizeY() - below) * LargestPartOfHeight} -
        UserInterface::vector(style.WindowPadding);
    const Vector2 least{style.WindowPadding.x + 3.0f * segmentWidth(), style.WindowPadding.y + ImGui::GetFrameHeight()};
    if(room.x() < least.x() || room.y() < least.y()) return {state.gizmo, state.flySpeed};

    ImGui::SetNextWindowPos({view.left(), view.bottom() + below});
    ImGui::PushStyleVar(ImGuiStyleVar_Alpha, WindowAlpha);
    ImGui::Begin("##toolbar", nullptr,
        ImGuiWindowFlags_NoTitleBar | ImGuiWindowFlags_NoResize | ImGuiWindowFlags_NoMove |
            ImGuiWindowFlags_NoScrollbar | ImGuiWindowFlags_AlwaysAutoResize);
    ImGui::PushStyleVar(ImGuiStyleVar_Alpha, OnAlpha);
    ToolbarResult result = ToolbarDrawing{state, room}.draw();
    result.isLeft = ImGui::IsWindowFocused() && !ImGui::IsAnyItemActive();
    ImGui::PopStyleVar();
    ImGui::End();
    ImGui::PopStyleVar();
    return result;
}

} // namespace VantrelEngine
