#pragma once

#include <string_view>

namespace VantrelEngine {

// Whether a text is UTF-8 as RFC 3629 has it: nothing overlong, no surrogates, nothing beyond U+10FFFF. Linear.
bool isUtf8(std::string_view text);

} // namespace VantrelEngine
