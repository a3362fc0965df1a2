#pragma once

#include <string>
#include <vector>

#include <Vantrel/EngineData/Json.h>

#include "Panels/Schema/SchemaKey.h"

namespace VantrelEngine {

// The tails of what stands in a value and no row of the schema shows: members that it does not know, and what stands in
// the way of those that it does, as a number where an object is expected. The value itself, "", where it is no object.
// In the order of the document.
std::vector<std::string> unknownKeys(const JsonValue& value, const std::vector<SchemaKey>& known);

// The same of all of several values, each once, in the order in which they come first; null values have none. Goes through
// the names in each value, and compares those with what is known of one value of each kind that has the same.
std::vector<std::string> unknownKeys(const std::vector<const JsonValue*>& values, const std::vector<SchemaKey>& known);

} // namespace VantrelEngine
