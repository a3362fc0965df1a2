#pragma once

#include <vector>

#include "Import/Converter/GltfFile.h"
#include "Import/Converter/Messages.h"

namespace VantrelImport {

// Adds the animations of the file to the model. Places are those of the file's nodes in the model, or Nothing. Cubic
// splines become keys at short distances.
void readGltfAnimations(GltfFile& file, const std::vector<int>& places, Model& model, Messages& messages);

} // namespace VantrelImport
