#pragma once

#include <atomic>
#include <string>
#include <vector>

#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Color.h>

namespace VantrelEngine {

// Makes small pictures of model files, see FilePictures::Reader: the converter reads a file in a process of its own, as for
// an import, and what comes of it is drawn. A picture is kept in a folder by the file's content, and drawn once.
struct CORRADE_VISIBILITY_EXPORT ModelPictureReader {
    // The program that reads what is imported; and the folder, whose name may be empty, where nothing is kept.
    std::string converter, folder;

    // Empty where the file cannot be read, or has nothing to be seen.
    std::vector<Magnum::Color4ub> operator()(
        const std::string& path, Magnum::Int edge, const std::atomic<bool>& isGivenUp) const;
};

} // namespace VantrelEngine
