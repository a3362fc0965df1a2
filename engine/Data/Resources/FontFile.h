#pragma once

#include <string>

#include <Corrade/Containers/ArrayView.h>

namespace VantrelEngine {

// Whether the bytes are a TrueType or OpenType font, or a collection of them, whose tables all lie inside of the file.
// Else there is a reason. What is in the tables is not looked at.
bool checkFont(Corrade::Containers::ArrayView<const char> bytes, std::string& reason);

} // namespace VantrelEngine
