#pragma once

#include <cstddef>
#include <string>

namespace VantrelImport {

// Of FIPS 180-4, as 64 hexadecimal digits in lower case.
std::string sha256(const char* data, std::size_t size);

} // namespace VantrelImport
