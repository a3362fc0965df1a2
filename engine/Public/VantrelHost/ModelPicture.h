#pragma once

#include <atomic>
#include <cstdint>
#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Color.h>
#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

// A small square picture of a part of a project, as a model that was imported is one: its objects with meshes as they
// stand, with the colours and textures of their materials. Needs no GL, and any thread may draw one. Rows upwards; empty
// where there is nothing to be seen, or it was given up meanwhile.
//
// The sections are those of a project, and complete; the folder is the one that "file" is relative to. Pixels along an
// edge, at least 1. Takes as long as it takes to read the files.
CORRADE_VISIBILITY_EXPORT std::vector<Magnum::Color4ub> drawModelPicture(
    const JsonDocument& sections, const std::string& folder, Magnum::Int edge, const std::atomic<bool>& isGivenUp);

// A number for what the picture of a file depends on: its bytes, and for a file that may name others the sizes and times
// of those beside it. 0 where it cannot be read.
CORRADE_VISIBILITY_EXPORT std::uint64_t modelContent(const std::string& path);

// Pictures are kept in the folder of Thumbnails, by content; without a name nothing is kept. Empty where there is none.
CORRADE_VISIBILITY_EXPORT std::vector<Magnum::Color4ub> readKeptPicture(
    const std::string& folder, std::uint64_t content, Magnum::Int edge);
CORRADE_VISIBILITY_EXPORT void keepPicture(
    const std::string& folder, std::uint64_t content, Magnum::Int edge, const std::vector<Magnum::Color4ub>& pixels);

} // namespace VantrelEngine
