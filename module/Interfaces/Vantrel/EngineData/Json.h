#pragma once

#include <rapidjson/document.h>

namespace VantrelEngine {

// The project document's types. The allocator frees a value when the value
// goes, so that a long drag, which replaces the same values frame after frame,
// does not make the document's memory grow.
using JsonAllocator = rapidjson::CrtAllocator;
using JsonDocument = rapidjson::GenericDocument<rapidjson::UTF8<>, JsonAllocator>;
using JsonValue = JsonDocument::ValueType;

} // namespace VantrelEngine
