#pragma once

#include <cstdint>
#include <string>

#include <Vantrel/EngineData/FileLink.h>
#include <Vantrel/EngineData/ResourceMaps.h>

#include "Thumbnails/ContentHashes.h"

namespace VantrelEngine {

class ResourceManager;
struct SceneResources;

// What is known of images and meshes from before.
struct KnownContents {
    ContentHashes images, meshes;
};

// What the picture of a resource depends on, as a number; 0 where it cannot have one. Linear in the vertices, or in the
// texels of all images that it shows, of those that are not known.
std::uint64_t thumbnailContent(
    const SceneResources& resources, const ResourceManager& files, ResourceKind kind, Id index, KnownContents& known);

// The source of a shader; empty where it cannot be had.
std::string thumbnailShader(const ResourceManager& files, const FileLink& link);

} // namespace VantrelEngine
