#pragma once

#include <cstddef>
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

// The key that a token stands for.
inline std::string unescaped(Corrade::Containers::StringView token) {
    std::string key;
    for(std::size_t i = 0; i != token.size(); ++i) {
        const bool isEscape = token[i] == '~' && i + 1 != token.size();
        key += !isEscape ? token[i] : token[++i] == '1' ? '/' : '~';
    }
    return key;
}

} // namespace VantrelEngine
