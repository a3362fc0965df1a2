#pragma once

#include <optional>
#include <string>
#include <vector>

#include "Import/Converter/Messages.h"
#include "Import/Converter/Model.h"

namespace VantrelImport {

// Whether a file with this extension, in lower case and without the point, is an image that can be imported by itself.
bool isImageExtension(const std::string& extension);

// An image that the editor can decode, as it is. None, and a reason, for any other.
std::optional<ImageData> usableImage(std::string name, std::vector<char> bytes, std::string& reason);

// Adds such an image to the model; its position. Nothing, and a warning, for any other.
int addImage(Model& model, std::string name, std::vector<char> bytes, Messages& messages);

} // namespace VantrelImport
