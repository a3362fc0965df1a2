#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include <Corrade/Utility/VisibilityMacros.h>

#include "Vantrel/EngineData/Json.h"

namespace VantrelEngine {

// Objects and arrays inside of each other, the outermost included. What reads, writes, copies or frees a document goes
// down it by recursion; more than this is refused wherever it would come into the document.
constexpr std::size_t MaxNesting = 512;

// Bytes of a project file.
constexpr std::size_t MaxDocumentSize = std::size_t{1} << 30;

// Reads a project document from JSON text: UTF-8, with or without a byte order mark, an object and nothing behind it.
// Whole numbers of up to 64 bits stay whole; other numbers become the nearest double, and one that is too large for a
// double is refused. Duplicate keys stay, see DocumentCheck.h.
//
// Returns an empty text, or one line with the place and the reason, and leaves the document as it was.
CORRADE_VISIBILITY_EXPORT std::string parseDocument(std::string_view text, JsonDocument& document);

// The same with a file. The line begins with its path.
CORRADE_VISIBILITY_EXPORT std::string readDocument(const std::string& path, JsonDocument& document);

} // namespace VantrelEngine
