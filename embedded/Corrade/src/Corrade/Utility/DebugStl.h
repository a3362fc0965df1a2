#pragma once

/** Printing of std::string. */

#include "Corrade/Containers/StringView.h"
#include "Corrade/Utility/Debug.h"

#include <string>

namespace Corrade::Utility {

inline Debug& operator<<(Debug& debug, const std::string& value) {
    return debug << Containers::StringView{value.data(), value.size()};
}

}
