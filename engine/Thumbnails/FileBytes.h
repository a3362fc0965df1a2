#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace VantrelEngine {

// All of a file; empty where it cannot be read, or has more bytes than so many.
std::vector<char> fileBytes(const std::string& path, std::size_t most);

} // namespace VantrelEngine
