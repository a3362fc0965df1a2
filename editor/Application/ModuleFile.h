#pragma once

#include <string>

namespace VantrelEngine {

// The library of the scene view that was built together with the program, found beside it.
std::string defaultModuleFile();

} // namespace VantrelEngine
