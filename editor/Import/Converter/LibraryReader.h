#pragma once

#include <string>
#include <vector>

#include "Import/Converter/AssetFolder.h"
#include "Import/Converter/Messages.h"
#include "Import/Converter/Model.h"

namespace VantrelImport {

// The scene of a file of one of the formats of LibraryFormats.h, upright and in metres where the file says what its axes and units are. Throws Unusable where
// nothing of it can be used.
void readWithLibrary(
    std::vector<char> bytes, const std::string& fileName, const AssetFolder& folder, Model& model, Messages& messages);

} // namespace VantrelImport
