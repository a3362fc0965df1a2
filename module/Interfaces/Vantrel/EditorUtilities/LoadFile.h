#pragma once

#include <optional>

#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringView.h>
#include <Corrade/Utility/VisibilityMacros.h>
#include <Magnum/Magnum.h>
#include <Magnum/Math/Range.h>

namespace VantrelEngine {

class VantrelEditor;

enum class LoadMode : int {
    // Into the project that is open.
    Import = 0
};

// Imports a model or an image into the project: it is queued, and inserted as one step of the undo log when it has been
// read. Returns at once. What cannot be imported gives one line. keepOpen has no meaning yet and is false.
//
// While the shared state's ViewPointer has a place, a model is put there: the bounds of its meshes stand on it with the
// middle of their lower side, or its origin where it has no meshes.
CORRADE_VISIBILITY_EXPORT void loadFile(
    Corrade::Containers::StringView path, VantrelEditor& editor, LoadMode mode, bool keepOpen);

// Whether the path names an image file, or one of a model that can be imported, by the end of its name in any case.
CORRADE_VISIBILITY_EXPORT bool isImagePath(Corrade::Containers::StringView path);
CORRADE_VISIBILITY_EXPORT bool isModelPath(Corrade::Containers::StringView path);

// The box about the meshes of a model, scene units, from the origin that it was imported to. None for a file that was not
// imported by this process, or has no meshes.
CORRADE_VISIBILITY_EXPORT std::optional<Magnum::Range3D> importedBounds(
    Corrade::Containers::StringView path, VantrelEditor& editor);

// Whether the project has a texture that is named like the file, of an image with the same bytes. Reads the file.
CORRADE_VISIBILITY_EXPORT bool isImageLoaded(Corrade::Containers::StringView path, VantrelEditor& editor);
// The id of that texture; empty for none. The number that a name is given where the project has it already counts as part
// of the name.
CORRADE_VISIBILITY_EXPORT Corrade::Containers::String textureOfImage(
    Corrade::Containers::StringView path, VantrelEditor& editor);

// Makes the image file a texture of the project, named like the file, as one step of the undo log, or as part of the trial
// that is under way. Waits until that is done. False, and one line, where it cannot be; no group of the log may be open.
// quiet has no meaning yet and is false.
CORRADE_VISIBILITY_EXPORT bool loadImage(Corrade::Containers::StringView path, VantrelEditor& editor, bool quiet);

} // namespace VantrelEngine
