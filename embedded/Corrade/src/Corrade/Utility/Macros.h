#pragma once

/** Attributes and other things that only the preprocessor can do. */

#include "Corrade/configure.h"

#define CORRADE_UNUSED __attribute__((__unused__))
/** A complete statement: written without a semicolon. */
#define CORRADE_FALLTHROUGH [[fallthrough]];

#define _CORRADE_STRINGIFY(text) #text
#define _CORRADE_STRINGIFY_EXPANDED(text) _CORRADE_STRINGIFY(text)
/** Line number as a string literal, for concatenation with other literals. */
#define CORRADE_LINE_STRING _CORRADE_STRINGIFY_EXPANDED(__LINE__)

/**
Runs `int function()` when the library or executable is loaded. In a static library the linker drops the whole object
file, and this with it, when nothing else in it is referred to.
*/
#define CORRADE_AUTOMATIC_INITIALIZER(function)                                                                        \
    namespace {                                                                                                        \
    CORRADE_UNUSED const int corradeAutomaticInitializer_##function = function();                                      \
    }

/** Runs `int function()` on unload or exit; several in one file run in the opposite order of their lines. */
#define CORRADE_AUTOMATIC_FINALIZER(function)                                                                          \
    namespace {                                                                                                        \
    struct CorradeAutomaticFinalizer_##function {                                                                      \
        ~CorradeAutomaticFinalizer_##function() { function(); }                                                        \
    } corradeAutomaticFinalizer_##function;                                                                            \
    }
