#pragma once

#include <string>

#include "Import/Converter/Messages.h"
#include "Import/Converter/Model.h"
#include "Import/Converter/OutputFolder.h"

namespace VantrelImport {

// Writes a model into a folder: a file for each mesh, skin, animation and image, and "import.json" with sections as a
// project has them, ids being local to it. Below an object named after the file stand the objects of the model. The same
// model gives the same bytes.
void writeModel(const Model& model, const std::string& name, OutputFolder& output, Messages& messages);

// The same for one image that is no part of a model: an image and a texture. One of a high dynamic range is also named as
// the environment.
void writeImage(const Model& model, const std::string& name, OutputFolder& output);

} // namespace VantrelImport
