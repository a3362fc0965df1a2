#pragma once

// Included before a compiled-in resource group that must not register itself when its library is loaded: its two
// functions stay, and someone calls them.

#include <Corrade/Utility/Macros.h>

#undef CORRADE_AUTOMATIC_INITIALIZER
#define CORRADE_AUTOMATIC_INITIALIZER(function)
#undef CORRADE_AUTOMATIC_FINALIZER
#define CORRADE_AUTOMATIC_FINALIZER(function)
