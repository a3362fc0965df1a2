#pragma once

#include <Corrade/Utility/VisibilityMacros.h>

#include <Vantrel/EngineData/ResourceMaps.h>
#include <Vantrel/EngineData/Scene.h>
#include <Vantrel/EngineData/SceneResources.h>
#include <Vantrel/EngineData/SceneRevisions.h>

namespace VantrelEngine {

// The scene that is edited, compiled: its objects and components, its resources, and what of them changed.
class CORRADE_VISIBILITY_EXPORT EditorSceneData {
public:
    explicit EditorSceneData();
    ~EditorSceneData();

    Scene& main() { return _main; }
    const Scene& main() const { return _main; }

    SceneResources& resources() { return _resources; }
    const SceneResources& resources() const { return _resources; }

    // From the document's ids to the resources' indices, and who uses them.
    ResourceMaps& resourceMaps() { return _resourceMaps; }

    // Global revision and aspect counters.
    SceneRevisions& revisions() { return _revisions; }
    const SceneRevisions& revisions() const { return _revisions; }

    // Set where an object of the document changed, cleared whenever objects were compiled.
    void setAssetTypeDirty(bool dirty) { _isAssetTypeDirty = dirty; }
    bool isAssetTypeDirty() const { return _isAssetTypeDirty; }

private:
    // Outlive the objects of the compiler that use them.
    ResourceMaps _resourceMaps;
    SceneResources _resources;
    SceneRevisions _revisions;
    Scene _main;
    bool _isAssetTypeDirty = false;
};

} // namespace VantrelEngine
