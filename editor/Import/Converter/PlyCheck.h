#pragma once

#include <string>
#include <vector>

namespace VantrelImport {

// Why a PLY file must not be given to the library, which waits for ever for elements that are not there: what its header
// announces has to be in the file. Empty for one that may. Linear.
std::string whyNotComplete(const std::vector<char>& ply);

} // namespace VantrelImport
