#pragma once

#include <string>

#include <Corrade/Containers/StringView.h>

namespace VantrelEngine {

// A key as it stands in a JSON pointer (RFC 6901): "~" and "/" are escaped.
inline std::string pointerToken(Corrade::Containers::StringView key) {
    std::string token;
    token.reserve(key.size());
    for(const char c: key) {
        if(c == '~')
            token += "~0";
        else if(c == '/')
            token += "~1";
        else
            token += c;
    }
    return token;
}

} // namespace VantrelEngine
