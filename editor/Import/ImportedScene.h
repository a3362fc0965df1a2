#pragma once

#include <string>
#include <vector>

#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

// What a converter made of a file: parts of a project, with ids of their own, and the files that they name.
struct ImportedScene {
    // Sections as in a project, see docs/project-format.md; those that are missing are there, empty. References lead to
    // ids in here.
    JsonDocument document;
    // As it can be shown: of the file that it was made of, without the end.
    std::string name;
    // Id of the image that surrounds the scene; empty for none.
    std::string environment;
    // Where the files are that "file" names, relative to it.
    std::string folder;
};

// Sections of an import in an order in which those that are used come before those that use them; objects are used by
// skins and animations, and use them, too.
extern const char* const ImportedSections[9];
constexpr const char* ImportFileName = "import.json";

// Reads the import in a folder, trusting nothing: the rules of a project's document are kept, with what would be repaired
// or warned of there refused here; every reference leads to something; files are regular ones in "files/", not larger
// than a project may have. Returns an empty text, or one line.
std::string readImportedScene(const std::string& folder, ImportedScene& scene);

} // namespace VantrelEngine
