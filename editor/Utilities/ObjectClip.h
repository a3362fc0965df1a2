#pragma once

#include <string>
#include <string_view>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Vantrel/EngineData/Json.h>

namespace VantrelEngine {

class ProjectFile;

// Objects that were copied: a document with the members "type" and "version", and "objects", "skins" and "animations" as
// in a project, with the ids that they have there. Their text says where they are from, too, see ClipOrigin.h.

// Bytes that a text may have: those of a project full of objects several times over.
constexpr std::size_t MaxClipSize = std::size_t{1} << 28;

// Copies these objects, in this order, and of the skins and animations that they use those that name one of them. An id
// that no object has is passed over.
JsonDocument copyObjects(const ProjectFile& project, const std::vector<std::string>& ids);

// The text of copied objects.
std::string textOfClip(const JsonDocument& clip);

// Whether the text begins as those do; a quick look. One that was written by hand may look otherwise.
CORRADE_VISIBILITY_EXPORT bool looksLikeClip(std::string_view text);

// Reads such a text, trusting nothing: the rules of a project's document are kept, with what would be repaired there
// refused here. Returns an empty text, or one line.
std::string readClip(std::string_view text, JsonDocument& clip);

} // namespace VantrelEngine
