#pragma once

#include <cstdint>
#include <optional>
#include <string>

#include "Renderer/Environment/EnvironmentBake.h"

namespace VantrelEngine {

// Bakes as files of a folder, by the key of their surroundings.

// A file more removes the one that was not used for the longest time.
constexpr std::size_t MaximumBakeFiles = 64;

// None where there is no such file, and where it is damaged, truncated or of another version. Counts as a use.
std::optional<EnvironmentBake> readBake(const std::string& folder, std::uint64_t key);

// Makes the folder where it is not there. Another program may read and write the same at the same time. Returns an empty
// text, or why that failed.
std::string writeBake(const std::string& folder, std::uint64_t key, const EnvironmentBake& bake);

} // namespace VantrelEngine
