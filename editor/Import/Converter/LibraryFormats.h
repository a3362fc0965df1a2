#pragma once

#include <string>

namespace Assimp {
class Importer;
}

namespace VantrelImport {

// Whether files with this extension, in lower case and without the point, are read by Assimp: Wavefront OBJ, FBX, PLY,
// STL and Collada. It knows many more; what is not asked for is not switched on.
bool isLibraryExtension(const std::string& extension);

// Leaves an importer the one reader that is for the extension; others would be tried by what is in the file.
void keepOneReader(Assimp::Importer& importer, const std::string& extension);

} // namespace VantrelImport
