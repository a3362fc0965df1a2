#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

class ProjectFile;

// 64 bits for a resource and all resources that it is made of: with the same ones it is the same in another project. None
// where that cannot be told by the document: for what is not there, for skins and animations, which name objects, and for
// files of the project that are not named after their contents.
CORRADE_VISIBILITY_EXPORT std::optional<std::uint64_t> resourceChecksum(
    const ProjectFile& project, const std::string& section, const std::string& id);

// Whether a file that the resource names holds the same in any project: it is the engine's, or named after its contents.
// Also of a resource without a file.
bool isFileKnown(const JsonValue& resource, const std::string& section);

} // namespace VantrelEngine
