#pragma once

#include <string>

namespace VantrelEngine {

// Names a file that the document refers to.
struct FileLink {
    // Whose file it is: "" the project's, whose folder the file cannot leave; "default" the engine's own.
    std::string asset;
    // Relative to the asset's folder, with "/".
    std::string file;
};

} // namespace VantrelEngine
