#pragma once

/**
What the containers do when they are misused. The text is put together in the library, which leaves one comparison and
one call that never returns at the place of use: checked access stays inlined, works in constant expressions, and the
containers don't need the headers for debug output.
*/

#include "Corrade/Utility/VisibilityMacros.h"

#include <cstddef>

/** Ends the program with a printf-like message unless the condition holds, in every build. */
#define _CORRADE_CONTAINERS_ASSERT(condition, ...)                                                                     \
    (__builtin_expect(static_cast<bool>(condition), true)                                                              \
            ? static_cast<void>(0)                                                                                     \
            : ::Corrade::Containers::Implementation::fail("Containers::" __VA_ARGS__))

/** The same in builds with debug assertions, nothing in others. */
#if defined(CORRADE_IS_DEBUG_BUILD) || !defined(NDEBUG)
#define _CORRADE_CONTAINERS_CHECK(condition, ...) _CORRADE_CONTAINERS_ASSERT(condition, __VA_ARGS__)
#else
#define _CORRADE_CONTAINERS_CHECK(condition, ...) static_cast<void>(0)
#endif

/** For `[begin, end)` out of `size` elements; `type` is a literal. */
#define _CORRADE_CONTAINERS_CHECK_SLICE(type, begin, end, size)                                                        \
    _CORRADE_CONTAINERS_CHECK((begin) <= (end) && (end) <= (size),                                                     \
        type "::slice(): slice [%zu:%zu] out of range for %zu elements", begin, end, size)

/** The same for positions that may be before the beginning. */
#define _CORRADE_CONTAINERS_CHECK_POINTER_SLICE(type, begin, end, size)                                                \
    _CORRADE_CONTAINERS_CHECK(0 <= (begin) && (begin) <= (end) && (end) <= std::ptrdiff_t(size),                       \
        type "::slice(): slice [%td:%td] out of range for %zu elements", begin, end, size)

namespace Corrade::Containers::Implementation {

/** Prints the message and a newline to the standard error output and aborts. */
[[noreturn]] CORRADE_VISIBILITY_EXPORT __attribute__((cold, format(printf, 1, 2))) void fail(const char* format, ...);

/** A list such as "{1, 2}" for the message of fail(); owns its characters. */
struct CORRADE_VISIBILITY_EXPORT DimensionsText {
    explicit DimensionsText(const std::size_t* values, unsigned count);
    explicit DimensionsText(const std::ptrdiff_t* values, unsigned count);
    char data[128];
};

}
