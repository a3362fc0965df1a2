#pragma once

#include <vector>

#include "Import/Converter/AssetFolder.h"
#include "Import/Converter/Messages.h"
#include "Import/Converter/Model.h"

namespace VantrelImport {

// The scene of a glTF 2.0 file, text or binary. Where the bounds of one thing in it are broken, that thing is left out
// with a warning. Throws Unusable where nothing of the file can be used.
//
// https://registry.khronos.org/glTF/specs/2.0/glTF-2.0.html, with KHR_lights_punctual, KHR_materials_emissive_strength,
// KHR_materials_pbrSpecularGlossiness, KHR_materials_unlit, KHR_mesh_quantization and KHR_texture_transform.
void readGltf(std::vector<char> bytes, const AssetFolder& folder, Model& model, Messages& messages);

} // namespace VantrelImport
