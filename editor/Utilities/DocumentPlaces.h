#pragma once

#include <string>
#include <unordered_map>

#include "Utilities/ObjectPlacement.h"

namespace VantrelEngine {

class ProjectFile;

// Where objects stand in the scene as the document says it, whatever a simulation does with them meanwhile. Looks once at
// each object and its ancestors. The project outlives it and stays as it is.
class DocumentPlaces {
public:
    explicit DocumentPlaces(const ProjectFile& project): _project{project} {}

    // The id of an object of the document.
    const ObjectPlacement& of(const std::string& id);

private:
    const ProjectFile& _project;
    std::unordered_map<std::string, ObjectPlacement> _places;
};

} // namespace VantrelEngine
