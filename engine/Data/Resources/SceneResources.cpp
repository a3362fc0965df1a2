#include "Vantrel/EngineData/SceneResources.h"

namespace VantrelEngine {

SceneResources::SceneResources():
    images(1), textures(1), shaders(1), pipelines(1), materials(1), meshes(1), skins(1), animations(1), fonts(1) {}

} // namespace VantrelEngine
