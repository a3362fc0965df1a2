#pragma once

#include <string>
#include <vector>

#include <Corrade/Containers/StringView.h>

namespace VantrelEngine {

class ChangeManager;
class EditorData;
class ProjectFile;

// What a resource that is dropped on an object becomes in the document. Objects and resources by their ids.

// Whether some component of the object has this type.
bool hasComponent(
    const ProjectFile& project, Corrade::Containers::StringView object, Corrade::Containers::StringView type);

// Makes the material that of each mesh component of the object, as one group of the undo log. Whether anything was
// recorded. "Cannot set material on object without mesh component!" is said in any case, which is kept as it is.
bool assignMaterial(ProjectFile& project, ChangeManager& changes, Corrade::Containers::StringView object,
    Corrade::Containers::StringView material);

// Pointers to where the materials of an object's mesh components have their first textures, one a component; nothing of a
// component whose material has no pipeline that takes textures.
std::vector<std::string> texturePlaces(EditorData& data, Corrade::Containers::StringView object);

// Puts the texture there, as one group of the undo log. Whether anything was recorded.
bool assignTexture(EditorData& data, ChangeManager& changes, Corrade::Containers::StringView object,
    Corrade::Containers::StringView texture);

} // namespace VantrelEngine
