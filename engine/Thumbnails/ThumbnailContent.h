#pragma once

#include <cstdint>
#include <string>

#include <Vantrel/EngineData/FileLink.h>
#include <Vantrel/EngineData/ResourceMaps.h>

namespace VantrelEngine {

class ResourceManager;
struct SceneResources;

// What the picture of a resource depends on, as a number; 0 where it cannot have one. Linear in the vertices, or in the
// texels of all images that it shows.
std::uint64_t thumbnailContent(
    const SceneResources& resources, const ResourceManager& files, ResourceKind kind, Id index);

// The source of a shader; empty where it cannot be had.
std::string thumbnailShader(const ResourceManager& files, const FileLink& link);

} // namespace VantrelEngine
