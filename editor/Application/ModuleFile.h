#pragma once

#include <string>

namespace VantrelEngine {

// The library of the scene view that was built together with the program, found beside it.
std::string defaultModuleFile();
// The program that reads what is imported, beside the editor.
std::string defaultConverterFile();
// The font of the icons; it need not be there.
std::string iconFontFile();

} // namespace VantrelEngine
