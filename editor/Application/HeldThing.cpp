#include "Application/HeldThing.h"

#include <utility>

#include <imgui.h>

#include "Application/DragFromOutside.h"

namespace VantrelEngine {

void HeldThing::take(std::string type, std::string text) {
    _type = std::move(type);
    _text = std::move(text);
}

void HeldThing::draw() {
    if(!ImGui::IsMouseDown(ImGuiMouseButton_Left)) letGo();
    if(!_type.empty()) dragFromOutside(_type, _text);
}

} // namespace VantrelEngine
