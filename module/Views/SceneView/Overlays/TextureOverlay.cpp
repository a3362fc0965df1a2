#include "Views/SceneView/Overlays/TextureOverlay.h"

#include <cfloat>

#include <Magnum/Math/Functions.h>
#include <Vantrel/Renderer/RendererDebug.h>

#include "Views/UserInterface.h"

namespace VantrelEngine {

using namespace Magnum;

namespace {

void drawStatistics(const TileStackTextureAtlas::Statistics& statistics) {
    ImGui::Text("tiles to add:\t\t\t%zu", statistics.tilesToAdd);
    ImGui::Text("tiles active:\t\t\t%zu", statistics.tilesActive);
    ImGui::Text("tiles locked:\t\t\t%zu", statistics.tilesLocked);
    ImGui::Text("tiles to remove:\t\t%zu", statistics.tilesToRemove);
    ImGui::Text("tiles to upload:\t\t%zu", statistics.tilesToUpload);
    ImGui::Text("cache capacity:\t\t%zu", statistics.cacheCapacity);
    ImGui::Text("compact list size:\t%zu", statistics.compactListSize);
}

// Of the window: a title, the level and five switches, and eight lines of text below a gap.
Float height() {
    const ImGuiStyle& style = ImGui::GetStyle();
    return ImGui::GetFrameHeight() + 2.0f * style.WindowPadding.y + 6.0f * ImGui::GetFrameHeightWithSpacing() +
        8.0f * ImGui::GetTextLineHeightWithSpacing();
}

// At the top right of the view, the first time; higher where it would reach beyond the display, but never over the menu
// that it is switched off with. What has no room then is scrolled to.
void placeFirst() {
    const Vector2 view = UserInterface::vector(ImGui::GetWindowPos());
    const Float margin = ImGui::GetFrameHeight(), display = ImGui::GetIO().DisplaySize.y;
    const Float top = view.y() + Math::clamp((display - view.y() - height()) / margin, 2.0f, 4.0f) * margin;
    ImGui::SetNextWindowPos({view.x() + ImGui::GetWindowWidth() - margin, top}, ImGuiCond_FirstUseEver, {1.0f, 0.0f});
    ImGui::SetNextWindowSizeConstraints({0.0f, 0.0f}, {FLT_MAX, Math::max(display - top, 8.0f * margin)});
}

}

void drawTextureOverlay(RendererDebug& debug, const TileStackTextureAtlas::Statistics& statistics) {
    if(!debug.textureOverlay) return;
    placeFirst();
    if(ImGui::Begin("Texture Overlay", nullptr, ImGuiWindowFlags_AlwaysAutoResize)) {
        ImGui::InputInt("mip", &debug.mipLevel, 1, 100);
        ImGui::Checkbox("texture atlas", &debug.textureAtlas);
        ImGui::Checkbox("virtual atlas", &debug.virtualAtlas);
        ImGui::Checkbox("tile feedback", &debug.tileFeedback);
        ImGui::Checkbox("streaming cache", &debug.streamingCache);
        ImGui::Checkbox("shadow atlas", &debug.shadowAtlas);
        ImGui::Spacing();
        ImGui::TextDisabled("Statistics");
        drawStatistics(statistics);
    }
    ImGui::End();
}

} // namespace VantrelEngine
