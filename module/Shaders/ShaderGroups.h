#pragma once

namespace VantrelEngine::Shaders {

// Groups of shader sources that are compiled into the library that this is linked into.
enum class ShaderGroup {
    // "VantrelEditorShaders": what the editor draws over the scene. The plugin only.
    Editor,
    // "VantrelEngineShaders": what the engine needs, too. The plugin and the host, each with a record of its own.
    Engine,
};

// Makes the group known to the process. Expects that it is not.
void registerShaderGroup(ShaderGroup group);

// Called when everything has been read from a group that registerShaderGroup() registered. The record of the plugin
// stays until the plugin is unloaded, that of the host goes at once: otherwise the group would outlive the plugin.
void releaseShaderGroup(ShaderGroup group);

}
