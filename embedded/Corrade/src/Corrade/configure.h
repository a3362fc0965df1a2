#pragma once

/** What the subset is built for. An unsupported target stops here instead of misbehaving later. */

#include <cstddef>

#if !defined(__unix__) || !defined(__GNUC__)
#error only Unix systems with GCC or Clang are supported
#endif

#define CORRADE_TARGET_UNIX
/* Clang has GCC's attributes and builtins and defines both. */
#define CORRADE_TARGET_GCC
#ifdef __clang__
#define CORRADE_TARGET_CLANG
#endif

/* Known after any standard header. */
#ifdef _LIBCPP_VERSION
#define CORRADE_TARGET_LIBCXX
#elif defined(__GLIBCXX__)
#define CORRADE_TARGET_LIBSTDCXX
#endif

/* Output redirection is per thread. */
#define CORRADE_BUILD_MULTITHREADED
