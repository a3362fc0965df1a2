#include "Views/SceneView/PhysicsSimulation.h"

#include <Corrade/Utility/Debug.h>
#include <Vantrel/EditorData/EditorData.h>
#include <Vantrel/EditorData/VantrelEditor.h>
#include <Vantrel/EngineData/JsonObject.h>

#include "AssetCompiler.h"

namespace VantrelEngine {

using namespace Corrade;

bool hasPhysics(const EditorData& data) {
    return ValueAccess{data.project()}["settings"]["physx"]["enable"].readValue().asBool();
}

void simulatePhysics(bool on, SharedState& state) {
    state.display(DebugDisplay::SimulatePhysX) = on;
    Utility::Debug{} << (on ? "Started simulating physics" : "Stopped simulating physics");
    if(on) return;
    state.assetCompiler->compileAll(true);
    PhysXManager& bodies = state.data->scene().main().bodies;
    bodies.initComponents();
    bodies.doFalseUpdate();
}

} // namespace VantrelEngine
