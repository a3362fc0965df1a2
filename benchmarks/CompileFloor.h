#pragma once

#include <cstddef>

#include <Vantrel/EngineData/Json.h>

namespace VantrelBench {

// The least that a compilation has to do: one walk over the objects of a document that reads every key which is compiled,
// and an entity with its components in plain arrays for each. Nothing is looked up by id, checked, or used again. Returns
// the number of components.
std::size_t compileFloor(const VantrelEngine::JsonValue& objects);

}
