#pragma once

#include <cstddef>
#include <optional>

#include <Vantrel/EngineData/Json.h>

#include "Project/GeneratedNumbers.h"

namespace VantrelTools {

// The "components" of an object, see GeneratorOptions::componentsPerObject.
VantrelEngine::JsonValue generatedComponents(
    std::optional<std::size_t> count, GeneratedNumbers& numbers, VantrelEngine::JsonAllocator& allocator);

}
