#pragma once

#include <Corrade/Utility/VisibilityMacros.h>

#include <Vantrel/EngineData/AnimationManager.h>
#include <Vantrel/EngineData/CollisionManager.h>
#include <Vantrel/EngineData/DynamicSceneGraph.h>
#include <Vantrel/EngineData/InputManager.h>
#include <Vantrel/EngineData/JavaScriptManager.h>
#include <Vantrel/EngineData/LightManager.h>
#include <Vantrel/EngineData/MeshManager.h>
#include <Vantrel/EngineData/NameManager.h>
#include <Vantrel/EngineData/PhysXManager.h>
#include <Vantrel/EngineData/SceneEnvironment.h>
#include <Vantrel/EngineData/TextManager.h>
#include <Vantrel/EngineData/ViewManager.h>

namespace VantrelEngine {

// A scene: its graph, and a manager for each type of component and for each kind of name.
struct CORRADE_VISIBILITY_EXPORT Scene: DynamicSceneGraph {
    // Where the managers are registered in the graph.
    enum ManagerIndex : Magnum::UnsignedByte {
        Mesh,
        Collision,
        PhysX,
        Animation,
        Light,
        Text,
        View,
        Input,
        JavaScript
    };
    static constexpr std::size_t ManagerCount = 9;

    // Empty but for the root. Capacities are no limits.
    explicit Scene(std::size_t objects = 1, std::size_t components = 0);
    ~Scene();

    MeshManager meshes;
    CollisionManager collisions;
    PhysXManager bodies;
    AnimationManager animations;
    LightManager lights;
    TextManager texts;
    ViewManager views;
    InputManager inputs;
    JavaScriptManager scripts;

    // By object: the display name, the id in the document, and the id of the skin.
    NameManager objectNames, objectIds, skinNames;

    // Written by the host before each frame.
    SceneEnvironment environment;
    EnvironmentBaking environmentBaking;
};

} // namespace VantrelEngine
