#pragma once

#include <Vantrel/EngineData/ProjectFile.h>
#include <Vantrel/EngineData/ResourceMaps.h>
#include <Vantrel/EngineData/SceneEnvironment.h>
#include <Vantrel/EngineData/SceneResources.h>

namespace VantrelEngine {

// What the settings of a project say of the surroundings of its scene. An image that is not there is none, with one line
// on the warning output the first time; what cannot be used is as if it was missing, and a negative intensity is 0.
SceneEnvironment readEnvironment(const ProjectFile& file, const SceneResources& resources, const ResourceMaps& maps);

} // namespace VantrelEngine
