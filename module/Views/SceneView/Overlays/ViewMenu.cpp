#include "Views/SceneView/Overlays/ViewMenu.h"

#include <Vantrel/EditorData/VantrelEditor.h>

#include "Views/UserInterface.h"

namespace VantrelEngine {

namespace {

// Whether it was clicked.
bool toggle(const char* label, SharedState& state, DebugDisplay which) {
    std::uint8_t& display = state.display(which);
    if(!ImGui::MenuItem(label, nullptr, display != 0)) return false;
    display = !display;
    return true;
}

}

ViewMenuResult drawViewMenu(RenderMode mode, SharedState& state) {
    ViewMenuResult result{mode};
    if(!ImGui::BeginMenuBar()) return result;
    /* Kept: plain items, so no check mark shows the mode. */
    if(ImGui::BeginMenu("Render Type")) {
        if(ImGui::MenuItem("Shaded")) result.mode = RenderMode::Shaded;
        if(ImGui::MenuItem("Object ID")) result.mode = RenderMode::ObjectId;
        if(ImGui::MenuItem("Mesh Visualization")) result.mode = RenderMode::MeshVisualization;
        ImGui::EndMenu();
    }
    if(ImGui::BeginMenu("Debug")) {
        toggle("Objects", state, DebugDisplay::Objects);
        result.collisionShapesOff = toggle("Collision Shapes", state, DebugDisplay::CollisionShapes) &&
            !state.display(DebugDisplay::CollisionShapes);
        toggle("Freeze Culling Frustum", state, DebugDisplay::FreezeCullingFrustum);
        ImGui::EndMenu();
    }
    ImGui::EndMenuBar();
    return result;
}

} // namespace VantrelEngine
