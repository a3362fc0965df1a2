#pragma once

/** Symbol visibility; everything unmarked is hidden by the build. */

#define CORRADE_VISIBILITY_EXPORT __attribute__((visibility("default")))
#define CORRADE_VISIBILITY_IMPORT __attribute__((visibility("default")))
#define CORRADE_VISIBILITY_STATIC
#define CORRADE_VISIBILITY_LOCAL __attribute__((visibility("hidden")))
