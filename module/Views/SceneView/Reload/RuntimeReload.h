#pragma once

#include <Vantrel/EngineData/SceneRevisions.h>

#include "Views/SceneView/EditorMaterials.h"
#include "Views/SceneView/Reload/ReloadPlan.h"

namespace VantrelEngine {

class EditorData;
class ViewCamera;
class WebGL2Renderer;
struct SharedState;

// What a reload reads and writes; everything outlives the call.
struct ReloadTargets {
    EditorData& data;
    SharedState& state;
    WebGL2Renderer& renderer;
    ViewCamera& camera;
    EditorMaterials& materials;
};

// Brings a renderer up to date with the scene, stage by stage, and only those whose part of the scene changed.
class RuntimeReload {
public:
    // Whether the scene changed since the last reload, or there was none.
    bool isDue(const SceneRevisions& revisions) const { return isReloadDue(revisions, _seen); }
    // Everything is made again at the next reload: the renderer is a new one.
    void forget() { _seen = {}; }

    // Aborts after one line where a compressed image has another number of tiles than of hashes.
    void run(const ReloadTargets& targets);

private:
    void reload(const ReloadTargets& targets);
    void reloadSettings(const ReloadTargets& targets);
    void reloadImages(const ReloadTargets& targets);
    void reloadPipelines(const ReloadTargets& targets);
    void reloadFonts(const ReloadTargets& targets, bool areThere);
    void reloadBatches(const ReloadTargets& targets);
    void reloadDraws(const ReloadTargets& targets);
    void reloadMaterials(const ReloadTargets& targets);
    void reloadPhysics(const ReloadTargets& targets);

    ReloadSeen _seen;
    PipelineCounts _counts;
};

} // namespace VantrelEngine
