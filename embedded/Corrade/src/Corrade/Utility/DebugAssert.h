#pragma once

/**
Checks for hot code, such as an index being in range: the same as their namesakes in Assert.h in a debug build, nothing
otherwise. It is a debug build when CORRADE_IS_DEBUG_BUILD is defined or NDEBUG isn't.
*/

#include "Corrade/Utility/Assert.h"

#if defined(CORRADE_IS_DEBUG_BUILD) || !defined(NDEBUG)
#define CORRADE_DEBUG_ASSERT(condition, message, returnValue) CORRADE_ASSERT(condition, message, returnValue)
#define CORRADE_CONSTEXPR_DEBUG_ASSERT(condition, message) CORRADE_CONSTEXPR_ASSERT(condition, message)
#else
#define CORRADE_DEBUG_ASSERT(condition, message, returnValue)                                                          \
    do {                                                                                                               \
    } while(false)
#define CORRADE_CONSTEXPR_DEBUG_ASSERT(condition, message) static_cast<void>(0)
#endif
