#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <Vantrel/EngineData/Json.h>

#include "Panels/Schema/SchemaKey.h"

namespace VantrelEngine {

// The texts between the "|".
std::vector<std::string> splitChoices(const char* texts);

// Whether a value can be shown by the widget of the key: why not, or null where it can.
const char* whyNotShown(const SchemaKey& key, const JsonValue& value);

// Why the key does not take a value: one that cannot be shown, is not finite, is out of range, or zero where that is no
// value. Empty where it does. A drag stops at the ends of the range before that; what is typed is refused.
std::string whyRefused(const SchemaKey& key, const JsonValue& value);

// The same of one of its numbers.
std::string whyNumberRefused(const SchemaKey& key, double number);

// The range as it is told to the user: "0 to 1", "above 0", ...; empty without one.
std::string rangeText(const SchemaKey& key);

} // namespace VantrelEngine
