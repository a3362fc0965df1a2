#pragma once

/** Forward declarations of the Corrade namespace. */

#include "Corrade/configure.h"

namespace Corrade {

struct ValueInitT;
struct NoInitT;
struct NoCreateT;
struct DirectInitT;
struct InPlaceInitT;
struct DefaultInitT;

}
