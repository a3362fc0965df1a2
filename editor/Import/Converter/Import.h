#pragma once

#include <cstdint>
#include <string>

#include "Import/Converter/Messages.h"

namespace VantrelImport {

// Reads a model or an image and writes what a project can take of it into a folder that is there and empty. Throws
// Unusable where nothing of the file can be used, or where that would have more bytes than the maximum.
void importFile(const std::string& source, const std::string& output, std::uint64_t maximumOutput, Messages& messages);

} // namespace VantrelImport
