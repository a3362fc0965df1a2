#include "Views/SceneView/Overlays/ViewMenu.h"

#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/Renderer/RendererDebug.h>

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

RenderMode drawRenderTypes(RenderMode mode) {
    /* Kept: plain items, so no check mark shows the mode. */
    if(ImGui::MenuItem("Shaded")) mode = RenderMode::Shaded;
    if(ImGui::MenuItem("Object ID")) mode = RenderMode::ObjectId;
    if(ImGui::MenuItem("Mesh Visualization")) mode = RenderMode::MeshVisualization;
    return mode;
}

// Whether it was clicked.
bool drawSimulation(bool hasPhysics, bool isSimulating) {
    if(hasPhysics) return ImGui::MenuItem("Simulate PhysX", "Alt + S", isSimulating);
    ImGui::TextDisabled("Simulate PhysX");
    if(ImGui::IsItemHovered()) ImGui::SetTooltip("PhysX must be enabled in the Project Settings to run simulations");
    return false;
}

}

ViewMenuResult drawViewMenu(RenderMode mode, bool hasPhysics, SharedState& state, RendererDebug& debug) {
    ViewMenuResult result{mode};
    if(!ImGui::BeginMenuBar()) return result;
    if(ImGui::BeginMenu("Render Type")) {
        result.mode = drawRenderTypes(mode);
        ImGui::EndMenu();
    }
    if(ImGui::BeginMenu("Debug")) {
        ImGui::MenuItem("Texture Atlasses", nullptr, &debug.textureOverlay);
        toggle("Objects", state, DebugDisplay::Objects);
        result.collisionShapesOff = toggle("Collision Shapes", state, DebugDisplay::CollisionShapes) &&
            !state.display(DebugDisplay::CollisionShapes);
        toggle("Overdraw", state, DebugDisplay::Overdraw);
        toggle("Freeze Culling Frustum", state, DebugDisplay::FreezeCullingFrustum);
        toggle("PhysX Shapes", state, DebugDisplay::PhysXShapes);
        result.togglesSimulation = drawSimulation(hasPhysics, state.isSimulating());
        ImGui::EndMenu();
    }
    ImGui::EndMenuBar();
    return result;
}

} // namespace VantrelEngine
