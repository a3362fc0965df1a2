#pragma once

#include <string>
#include <string_view>

#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

class ChangeManager;
class ProjectFile;

// Places of the document below one that is known: tails are the end of a JSON pointer without its "/" in front, and an
// empty one is the place itself.

// A name as it stands in a pointer, with "~" and "/" escaped.
std::string escapedToken(std::string_view name);

// Null where there is none.
const JsonValue* valueBelow(const JsonValue* base, std::string_view tail);

// The pointer of a tail below a base.
std::string pointerBelow(const std::string& base, std::string_view tail);

// The value as it stands, on one line.
std::string jsonText(const JsonValue& value);
// An empty text, or why the text is no JSON.
std::string parseJson(std::string_view text, JsonDocument& value);

// Records a value, and what is missing on the way to it. What stands on the way and can have no members is replaced.
void recordBelow(ChangeManager& changes, const ProjectFile& file, const std::string& base, std::string_view tail,
    const JsonValue& value, bool merge);

// Why the project would not take the value; empty where it would. Null for a removal.
std::string whyProjectRefuses(const ProjectFile& file, const std::string& pointer, const JsonValue* value);

} // namespace VantrelEngine
