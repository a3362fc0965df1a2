#pragma once

#include <string>

#include <Vantrel/EngineData/Json.h>
#include <Vantrel/EngineData/StringArray.h>

namespace VantrelEngine {

struct SharedState;

// Where the copies go that have no copied parent.
enum class PastePlace { BesideOriginals, BelowFirstSelected };

// Whether it is copied from the project that is edited, or is a text that may be from any one.
enum class ClipSource { Project, Text };

// Puts copied objects, see ObjectClip.h, into the project that is edited, as one step of the undo log. Returns an empty
// text, or one line, and the ids of the new objects in their order; with a line, the project is as it was.
std::string pasteObjects(
    JsonDocument& clip, ClipSource source, PastePlace place, SharedState& state, StringArray& names);

} // namespace VantrelEngine
