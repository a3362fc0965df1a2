#pragma once

#include <cstddef>

#include <Magnum/Magnum.h>
#include <Vantrel/EngineData/Json.h>

namespace VantrelBench {

// Adds to a grid's project.

// A sun that shines onto it from above the camera, whose shadows reach beyond it.
void addSun(VantrelEngine::JsonDocument& project, std::size_t cascades);
// So many point lights, evenly in front of it. Each reaches as far as to its neighbours.
void addPointLights(VantrelEngine::JsonDocument& project, std::size_t count);

}
