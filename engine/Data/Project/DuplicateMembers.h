#pragma once

#include <vector>

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

// Positions of the members of an object whose key an earlier member has, in their order. Linear.
std::vector<rapidjson::SizeType> duplicateMembers(const JsonValue& object);

} // namespace VantrelEngine
