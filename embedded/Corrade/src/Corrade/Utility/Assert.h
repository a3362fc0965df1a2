#pragma once

/**
Checks that stay in release builds. A failed one prints a line to the original error output, whatever it is redirected
to at that moment, and aborts.
*/

#include "Corrade/Utility/Debug.h"
#include "Corrade/Utility/Macros.h"
#include "Corrade/Utility/Move.h"

#include <cstdlib>

/** A statement: the line ends when the printing object does, which has to be before aborting. */
#define _CORRADE_ASSERT_FAIL(message)                                                                                  \
    do {                                                                                                               \
        ::Corrade::Utility::Error{::Corrade::Utility::Error::defaultOutput()} << message;                              \
        ::std::abort();                                                                                                \
    } while(false)

/**
Prints `message`, a chain of values for `operator<<` without the stream. `returnValue` (which may be empty) is what
a build that survives failed checks would return from the calling function; here it is never evaluated.
*/
#define CORRADE_ASSERT(condition, message, returnValue)                                                                \
    do {                                                                                                               \
        if(!(condition)) _CORRADE_ASSERT_FAIL(message);                                                                \
    } while(false)

/** For a call that has to happen even in builds where CORRADE_ASSERT() doesn't evaluate its condition. */
#define CORRADE_ASSERT_OUTPUT(call, message, returnValue) CORRADE_ASSERT(call, message, returnValue)

#define CORRADE_ASSERT_UNREACHABLE(message, returnValue) _CORRADE_ASSERT_FAIL(message)

/** An expression; constant as long as the condition holds. */
#define CORRADE_CONSTEXPR_ASSERT(condition, message)                                                                   \
    static_cast<void>((condition) ? 0 : ([&]() { _CORRADE_ASSERT_FAIL(message); }(), 0))

/** For own invariants: prints the condition and where it is. */
#define CORRADE_INTERNAL_ASSERT(condition)                                                                             \
    do {                                                                                                               \
        if(!(condition)) _CORRADE_ASSERT_FAIL(_CORRADE_INTERNAL_ASSERT_MESSAGE(condition));                            \
    } while(false)

#define CORRADE_INTERNAL_ASSERT_OUTPUT(call)                                                                           \
    do {                                                                                                               \
        if(!(call)) _CORRADE_ASSERT_FAIL(_CORRADE_INTERNAL_ASSERT_MESSAGE(call));                                      \
    } while(false)

/** Evaluates to the expression: `f(CORRADE_INTERNAL_ASSERT_EXPRESSION(pointer))`. */
#define CORRADE_INTERNAL_ASSERT_EXPRESSION(...)                                                                        \
    ::Corrade::Utility::Implementation::assertExpression(__VA_ARGS__, _CORRADE_INTERNAL_ASSERT_MESSAGE(__VA_ARGS__))

#define CORRADE_INTERNAL_ASSERT_UNREACHABLE()                                                                          \
    _CORRADE_ASSERT_FAIL("Reached unreachable code at " __FILE__ ":" CORRADE_LINE_STRING)

#define _CORRADE_INTERNAL_ASSERT_MESSAGE(...) "Assertion " #__VA_ARGS__ " failed at " __FILE__ ":" CORRADE_LINE_STRING

namespace Corrade::Utility::Implementation {

template<class T> T assertExpression(T&& value, const char* message) {
    if(!value) _CORRADE_ASSERT_FAIL(message);
    return Utility::forward<T>(value);
}

}
