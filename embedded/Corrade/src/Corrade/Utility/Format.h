#pragma once

/** Text from a pattern with placeholders. */

#include "Corrade/Containers/String.h"
#include "Corrade/Utility/VisibilityMacros.h"

#include <cstring>
#include <initializer_list>
#include <type_traits>

namespace Corrade::Utility {

namespace Implementation {

/** One value, as cheap to pass as possible; refers to the original where it has to. */
struct FormatArgument {
    enum class Kind : unsigned char { Bool, Int, UnsignedInt, Long, UnsignedLong, Float, Double, LongDouble, String };

    struct String {
        const char* data;
        std::size_t size;
    };

    /** A template, because pointers convert to a plain bool. */
    template<class T, class = std::enable_if_t<std::is_same<T, bool>::value>>
    explicit FormatArgument(T value): kind{Kind::Bool}, integer(value) {}
    explicit FormatArgument(int value): kind{Kind::Int}, integer(static_cast<unsigned int>(value)) {}
    explicit FormatArgument(unsigned int value): kind{Kind::UnsignedInt}, integer{value} {}
    explicit FormatArgument(long value): kind{Kind::Long}, integer(static_cast<unsigned long>(value)) {}
    explicit FormatArgument(unsigned long value): kind{Kind::UnsignedLong}, integer{value} {}
    explicit FormatArgument(long long value): kind{Kind::Long}, integer(static_cast<unsigned long long>(value)) {}
    explicit FormatArgument(unsigned long long value): kind{Kind::UnsignedLong}, integer{value} {}
    explicit FormatArgument(float value): kind{Kind::Float}, floating{value} {}
    explicit FormatArgument(double value): kind{Kind::Double}, floating{value} {}
    explicit FormatArgument(const long double& value): kind{Kind::LongDouble}, longFloating{&value} {}
    explicit FormatArgument(const char* value): kind{Kind::String}, string{value, value ? std::strlen(value) : 0} {}
    explicit FormatArgument(Containers::StringView value): kind{Kind::String}, string{value.data(), value.size()} {}

    Kind kind;
    union {
        /** Two's complement of signed kinds, in the width of the kind. */
        unsigned long long integer;
        double floating;
        const long double* longFloating;
        String string;
    };
};

CORRADE_VISIBILITY_EXPORT Containers::String formatString(
    const char* format, std::initializer_list<FormatArgument> arguments);
CORRADE_VISIBILITY_EXPORT std::size_t formatBuffer(
    const Containers::MutableStringView& buffer, const char* format, std::initializer_list<FormatArgument> arguments);

}

/**
Replaces placeholders by arguments. A placeholder is `{}`, the argument after the previous one, or `{N}`; then, after
a colon, an optional precision `.P` and an optional type: `c`, `o`, `d`, `x`, `X` for integers, `g`, `e`, `f` and
uppercase for floating-point values. `{{` and `}}` are braces.

Floating-point values have 6, 15 or 18 (float, double, long double) significant digits by default, integers as many as
needed, and the precision of a string is the most characters that are taken. Booleans are 1 and 0, characters are
numbers unless the type says `c`, enums without scope are their values.

A placeholder without an argument stays as it is, arguments without a placeholder are ignored. A malformed pattern or
a type that doesn't fit the argument fails an assertion.
*/
template<class... Args> Containers::String format(const char* format, const Args&... arguments) {
    return Implementation::formatString(format, {Implementation::FormatArgument{arguments}...});
}

/**
The same without allocating: returns the number of characters, and writes them, without a terminator, unless the view is
null. Fails an assertion when they don't fit. Provide one byte more than the text needs.
*/
template<class... Args>
std::size_t formatInto(const Containers::MutableStringView& buffer, const char* format, const Args&... arguments) {
    return Implementation::formatBuffer(buffer, format, {Implementation::FormatArgument{arguments}...});
}

/** A view made from an array would end at the first zero byte. */
template<std::size_t size, class... Args>
std::size_t formatInto(char (&buffer)[size], const char* format, const Args&... arguments) {
    return formatInto(Containers::MutableStringView{buffer, size}, format, arguments...);
}

}
