#include "Application/FileDrop.h"

#include <Vantrel/EditorUtilities/PayloadTypes.h>
#include <imgui.h>

#include "Application/DragFromOutside.h"
#include "Application/InputRouter.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

// The target accepts in one frame what it is given in the next.
constexpr int DragFrames = 3;

} // namespace

void FileDrop::beginFrame(InputRouter& input, bool mayBegin) {
    if(!isPlaying()) {
        if(_waiting.empty() || !mayBegin) return;
        _frame = 0;
        _isTaken = false;
    }
    input.warpTo(_waiting.front().position);
    input.holdForInterface(_frame < DragFrames);
}

void FileDrop::draw() const {
    if(!isPlaying()) return;
    dragFromOutside(FilePayloadType, _waiting.front().file);
}

std::string FileDrop::endFrame() {
    if(!isPlaying()) return {};
    const ImGuiPayload* const payload = ImGui::GetDragDropPayload();
    if(payload && payload->IsDelivery()) _isTaken = true;
    if(++_frame <= DragFrames) return {};
    _frame = -1;
    std::string file = std::move(_waiting.front().file);
    _waiting.pop_front();
    return _isTaken ? std::string{} : file;
}

} // namespace VantrelEngine
