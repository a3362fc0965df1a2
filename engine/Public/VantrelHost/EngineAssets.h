#pragma once

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class ResourceManager;

// Adds the asset "default": the engine's own shader sources, which are compiled in.
CORRADE_VISIBILITY_EXPORT void addEngineAssets(ResourceManager& files);

} // namespace VantrelEngine
