#include "Application/FileDrop.h"

#include <imgui.h>

#include "Application/InputRouter.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// The target accepts in one frame what it is given in the next.
constexpr int DragFrames = 3;
constexpr const char* PayloadType = "DND_ASSET_CELL";

} // namespace

void FileDrop::start(std::string file, const Vector2& position) {
    _file = std::move(file);
    _position = position;
    _frame = 0;
}

void FileDrop::beginFrame(InputRouter& input) {
    if(!isUnderWay()) return;
    input.warpTo(_position);
    input.holdForInterface(_frame < DragFrames);
}

void FileDrop::draw() const {
    if(!isUnderWay()) return;
    constexpr ImGuiDragDropFlags flags = ImGuiDragDropFlags_SourceExtern | ImGuiDragDropFlags_SourceNoPreviewTooltip;
    if(!ImGui::BeginDragDropSource(flags)) return;
    ImGui::SetDragDropPayload(PayloadType, _file.data(), _file.size() + 1);
    ImGui::EndDragDropSource();
}

void FileDrop::endFrame() {
    if(isUnderWay() && ++_frame > DragFrames) _frame = -1;
}

} // namespace VantrelEngine
