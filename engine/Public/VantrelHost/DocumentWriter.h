#pragma once

#include <string>

#include <Corrade/Utility/VisibilityMacros.h>

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

// The text of a project document: a member a line, two blanks a level, arrays of plain values on one line, numbers as
// short as they can be to be read back the same, a line break at the end.
//
// The text is read back and compared, the order of members included. Returns an empty text, or what cannot be written
// and where: a number that is not finite, more than MaxNesting levels, text that is not UTF-8.
CORRADE_VISIBILITY_EXPORT std::string writeDocument(const JsonValue& document, std::string& text);

} // namespace VantrelEngine
