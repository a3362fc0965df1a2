#pragma once

#include <string>
#include <vector>

#include <Vantrel/EngineData/FileLink.h>

namespace VantrelEngine {

class ResourceManager;

// A line that defines each of the names.
std::string definesOf(const std::vector<std::string>& features);

// The source of a shader; empty where it cannot be had.
std::string shaderSource(const ResourceManager& files, const FileLink& link);

} // namespace VantrelEngine
