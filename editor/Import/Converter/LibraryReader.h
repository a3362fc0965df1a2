#pragma once

#include <string>
#include <vector>

#include "Import/Converter/AssetFolder.h"
#include "Import/Converter/Messages.h"
#include "Import/Converter/Model.h"

namespace VantrelImport {

// Whether files with this extension, in lower case and without the point, are read by Assimp: Wavefront OBJ, FBX, PLY,
// STL and Collada. It knows many more; what is not asked for is not switched on.
bool isLibraryExtension(const std::string& extension);

// The scene of such a file, upright and in metres where the file says what its axes and units are. Throws Unusable where
// nothing of it can be used.
void readWithLibrary(
    std::vector<char> bytes, const std::string& fileName, const AssetFolder& folder, Model& model, Messages& messages);

} // namespace VantrelImport
