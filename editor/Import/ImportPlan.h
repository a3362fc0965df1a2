#pragma once

#include <set>
#include <string>
#include <vector>

#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

struct ImportedScene;
class ProjectFile;

// What an import adds to a project.
struct ImportPlan {
    struct Entry {
        std::string section, id;
        // In the import's document, with the ids and names that it has in the project.
        JsonValue* value;
    };

    // Empty, or one line; nothing else counts then.
    std::string error;
    std::vector<Entry> entries;
    // Ids of the objects that have no parent.
    std::vector<std::string> roots;
    std::size_t objectCount = 0;
    // Id in the project of the image that surrounds the scene; empty for none, and where the project has one.
    std::string environment;
};

// Where the files of imports are, below the project's folder.
constexpr const char* ImportedFolder = "imported/";

// Names in the import's folder "files/" of the files that its entries name: also of those that the project has, whose
// files may be lost.
std::set<std::string> filesOf(const ImportedScene& scene);

// Gives each entry of an import an id of the project, and a name that no other of its section has; references follow.
// A resource that the project has already, but for its name, stands for the imported one. Of the objects, only those
// without a parent get another name: the others are known within their tree. The project stays as it is; the import is
// changed.
ImportPlan planImport(ImportedScene& scene, const ProjectFile& project, bool usesUuids);

} // namespace VantrelEngine
