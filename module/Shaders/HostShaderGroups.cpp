// What the host has: the engine group, without which it could not draw before the plugin is loaded and after it is
// unloaded.

#include <Corrade/Utility/Assert.h>
#include <Corrade/Utility/Resource.h>

#include "Shaders/ShaderGroups.h"

// From outside of any namespace, as the macros declare what they call.
static void registerEngineShaders() { CORRADE_RESOURCE_INITIALIZE(VantrelHostEngineShaders) }
static void unregisterEngineShaders() { CORRADE_RESOURCE_FINALIZE(VantrelHostEngineShaders) }

namespace VantrelEngine::Shaders {

void registerShaderGroup(ShaderGroup group) {
    CORRADE_ASSERT(group == ShaderGroup::Engine, "registerShaderGroup(): the host has the engine group only", );
    registerEngineShaders();
}

void releaseShaderGroup(ShaderGroup) { unregisterEngineShaders(); }

}
