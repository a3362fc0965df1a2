#pragma once

#include <vector>

#include <Vantrel/EngineData/SceneResources.h>

#include "Data/Resources/ResourceEntry.h"

namespace VantrelEngine {

// The list "parameters" of a shader. One without a usable name or type is reported and left out.
std::vector<ShaderParameter> readParameters(const ResourceEntry& shader);

// The member of a parameter's name, and of its type, which is not a texture.
Magnum::Vector4 readParameterValue(const ResourceEntry& entry, Corrade::Containers::StringView key, ParameterType type,
    const Magnum::Vector4& missing);

bool operator==(const ShaderParameter& a, const ShaderParameter& b);

} // namespace VantrelEngine
