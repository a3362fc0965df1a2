#pragma once

#include <string>
#include <string_view>

#include <Corrade/Containers/StringView.h>

namespace VantrelTools {

inline Corrade::Containers::StringView view(std::string_view text) { return {text.data(), text.size()}; }

// One line on the error output, with the program's name in front; the failed exit status.
int fail(const std::string& line);

}
