#pragma once

#include <string>
#include <string_view>

namespace VantrelImport {

// Texts of assets may hold anything. One line of UTF-8 without control characters, cut to about so many bytes; what is
// no UTF-8 becomes question marks.
std::string cleanText(std::string_view text, std::size_t limit = 400);

// A name for people: the text, cleaned, or what is given where nothing is left of it.
std::string nameOr(std::string_view text, const std::string& otherwise);

// In quotation marks, cleaned.
std::string quoted(std::string_view text);

std::string lowerCase(std::string_view text);

// Of a file name: what follows the last point, in lower case, and what is before it. No folders.
std::string extensionOf(std::string_view fileName);
std::string stemOf(std::string_view fileName);
// What is before the last slash; "." where there is none.
std::string folderOf(std::string_view path);
// What follows the last slash or backslash.
std::string baseName(std::string_view path);

} // namespace VantrelImport
