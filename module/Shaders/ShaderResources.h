#pragma once

#include <Corrade/Containers/StringView.h>
#include <Magnum/GL/Shader.h>
#include <Magnum/GL/Version.h>

#include "Shaders/ShaderGroups.h"

namespace VantrelEngine::Shaders {

// The version that all of the sources are written for, or the lowest one if the current context does not have it.
Magnum::GL::Version shaderVersion();

// Adds a file of a group behind the sources that the shader has. Registers the group if the process does not know it.
// A file that the group does not have is a broken expectation, which the library reports.
void addShaderSource(Magnum::GL::Shader& shader, ShaderGroup group, Corrade::Containers::StringView file);

// A shader of shaderVersion() with a file of a group as its only source, not compiled.
Magnum::GL::Shader loadShader(Magnum::GL::Shader::Type type, ShaderGroup group, Corrade::Containers::StringView file);

}
