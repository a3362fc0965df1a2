#include <VantrelHost/EngineAssets.h>

#include <memory>

#include "Renderer/DefaultAssets/DefaultAssets.h"

namespace VantrelEngine {

void addEngineAssets(ResourceManager& files) { files.addAsset("default", std::make_unique<DefaultAssets>()); }

} // namespace VantrelEngine
