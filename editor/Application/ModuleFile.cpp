#include "Application/ModuleFile.h"

#include <Corrade/Containers/Optional.h>
#include <Corrade/Containers/Pair.h>
#include <Corrade/Containers/String.h>
#include <Corrade/Containers/StringStl.h>
#include <Corrade/Utility/Path.h>

namespace VantrelEngine {

using namespace Corrade;

namespace {

std::string besideProgram(const char* file) {
    const Containers::Optional<Containers::String> program = Utility::Path::executableLocation();
    const Containers::StringView folder = program ? Utility::Path::path(*program) : Containers::StringView{"."};
    return Utility::Path::join(folder, file);
}

} // namespace

std::string defaultModuleFile() { return besideProgram("../lib/SceneView.so"); }

std::string defaultConverterFile() { return besideProgram("vantrel-import"); }

std::string iconFontFile() { return besideProgram("../share/fa-solid-900.ttf"); }

} // namespace VantrelEngine
