#pragma once

#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

// Ends of the names of files that can be imported, with the dot, in lower case. A name may have them in any case.
const std::vector<std::string>& modelSuffixes();
const std::vector<std::string>& imageSuffixes();
// Both.
CORRADE_VISIBILITY_EXPORT std::vector<std::string> importedSuffixes();

bool isImageFile(const std::string& path);
CORRADE_VISIBILITY_EXPORT bool isModelFile(const std::string& path);
CORRADE_VISIBILITY_EXPORT bool isImportable(const std::string& path);

} // namespace VantrelEngine
