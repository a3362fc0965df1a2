#pragma once

/**
Include where strings and std::string meet: both String and StringView then convert from and to it. A view of a
std::string is NullTerminated and valid as long as that isn't changed.
*/

#include "Corrade/Containers/StringView.h"

#include <string>

namespace Corrade::Containers::Implementation {

template<> struct StringViewConverter<const char, std::string> {
    static StringView from(const std::string& other) {
        return {other.data(), other.size(), StringViewFlag::NullTerminated};
    }
    static std::string to(StringView other) { return {other.data() ? other.data() : "", other.size()}; }
};

template<> struct StringViewConverter<char, std::string> {
    static MutableStringView from(std::string& other) {
        return {&other[0], other.size(), StringViewFlag::NullTerminated};
    }
    static std::string to(MutableStringView other) { return StringViewConverter<const char, std::string>::to(other); }
};

}
