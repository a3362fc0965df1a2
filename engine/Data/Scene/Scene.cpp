#include "Vantrel/EngineData/Scene.h"

namespace VantrelEngine {

Scene::Scene(std::size_t objects, std::size_t components): DynamicSceneGraph{objects, components, ManagerCount} {
    setComponentManager(Mesh, meshes);
    setComponentManager(Collision, collisions);
    setComponentManager(PhysX, bodies);
    setComponentManager(Animation, animations);
    setComponentManager(Light, lights);
    setComponentManager(Text, texts);
    setComponentManager(View, views);
    setComponentManager(Input, inputs);
    setComponentManager(JavaScript, scripts);
}

Scene::~Scene() = default;

} // namespace VantrelEngine
