#pragma once

#include <string>
#include <vector>

namespace VantrelEngine {

// The bytes of a TrueType font; empty where there is no such file. One that is not whole is empty, too, and gives one line.
std::vector<unsigned char> readIconFont(const std::string& file);

// Whether these bytes are a TrueType font as it was made: its words add up to what the format wants of every font
// (OpenType, "head" table, checksumAdjustment).
bool isWholeFont(const std::vector<unsigned char>& font);

} // namespace VantrelEngine
