#pragma once

#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>

namespace VantrelEngine {

class VantrelEditor;

enum class LoadMode : int {
    // Into the project that is open.
    Import = 0
};

// Imports a model or an image into the project: it is queued, and inserted as one step of the undo log when it has been
// read. Returns at once. What cannot be imported gives one line. keepOpen has no meaning yet and is false.
CORRADE_VISIBILITY_EXPORT void loadFile(
    Corrade::Containers::StringView path, VantrelEditor& editor, LoadMode mode, bool keepOpen);

// Whether the path names an image file, by the end of its name in any case.
CORRADE_VISIBILITY_EXPORT bool isImagePath(Corrade::Containers::StringView path);

// Whether the project has a texture that is named like the file, of an image with the same bytes. Reads the file.
CORRADE_VISIBILITY_EXPORT bool isImageLoaded(Corrade::Containers::StringView path, VantrelEditor& editor);

// Makes the image file a texture of the project, named like the file, as one step of the undo log. Waits until that is
// done. False, and one line, where it cannot be; no group of the log may be open. quiet has no meaning yet and is false.
CORRADE_VISIBILITY_EXPORT bool loadImage(Corrade::Containers::StringView path, VantrelEditor& editor, bool quiet);

} // namespace VantrelEngine
