#pragma once

#include <string>
#include <utility>
#include <vector>

#include "Data/Inspected.h"
#include "Panels/Inspector/InspectedGroup.h"

namespace VantrelEngine {

class EditorData;
class ProjectFile;

// What a panel shows, as it is in the document now. Valid until the document changes.

// The selected objects, and the components that all of them have. Empty where nothing is selected.
std::vector<InspectedGroup> selectionGroups(const EditorData& data);
// Components that some of them have and others lack, each with their number: "Light: 3 of 5 objects". Of the objects that
// the groups are about.
std::vector<std::string> componentsOfSome(const std::vector<InspectedGroup>& groups);

// Empty where there is no such resource.
std::vector<InspectedGroup> resourceGroups(const ProjectFile& file, const InspectedResource& resource);
// What is known of a resource that cannot be set: a name and a value a line.
std::vector<std::pair<std::string, std::string>> resourceFacts(EditorData& data, const InspectedResource& resource);

std::vector<InspectedGroup> settingsGroups(const ProjectFile& file);

} // namespace VantrelEngine
