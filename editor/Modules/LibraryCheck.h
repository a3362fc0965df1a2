#pragma once

#include <string>

namespace VantrelEngine {

// Whether a file holds a whole shared library for this machine. Loading one that is cut off, because it is being written,
// would end the process instead of failing. Returns an empty text, or what is wrong with it.
std::string whyNotLoadable(const std::string& file);

} // namespace VantrelEngine
