// What the plugin has. Both groups are registered when it is loaded and unregistered when it is unloaded.

#include "Shaders/ShaderGroups.h"

#include <Corrade/Utility/Resource.h>

// From outside of any namespace, as the macros declare what they call.
static void registerEditorShaders() { CORRADE_RESOURCE_INITIALIZE(VantrelEditorShaders) }
static void registerEngineShaders() { CORRADE_RESOURCE_INITIALIZE(VantrelEngineShaders) }

namespace VantrelEngine::Shaders {

void registerShaderGroup(ShaderGroup group) {
    group == ShaderGroup::Editor ? registerEditorShaders() : registerEngineShaders();
}

void releaseShaderGroup(ShaderGroup) {}

}
