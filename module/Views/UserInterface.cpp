#include "Views/UserInterface.h"

#include <cstdint>

#include <Magnum/Math/Functions.h>

namespace VantrelEngine::UserInterface {

using namespace Magnum;

namespace {

// A texture's name as the UI library wants it: a pointer or a number, depending on its version.
template<class T> T textureId(UnsignedInt texture) {
    if constexpr(std::is_pointer<T>::value)
        return reinterpret_cast<T>(std::uintptr_t(texture));
    else
        return T(texture);
}

}

bool beginView(const char* name, bool& isOpen, ImGuiWindowFlags flags, const std::optional<Range2D>& pane) {
    if(pane) {
        ImGui::SetNextWindowPos(vector(pane->min()), ImGuiCond_Always);
        // Zero would be as large as the contents.
        const Vector2 size = Math::max(pane->size(), Vector2{1.0f});
        ImGui::SetNextWindowSize(vector(size), ImGuiCond_Always);
        flags |= ImGuiWindowFlags_NoMove | ImGuiWindowFlags_NoResize | ImGuiWindowFlags_NoCollapse |
            ImGuiWindowFlags_NoBringToFrontOnFocus | ImGuiWindowFlags_NoSavedSettings;
    } else {
        const ImVec2 display = ImGui::GetIO().DisplaySize;
        ImGui::SetNextWindowPos({display.x - 300.0f, display.y - 300.0f}, ImGuiCond_FirstUseEver, {1.0f, 1.0f});
    }
    return ImGui::Begin(name, &isOpen, flags);
}

bool isDocked(const std::optional<Range2D>& pane) {
#ifdef IMGUI_HAS_DOCK
    return pane || ImGui::IsWindowDocked();
#else
    return bool(pane);
#endif
}

Vector2i wholePoint(const ImVec2& place) {
    return Vector2i{Math::clamp(vector(place), Vector2{-1.0e6f}, Vector2{1.0e6f})};
}

void image(UnsignedInt texture, const Vector2& size) {
    ImGui::Image(textureId<ImTextureID>(texture), vector(size), {0.0f, 1.0f}, {1.0f, 0.0f});
}

} // namespace VantrelEngine::UserInterface
