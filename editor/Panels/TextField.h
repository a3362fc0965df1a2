#pragma once

#include <string>

namespace VantrelEngine {

// A field for a text of any length, one line, with a hint while it is empty. The flags are the UI library's. Whether the
// text was edited.
bool drawTextField(const char* label, const char* hint, std::string& text, int flags = 0);
// The same of several lines, so many of which are seen.
bool drawTextLines(const char* label, std::string& text, unsigned lines);

} // namespace VantrelEngine
