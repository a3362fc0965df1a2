#pragma once

#include <array>
#include <optional>
#include <string>

#include <Corrade/Containers/Pair.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/DualQuaternion.h>
#include <Magnum/Math/Matrix4.h>
#include <Magnum/Math/Vector3.h>

#include <Vantrel/EditorData/EditorSceneData.h>
#include <Vantrel/EditorData/ObjectMarks.h>
#include <Vantrel/EngineData/BitSetView.h>
#include <Vantrel/EngineData/ProjectFile.h>
#include <Vantrel/EngineData/ResourceManager.h>
#include <Vantrel/Renderer/RendererDebug.h>
#include <Vantrel/Renderer/ShadowsData.h>

namespace VantrelEngine {

// How the scene view was left, so that it goes on like that after its module was loaded again.
struct SceneViewRecord {
    // The camera's local transformation, and the distance to what it turns about, scene units.
    Magnum::DualQuaternion camera;
    Magnum::Float orbitDistance = 3.0f;
    // Scene units per second.
    Magnum::Float flySpeed = 3.0f;
    Magnum::UnsignedInt renderMode = 0;
    // What is shown of the renderer.
    RendererDebug rendererDebug;
    // What the camera saw when the culling was frozen: the matrix, the slots of lights from the first to the one past the
    // last, and where they cast shadows. No shadows where nothing is frozen.
    Magnum::Matrix4 frozenMatrix;
    Corrade::Containers::Pair<Id, Id> frozenLights{0, 0};
    std::optional<ShadowsData> frozenShadows;
    Magnum::UnsignedInt gizmoOperation = 0;
    Magnum::UnsignedInt gizmoSpace = 1;
    bool snapTranslationEnabled = false;
    bool snapRotationEnabled = false;
    bool snapScaleEnabled = false;
    // Degrees.
    Magnum::Float snapRotation = 30.0f;
    Magnum::Vector3 snapTranslation{0.5f};
    Magnum::Vector3 snapScale{0.1f};
};

// What is edited, and what of it is selected. Outlives the views.
class CORRADE_VISIBILITY_EXPORT EditorData {
public:
    explicit EditorData();
    ~EditorData();
    EditorData(const EditorData&) = delete;
    EditorData& operator=(const EditorData&) = delete;

    // The project document.
    ProjectFile& project() { return _project; }
    const ProjectFile& project() const { return _project; }
    // The project's files.
    ResourceManager& resources() { return _resources; }
    EditorSceneData& scene() { return _scene; }
    const EditorSceneData& scene() const { return _scene; }

    // The selected objects of the main scene, by id. Constant time, but that the first one is searched 64 ids a step.
    // An id that no object has is selected by no function, the root neither.
    BitSetView selection() const { return _selection; }
    // With additive set, the others stay selected. A locked object is not selected.
    void selectObject(Id object, bool additive);
    void deselectObject(Id object);
    bool isSelected(Id object) const { return _selection.isSet(object); }
    // The one of the least id.
    std::optional<Id> firstSelectedObject() const;

    // How many objects selectObject() was asked for since the last call that are locked, and the last one of them.
    struct Refused {
        std::size_t count = 0;
        Id object = NoObject;
    };
    Refused takeRefused();

    // What is hidden or locked.
    ObjectMarks& marks() { return _marks; }
    const ObjectMarks& marks() const { return _marks; }

    // Where the editor's camera looks, degrees. Pitch in [-90, 90], yaw in (-360, 360). At first towards the origin from
    // (3, 3, 3).
    Magnum::Float cameraPitch = -35.264f;
    Magnum::Float cameraYaw = 45.0f;

    // Another number for each project that is opened.
    Magnum::UnsignedInt projectNumber = 0;

    // Drawn at random: another number for each editor.
    const Magnum::UnsignedLong editorNumber;

    // Where the project was opened or saved last; empty for none.
    std::string projectPath;

    // Written by the scene view when its state is saved.
    std::optional<SceneViewRecord> sceneView;

    // How the project names its objects: 1 where the ids are UUIDs of 36 characters, 0 where they are short.
    int objectIdMode = 0;

private:
    ProjectFile _project;
    ResourceManager _resources;
    EditorSceneData _scene;
    std::array<Magnum::UnsignedLong, BitSetView::wordCount(MaxObjects + 1)> _selectionWords{};
    BitSetView _selection;
    ObjectMarks _marks;
    Refused _refused;
};

} // namespace VantrelEngine
